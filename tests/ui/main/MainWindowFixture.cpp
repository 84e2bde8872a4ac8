#include "ui/main/MainWindowFixture.h"

#include "support/doubles/Objects.h"

namespace portico::test {

void MainWindowFixture::Start(const String& commandLine) {
  const auto makeDocument = [this] {
    if (!HasParser) throw std::runtime_error("no parser");
  };
  const auto makeWindow = [this](const std::function<void()>& makeFactory) {
    const std::function<void()> make = [this, makeFactory] {
      makeFactory();
      if (OnFactory) OnFactory();
      if (HasSpies) OfferSpies();
    };
    Window = HasHelp ? New<frmMain>(make) : New<frmMain>(make, StringView());
    return modAppGlobals::MainForm{Window, Window, Window};
  };
  modAppGlobals::Main({makeDocument, makeWindow, commandLine});
}

void MainWindowFixture::OfferSpies() {
  for (const char16_t* name : {u"OpenInstrument",
                               u"CloseInstrument",
                               u"ToggleLogFile",
                               u"ViewLogFile",
                               u"ToggleLogging",
                               u"Print",
                               u"PrintSetup",
                               u"Cut",
                               u"Copy",
                               u"Paste",
                               u"Copyto",
                               u"Pastefrom",
                               u"ReadInstrumentData",
                               u"WaitforOPC",
                               u"QueryStatus",
                               u"ConfigOptions",
                               u"Find",
                               u"FindNext",
                               u"FindPrevious",
                               u"ZoomIn",
                               u"ZoomOut",
                               u"ActualSize",
                               u"StopAtErrors",
                               u"SetTimeout",
                               u"ClearDevice",
                               u"GoToLocal",
                               u"SaveAnswer",
                               u"FetchAnswer",
                               u"NextError",
                               u"PreviousError",
                               u"ListErrors",
                               u"ShowPlot",
                               u"ShowPicture",
                               u"EarlierLine",
                               u"LaterLine",
                               u"PutBackLastRun",
                               u"KeepSentLines",
                               u"ForgetSentLines",
                               u"Repeat",
                               u"Complete",
                               u"AskForCommands",
                               u"ShowTimes",
                               u"SearchSentLines"}) {
    Offer(name, [this, name](const Params& parameters) {
      Commands.push_back(ToUtf8(name));
      LastParameters = parameters;
      PointerInside = Window->MousePointer();
      if (OnCommand) OnCommand(ToUtf8(name));
    });
  }
}

void MainWindowFixture::Offer(const String& specification, const std::function<void(const Params&)>& execute) {
  const Ref<ICreator> creator = New<CreatorOf>(specification, [execute](const Params& parameters) -> Ref<IObject> {
    return New<CommandOf>([execute, parameters] { execute(parameters); });
  });
  try {
    gObjectFactory->Remove(creator);
  } catch (const Error&) { // it is a new one
    HuntERR::Reset();
  }
  gObjectFactory->Add(creator);
}

void MainWindowFixture::ClickButton(StringView key, std::int32_t value) {
  auto& bar = FindControl<memory::ToolBar>(Form(), ToolBarName);
  auto& button = bar.Buttons(key);
  button.Value(value);
  const Event<IToolButton&> click = bar.ButtonClick();
  click(button);
}

void MainWindowFixture::ExpectOneBox(StringView sentence, StringView label, StringView text) {
  ASSERT_EQ(Box->Calls().size(), m_boxesSeen + 1) << ToUtf8(sentence);
  const memory::MessageBox::Call& call = Box->Calls().back();
  m_boxesSeen = Box->Calls().size();
  const String head = String(sentence).append(NewLine);
  EXPECT_EQ(ToUtf8(call.Prompt.substr(0, head.size())), ToUtf8(head));
  EXPECT_EQ(ToUtf8(call.Title), "Tolvane Portico");
  EXPECT_EQ(call.Buttons, MessageBoxButtons::OKOnly);
  EXPECT_EQ(call.Icon, MessageBoxIcon::None);
  const String report = call.Prompt.substr(std::min(head.size(), call.Prompt.size()));
  EXPECT_EQ(ToUtf8(FirstDescription(report)), ToUtf8(text));
  const auto calls = CallStack(report);
  ASSERT_FALSE(calls.empty()) << ToUtf8(report);
  EXPECT_TRUE(Bears(calls.back(), label)) << ToUtf8(calls.back()) << "\ninstead of\n" << ToUtf8(label);
  LastTrail = calls;
}

MainWindowFixture::MainWindowFixture() {
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

MainWindowFixture::~MainWindowFixture() {
  Loop->FinishQuit();
  LetGo();
  LastParameters = {}; // which may hold what has a timer of the loop
  gInstrumentDriver.reset();
  gCommonDialog = nullptr;
  gHelpViewer.reset();
  gClipboard.reset();
  gMessageBox.reset();
  gForms.reset();
  gSettingsStore.reset();
  gEventLoop.reset();
}

bool MainWindowFixture::Quits(const std::function<void()>& body) {
  try {
    body();
    return false;
  } catch (const Quit&) {
    return true;
  }
}

void MainWindowFixture::End() {
  Loop->FinishQuit();
  Window->Form_Unload();
  Window->Form_Terminate();
}

void MainWindowFixture::LetGo() {
  Window = nullptr;
  modAppGlobals::ReleaseMainForm();
  gConfiguration = nullptr;
  modAppGlobals::ReleaseObjectFactory();
}

void MainWindowFixture::OfferFailure(const String& specification) {
  Offer(specification, [](const Params&) { Fail(); });
}

void MainWindowFixture::Fail() { HuntERR::Raise(ErrorNumber::CannotCarryOut, u"Somewhere", u"It broke."); }

IForm& MainWindowFixture::Form() { return Window->Form(); }

memory::Form& MainWindowFixture::MemoryForm() { return dynamic_cast<memory::Form&>(Window->Form()); }

memory::MenuItem& MainWindowFixture::Menu(StringView name) { return FindControl<memory::MenuItem>(Form(), name); }

memory::ToolButton& MainWindowFixture::Button(StringView key) {
  return FindControl<memory::ToolBar>(Form(), ToolBarName).Buttons(key);
}

memory::RichTextControl& MainWindowFixture::Future() {
  return FindControl<memory::RichTextControl>(Form(), u"txtFuture");
}

memory::RichTextControl& MainWindowFixture::Past() { return FindControl<memory::RichTextControl>(Form(), u"txtPast"); }

IStatusPanel& MainWindowFixture::Panel(std::int32_t index) {
  return FindControl<IStatusBar>(Form(), StatusBarName).Panels(index);
}

void MainWindowFixture::Click(StringView name) {
  const Event<> click = Menu(name).Click();
  click();
}

void MainWindowFixture::SetItem(StringView name, StringView value) {
  Create<IConfiguration>(u"Configuration")->ItemValue(name, value);
}

std::string MainWindowFixture::Item(StringView name) {
  return ToUtf8(Create<IConfiguration>(u"Configuration")->ItemValue(name));
}

void MainWindowFixture::SetOpened(bool opened) {
  SetItem(u"InstrumentOpened", opened ? u"True" : u"False");
  SetItem(u"InstrumentName", opened ? u"DMM" : u"");
  Window->UpdateUI({}, {});
}

std::string MainWindowFixture::Setting(const String& key, const String& section) {
  return ToUtf8(Store->GetSetting(u"Tolvane Portico", section, key, u"(none)"));
}

void MainWindowFixture::Save(const String& key, const String& value) {
  Store->SaveSetting(u"Tolvane Portico", u"frmMain", key, value);
}

void MainWindowFixture::ExpectNoBox() {
  EXPECT_EQ(Box->Calls().size(), m_boxesSeen);
  if (Box->Calls().size() > m_boxesSeen) ADD_FAILURE() << ToUtf8(Box->Calls().back().Prompt);
}

} // namespace portico::test
