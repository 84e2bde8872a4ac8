#pragma once

#include "framework/text/text.h"
#include "platform/IScratchArea.h"
#include "ui/base/IMainForm.h"
#include "ui/base/IMainFormParts.h"

#include <functional>

namespace portico {

namespace modAppGlobals {

/// The main window under each of the names by which it is asked for.
struct MainForm {
  Ref<IMainForm> Form; ///< `gMainForm`
  Ref<IMainFormParts> Parts;
  Ref<IScratchArea> ScratchArea;
};

/// What the program hands to `Main`.
struct Startup {
  /// Makes one XML document and lets it go; throws where that cannot be done.
  std::function<void()> CreateXMLDocument;
  /// Makes the main window, whose `Form_Initialize` calls what it is given.
  std::function<MainForm(std::function<void()> CreateObjectFactory)> CreateMainForm;
  /// The whole command line without the program's name; all of it is an instrument name.
  String CommandLine;
};

/// Program entry. An error ends here and is shown to nobody; the program goes on with whatever window is up.
void Main(const Startup& startup);

/// Sets `gXMLParserAvailable`. Never raises.
void DetectXMLParser(const std::function<void()>& createXMLDocument);

/// Makes `gObjectFactory` and runs the six registrars in their order, then that of the menus View and Data.
void CreateObjectFactory();

/// Lets the factory go, and with it every singleton; the channel follows at once, so that an instrument which is still
/// open is closed now.
void ReleaseObjectFactory();

/// Lets the main window go, under all its names.
void ReleaseMainForm();

} // namespace modAppGlobals
} // namespace portico
