#pragma once

#include "memory/EventLoop.h"
#include "memory/SettingsStore.h"
#include "memory/forms/CommonDialog.h"
#include "memory/forms/InstrumentList.h"
#include "memory/forms/Keyboard.h"
#include "memory/forms/MessageBox.h"
#include "memory/forms/Registry.h"
#include "support/FrameworkTest.h"

namespace portico::test {

/// The platform of a window in memory, for as long as it lives. At its end nothing unexpected must have come up, and
/// all that was expected must have come.
class WindowPlatform {
public:
  WindowPlatform() {
    gEventLoop = Loop;
    gSettingsStore = Settings;
    gForms = Screen;
    gMessageBox = MessageBox;
    gClipboard = Clipboard;
    gKeyboard = Keyboard;
    gPrinter = Printer;
    gHelpViewer = HelpViewer;
    gCommonDialog = CommonDialog;
    gInstrumentList = InstrumentList;
    gRegistry = Registry;
  }
  WindowPlatform(const WindowPlatform&) = delete;
  WindowPlatform& operator=(const WindowPlatform&) = delete;
  ~WindowPlatform() {
    for (const auto& name : Screen->Unexpected()) ADD_FAILURE() << "unexpected modal form: " << ToUtf8(name);
    for (const auto& name : Screen->Unplayed()) ADD_FAILURE() << "not shown: " << ToUtf8(name);
    for (const auto& call : MessageBox->Unexpected()) ADD_FAILURE() << "unexpected message: " << ToUtf8(call.Prompt);
    EXPECT_EQ(MessageBox->AnswersLeft(), 0U) << "a message box that was expected has not come";
    EXPECT_TRUE(CommonDialog->Unexpected().empty()) << "unexpected common dialog";
    EXPECT_EQ(CommonDialog->AnswersLeft(), 0U) << "a common dialog that was expected has not come";
    gRegistry.reset();
    gInstrumentList.reset();
    gCommonDialog = {};
    gHelpViewer.reset();
    gPrinter.reset();
    gKeyboard.reset();
    gClipboard.reset();
    gMessageBox.reset();
    gForms.reset();
    gSettingsStore.reset();
    gEventLoop.reset();
  }

  memory::ManualClock Time;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Time);
  std::shared_ptr<memory::SettingsStore> Settings = std::make_shared<memory::SettingsStore>();
  std::shared_ptr<memory::Screen> Screen = std::make_shared<memory::Screen>(IsQuitting());
  std::shared_ptr<memory::MessageBox> MessageBox = std::make_shared<memory::MessageBox>(IsQuitting());
  std::shared_ptr<memory::Clipboard> Clipboard = std::make_shared<memory::Clipboard>();
  std::shared_ptr<memory::Keyboard> Keyboard = std::make_shared<memory::Keyboard>(Screen, Clipboard);
  std::shared_ptr<memory::Printer> Printer = std::make_shared<memory::Printer>();
  std::shared_ptr<memory::HelpViewer> HelpViewer = std::make_shared<memory::HelpViewer>();
  Ref<memory::CommonDialog> CommonDialog = New<memory::CommonDialog>(IsQuitting());
  std::shared_ptr<memory::InstrumentList> InstrumentList = std::make_shared<memory::InstrumentList>();
  std::shared_ptr<memory::Registry> Registry = std::make_shared<memory::Registry>();

private:
  std::function<bool()> IsQuitting() const {
    return [loop = Loop] { return loop->IsQuitting(); };
  }
};

/// Clean error state, and the platform of a window.
class WindowTest : public FrameworkTest {
protected:
  /// A control of the form, by its name and kind.
  template <class Control>
  static Control& Find(const Ref<IForm>& form, StringView name) {
    return FindControl<Control>(*form, name);
  }

  WindowPlatform Platform;
};

} // namespace portico::test
