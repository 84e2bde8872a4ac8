#pragma once

#include "document/entities/IDataStore.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/modAppGlobals.h"
#include "memory/forms/RichTextControl.h"
#include "support/Files.h"
#include "support/fixtures/DocumentFixture.h"
#include "support/fixtures/WindowPlatform.h"
#include "ui/DesktopDoubles.h"
#include "ui/MainFormDouble.h"

#include <initializer_list>

namespace portico::test {

/// The window's platform, the classes of document, view and commands, a main window, and a directory for logs. The
/// journal gets what is written to the configuration, and what dialogs are shown.
class LogFixture : public DocumentFixture {
protected:
  LogFixture();
  ~LogFixture() override;

  std::string PathOf(const std::string& name) const;
  String NameOf(const std::string& name) const;
  std::string Read(const std::string& name) const;
  void Write(const std::string& name, const std::string& bytes) const;
  static std::size_t CountOf(const std::string& bytes, const std::string& what);
  /// A log of one closed session.
  void MakeLog(const std::string& name, std::initializer_list<StringView> texts,
               StringView type = u"Instruction") const;
  static void Run(const String& specification);
  /// Replaces a creator by one that hands this out.
  static void Replace(const String& specification, const Ref<IObject>& product);

  WindowPlatform Platform;
  Journal WindowCalls;
  Ref<MainFormDouble> Main = New<MainFormDouble>(WindowCalls);
  Ref<CommonDialogDouble> Dialog = New<CommonDialogDouble>(Calls);
  const TemporaryFolder Folder;
};

} // namespace portico::test
