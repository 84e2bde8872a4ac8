#pragma once

#include "application/Startup.h"
#include "framework/errors/Quit.h"
#include "framework/shared/ICommand.h"
#include "memory/EventLoop.h"
#include "memory/SettingsStore.h"
#include "memory/forms/Areas.h"
#include "memory/forms/MessageBox.h"
#include "memory/forms/RichTextControl.h"
#include "memory/forms/Screen.h"
#include "support/Labels.h"
#include "support/doubles/PipelineDriver.h"
#include "support/fixtures/FrameworkTest.h"
#include "ui/DesktopDoubles.h"
#include "ui/main/MainDoubles.h"
#include "ui/main/frmMain.h"

#include <stdexcept>

namespace portico::test {

/// The main window on the platform in memory, with the real factory. The commands of the user are substituted by ones
/// that only write down that they ran, unless a test takes the real ones.
class MainWindowFixture : public FrameworkTest {
protected:
  MainWindowFixture() {
    HuntERR::Reset();
    gEventLoop = Loop;
    gSettingsStore = Store;
    gForms = Screen;
    gMessageBox = Box;
    gClipboard = Clipboard;
    gHelpViewer = HelpViewer;
    gCommonDialog = CommonDialog;
    gInstrumentDriver = Driver;
    Box->AnswerAllWithOK();
  }
  ~MainWindowFixture() override {
    Loop->FinishQuit();
    LetGo();
    gInstrumentDriver.reset();
    gCommonDialog = nullptr;
    gHelpViewer.reset();
    gClipboard.reset();
    gMessageBox.reset();
    gForms.reset();
    gSettingsStore.reset();
    gEventLoop.reset();
  }

  /// Runs the program's entry. `Quit` ends it as it ends the program: with what the bottom of the stack does.
  void Start(const String& commandLine = {});
  /// Runs something that ends the program; true if it did.
  static bool Quits(const std::function<void()>& body) {
    try {
      body();
      return false;
    } catch (const Quit&) {
      return true;
    }
  }
  /// What the bottom of the stack does when `Quit` has come down to it.
  void End() {
    Loop->FinishQuit();
    Window->Form_Unload();
    Window->Form_Terminate();
  }
  void LetGo() {
    Window = nullptr;
    modAppGlobals::ReleaseMainForm();
    gConfiguration = nullptr;
    modAppGlobals::ReleaseObjectFactory();
  }

  /// From now on the factory makes a command that does this.
  void Offer(const String& specification, const std::function<void(const Params&)>& execute);
  void OfferFailure(const String& specification) {
    Offer(specification, [](const Params&) { Fail(); });
  }
  void OfferSpies();
  [[noreturn]] static void Fail() { HuntERR::Raise(ErrorNumber::CannotCarryOut, u"Somewhere", u"It broke."); }

  IForm& Form() { return Window->Form(); }
  memory::Form& MemoryForm() { return dynamic_cast<memory::Form&>(Window->Form()); }
  memory::MenuItem& Menu(StringView name) { return FindControl<memory::MenuItem>(Form(), name); }
  memory::ToolButton& Button(StringView key) { return FindControl<memory::ToolBar>(Form(), ToolBarName).Buttons(key); }
  memory::RichTextControl& Future() { return FindControl<memory::RichTextControl>(Form(), u"txtFuture"); }
  memory::RichTextControl& Past() { return FindControl<memory::RichTextControl>(Form(), u"txtPast"); }
  IStatusPanel& Panel(std::int32_t index) { return FindControl<IStatusBar>(Form(), StatusBarName).Panels(index); }
  /// The click of an item, enabled or not.
  void Click(StringView name) {
    const Event<> click = Menu(name).Click();
    click();
  }
  /// The click of a button, enabled or not; a button of check style has this value then.
  void ClickButton(StringView key, std::int32_t value = 0);

  /// The configuration's server, whose writes tell the window nothing.
  static void SetItem(StringView name, StringView value) {
    Create<IConfiguration>(u"Configuration")->ItemValue(name, value);
  }
  static std::string Item(StringView name) { return ToUtf8(Create<IConfiguration>(u"Configuration")->ItemValue(name)); }
  /// An instrument is open, as far as the window can tell.
  void SetOpened(bool opened = true) {
    SetItem(u"InstrumentOpened", opened ? u"True" : u"False");
    SetItem(u"InstrumentName", opened ? u"DMM" : u"");
    Window->UpdateUI({}, {});
  }
  std::string Setting(const String& key, const String& section = u"frmMain") {
    return ToUtf8(Store->GetSetting(u"Tolvane Portico", section, key, u"(none)"));
  }
  void Save(const String& key, const String& value) { Store->SaveSetting(u"Tolvane Portico", u"frmMain", key, value); }

  /// One box has come up: this sentence, a line end and the report, whose trail ends with the label.
  void ExpectOneBox(StringView sentence, StringView label, StringView text = u"It broke.");
  void ExpectNoBox() {
    EXPECT_EQ(Box->Calls().size(), m_boxesSeen);
    if (Box->Calls().size() > m_boxesSeen) ADD_FAILURE() << ToUtf8(Box->Calls().back().Prompt);
  }

  bool HasParser = true;
  bool HasHelp = true;
  bool HasSpies = true;
  std::function<void()> OnFactory;
  std::vector<std::string> Commands;
  Params LastParameters;
  std::int32_t PointerInside = 0;
  std::function<void(const std::string&)> OnCommand;
  std::vector<String> LastTrail;

  TestClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  std::shared_ptr<memory::SettingsStore> Store = std::make_shared<memory::SettingsStore>();
  std::shared_ptr<memory::Screen> Screen = std::make_shared<memory::Screen>([this] { return Loop->IsQuitting(); });
  std::shared_ptr<memory::MessageBox> Box = std::make_shared<memory::MessageBox>([this] { return Loop->IsQuitting(); });
  std::shared_ptr<ClipboardDouble> Clipboard = std::make_shared<ClipboardDouble>();
  std::shared_ptr<HelpViewerDouble> HelpViewer = std::make_shared<HelpViewerDouble>();
  Journal Dialogs;
  Ref<CommonDialogDouble> CommonDialog = New<CommonDialogDouble>(Dialogs);
  support::Journal Wire;
  std::shared_ptr<support::PipelineDriver> Driver = std::make_shared<support::PipelineDriver>(Wire);
  Ref<frmMain> Window;

private:
  std::size_t m_boxesSeen = 0;
};

} // namespace portico::test
