#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <memory>

namespace portico {

enum class MessageBoxButtons : std::int32_t { OKOnly = 0, YesNo = 4 };
enum class MessageBoxIcon : std::int32_t { None = 0, Question = 32, Information = 64 };
enum class MessageBoxAnswer : std::int32_t { OK = 1, Yes = 6, No = 7 };

/// Modal; throws `Quit` as a modal form does.
class IMessageBox {
public:
  virtual ~IMessageBox() = default;
  virtual MessageBoxAnswer Show(const String& Prompt, const String& Title,
                                MessageBoxButtons Buttons = MessageBoxButtons::OKOnly,
                                MessageBoxIcon Icon = MessageBoxIcon::None) = 0;
};
extern std::shared_ptr<IMessageBox> gMessageBox;

class IClipboard {
public:
  virtual ~IClipboard() = default;
  /// The text last seen there; empty if there is none. Asks nobody, so that it costs nothing.
  virtual String GetText() const = 0;
};
extern std::shared_ptr<IClipboard> gClipboard;

class IKeyboard {
public:
  virtual ~IKeyboard() = default;
  /// Delivers keys to the control with the focus as if they were typed, after the caller has returned. '^' in front of
  /// a letter stands for Ctrl.
  virtual void SendKeys(const String& keys) = 0;
};
extern std::shared_ptr<IKeyboard> gKeyboard;

/// The default printer.
class IPrinter {
public:
  virtual ~IPrinter() = default;
  /// An empty text prints no page.
  virtual void Print(const String& text) = 0;
};
extern std::shared_ptr<IPrinter> gPrinter;

class IHelpViewer {
public:
  virtual ~IHelpViewer() = default;
  /// A help file that does not exist raises `FileNotFound`.
  virtual void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) = 0;
};
extern std::shared_ptr<IHelpViewer> gHelpViewer;

} // namespace portico
