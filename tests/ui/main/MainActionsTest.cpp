#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

constexpr StringView NoServer = u"The configuration server is required for this operation, but it does not exist.";
constexpr StringView FocusSentence = u"An error occured while changing focus.";

class MainActionsTest : public MainWindowFixture {
protected:
  MainActionsTest() { Start(); }
  static void Fire(const Event<>& event) { event(); }
};

class MainWithoutHelpTest : public MainWindowFixture {
protected:
  MainWithoutHelpTest() {
    HasHelp = false;
    Start();
  }
};

// Clearing.

TEST_F(MainActionsTest, ClearHistoryEmptiesTheHistory) {
  for (const StringView item : {u"mnuClearHistory", u"mnuPopupHistoryClearHistory"}) {
    Past().Text(u"one\r\n");
    Future().Text(u"two\r\n");
    Click(item);
    EXPECT_EQ(ToUtf8(Past().Text()), "");
    EXPECT_EQ(ToUtf8(Future().Text()), "two\r\n");
  }
  ExpectNoBox();
}

TEST_F(MainActionsTest, ClearHistoryHasAFailureWithALabelOfItsOwnInThePopup) {
  Past().Text(u"one\r\n");
  Past().Change().Connect([] { Fail(); });
  Click(u"mnuClearHistory");
  ExpectOneBox(u"Can't clear history.", u"frmMain.mnuClearHistory_Click");
  try {
    Past().Text(u"one\r\n");
  } catch (const Error&) { // the handler above
  }
  Click(u"mnuPopupHistoryClearHistory");
  ExpectOneBox(u"Can't clear history.", u"mnuClearHistory_Click");
}

TEST_F(MainActionsTest, ClearCommandsEmptiesTheCommandWindowAndTypingIsPlain) {
  SetOpened();
  for (const StringView item : {u"mnuEditClearCmds", u"mnuPopupCMDClearCommand"}) {
    Past().Text(u"one\r\n");
    Future().Text(u"two\r\n");
    Future().SelFormat({.SelBold = true, .SelCharOffset = 20, .SelColor = 0xFF, .SelItalic = true});
    Click(item);
    EXPECT_EQ(ToUtf8(Future().Text()), "");
    EXPECT_EQ(ToUtf8(Past().Text()), "one\r\n");
    const SelectionFormat format = Future().SelFormat();
    EXPECT_EQ(format.SelBold, false);
    EXPECT_EQ(format.SelItalic, false);
    EXPECT_EQ(format.SelColor, 0);
    EXPECT_EQ(format.SelCharOffset, 0);
  }
  ExpectNoBox();
}

TEST_F(MainActionsTest, ClearCommandsResetsTheTypingFormatOfAnEmptyWindowToo) {
  SetOpened();
  Future().Text(u"");
  Future().SelFormat({.SelBold = true, .SelColor = 0xFF});
  Click(u"mnuEditClearCmds");
  EXPECT_EQ(Future().SelFormat().SelBold, false);
  EXPECT_EQ(Future().SelFormat().SelColor, 0);
}

TEST_F(MainActionsTest, ClearCommandsHasFailuresWithLabelsWithoutAClass) {
  SetOpened();
  Offer(u"DataContainer", [](const Params&) {}); // which is none
  Click(u"mnuEditClearCmds");
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(Box->Calls()[0].Prompt.find(u"Can't clear history.\r\n"), 0U);
  EXPECT_EQ(ToUtf8(CallStack(Box->Calls()[0].Prompt).back()), "mnuClearHistory_Click()");
  Future().Text(u"*IDN?\r\n");
  Click(u"mnuPopupCMDClearCommand");
  ASSERT_EQ(Box->Calls().size(), 2U);
  EXPECT_EQ(Box->Calls()[1].Prompt.find(u"Can't clear commands.\r\n"), 0U);
  EXPECT_EQ(ToUtf8(CallStack(Box->Calls()[1].Prompt).back()), "mnuPopupCMDClearCommand_Click()");
}

// Titles.

TEST_F(MainActionsTest, TitlesThatDropDownUpdateTheWindow) {
  for (const StringView title : {u"mnuEdit", u"mnuCommand", u"mnuPopupCMD", u"mnuPopupHistory"}) {
    SetItem(u"LogFileName", title);
    Click(title);
    EXPECT_EQ(ToUtf8(Form().Caption()), ToUtf8(title) + " - Tolvane Portico");
  }
}

TEST_F(MainActionsTest, TheFileAndExecutionMenusShowTheStateOfTheLastUpdate) {
  SetItem(u"LogFileName", u"first.log");
  for (const StringView title : {u"mnuFile", u"mnuExecution", u"mnuTools", u"mnuHelp", u"mnuMode"}) Click(title);
  EXPECT_EQ(ToUtf8(Form().Caption()), "Tolvane Portico");
  EXPECT_TRUE(Menu(u"mnuFileNewLog").Enabled());
}

TEST_F(MainActionsTest, UpdatesNeedTheConfiguration) {
  gConfiguration = nullptr;
  const ErrorRecord error = Raised([this] { Window->UpdateUI(u"Logging", u"On"); });
  ExpectError(error, 424, NoServer);
  ExpectTrail(error, {u"frmMain.UpdateUI()"});
}

TEST_F(MainActionsTest, TitlesShowTheirFailure) {
  gConfiguration = nullptr;
  for (const StringView title : {u"mnuEdit", u"mnuCommand", u"mnuPopupCMD", u"mnuPopupHistory"}) {
    Click(title);
    ExpectOneBox(FocusSentence, u"frmMain." + String(title) + u"_Click", NoServer);
  }
}

// Protocol.

TEST_F(MainActionsTest, TheProtocolMenuSwitchesAndOverrulesTheUpdate) {
  Click(u"mnuDDC");
  EXPECT_EQ(Item(u"ProtocolName"), "Other");
  EXPECT_EQ(Item(u"AutoReadAfterQueryMode"), "Off") << "the options of the protocol are in effect";
  EXPECT_EQ(ToUtf8(Panel(2).Text()), "Other");
  EXPECT_TRUE(Menu(u"mnuDDC").Checked());
  EXPECT_FALSE(Menu(u"mnuSCPI").Checked());
  EXPECT_TRUE(Menu(u"mnuRead").Enabled()) << "although nothing is open";
  EXPECT_FALSE(Button(u"Read").Visible());
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuRead").Enabled()) << "until the next update";

  SetOpened();
  EXPECT_TRUE(Menu(u"mnuRead").Enabled());
  Click(u"mnuSCPI");
  EXPECT_EQ(Item(u"ProtocolName"), "SCPI");
  EXPECT_FALSE(Menu(u"mnuRead").Enabled());
  EXPECT_TRUE(Menu(u"mnuSCPI").Checked());
  EXPECT_FALSE(Menu(u"mnuDDC").Checked());
  EXPECT_TRUE(Menu(u"mnuOPC").Enabled());
  ExpectNoBox();
}

TEST_F(MainActionsTest, TheReadButtonShowsOnlyForAnOpenInstrumentOfTheOtherProtocol) {
  Click(u"mnuDDC");
  EXPECT_FALSE(Button(u"Read").Visible());
  SetOpened();
  EXPECT_TRUE(Button(u"Read").Visible());
  EXPECT_TRUE(Button(u"Read").Enabled());
  EXPECT_EQ(ToUtf8(Button(u"Read").ToolTipText()), "Read Data");
  SetOpened(false);
  EXPECT_FALSE(Button(u"Read").Visible());
  EXPECT_FALSE(Button(u"Read").Enabled());
}

TEST_F(MainActionsTest, TheProtocolMenuNeedsAConfiguration) {
  gConfiguration = nullptr;
  Click(u"mnuSCPI");
  ExpectOneBox(u"Can't use SCPI protocol.", u"frmMain.mnuSCPI_Click",
               u"This operation requires a configuration client.");
  EXPECT_NE(Box->Calls().back().Prompt.find(u"  Number: 424 = "), String::npos);
  Click(u"mnuDDC");
  ExpectOneBox(u"Can't use SCPI protocol.", u"frmMain.mnuSCPI_Click",
               u"This operation requires a configuration client.");
}

// Help.

TEST_F(MainActionsTest, HelpTopicsOpenTheHelpFinder) {
  Click(u"mnuHelpTopics");
  EXPECT_EQ(HelpViewer->Calls, std::vector<std::string>{"TVPort.hlp 11 ''"});
  ExpectNoBox();
}

TEST_F(MainActionsTest, F1OpensHelpAsTheMenuDoes) {
  EXPECT_TRUE(MemoryForm().PressKey(F1Key));
  EXPECT_EQ(HelpViewer->Calls, std::vector<std::string>{"TVPort.hlp 11 ''"});
  for (const std::int32_t state : {ShiftState, CtrlState, AltState}) {
    MemoryForm().PressKey(F1Key, state);
  }
  MemoryForm().PressKey(F1Key + 1);
  EXPECT_EQ(HelpViewer->Calls.size(), 1U);
  ExpectNoBox();
}

TEST_F(MainActionsTest, SearchingForHelpTakesAnotherCommand) {
  Window->mnuHelpSearchForHelpOn_Click();
  EXPECT_EQ(HelpViewer->Calls, std::vector<std::string>{"TVPort.hlp 261 ''"});
}

TEST_F(MainWithoutHelpTest, AnInformationSaysSo) {
  SetItem(u"LogFileName", u"first.log");
  Window->UpdateUI({}, {});
  Click(u"mnuHelpTopics");
  Window->mnuHelpSearchForHelpOn_Click();
  using Call = memory::MessageBox::Call;
  const std::vector<Call> expected = {
      {u"Unable to display help contents. There is no Help associated with this project.",
       u"first.log - Tolvane Portico", MessageBoxButtons::OKOnly, MessageBoxIcon::Information},
      {u"Unable to search for help on a topic. There is no Help associated with this project.",
       u"first.log - Tolvane Portico", MessageBoxButtons::OKOnly, MessageBoxIcon::Information}};
  EXPECT_EQ(Box->Calls(), expected);
  EXPECT_TRUE(HelpViewer->Calls.empty());
}

TEST_F(MainActionsTest, TheErrorOfTheHelpViewerGoesToAPlainBox) {
  HelpViewer->OnHelp = [] { HuntERR::Raise(53, u"Somewhere", u"There is no such file."); };
  Click(u"mnuHelpTopics");
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(ToUtf8(Box->Calls()[0].Prompt), "There is no such file.");
  EXPECT_EQ(Box->Calls()[0].Icon, MessageBoxIcon::None);
  EXPECT_EQ(Box->Calls()[0].Buttons, MessageBoxButtons::OKOnly);
}

TEST_F(MainWithoutHelpTest, HelpShowsItsFailure) {
  bool isFirst = true;
  Box->OnShow = [&](const memory::MessageBox::Call&) {
    if (std::exchange(isFirst, !isFirst)) Fail();
  };
  Click(u"mnuHelpTopics");
  ASSERT_EQ(Box->Calls().size(), 2U);
  EXPECT_EQ(Box->Calls()[1].Prompt.find(u"Can't display help contents.\r\n"), 0U);
  EXPECT_TRUE(Bears(CallStack(Box->Calls()[1].Prompt).back(), u"frmMain.mnuHelpContents_Click"));
  Window->mnuHelpSearchForHelpOn_Click();
  ASSERT_EQ(Box->Calls().size(), 4U);
  EXPECT_EQ(Box->Calls()[3].Prompt.find(u"Can't search for help on a topic.\r\n"), 0U);
}

TEST_F(MainActionsTest, AboutIsModal) {
  Screen->OnShowModal(u"frmAbout", [this](memory::Form& form) {
    EXPECT_FALSE(MemoryForm().TakesInput());
    EXPECT_EQ(ToUtf8(form.Caption()), "About Tolvane Portico");
    form.Hide();
  });
  Click(u"mnuHelpAbout");
  EXPECT_TRUE(Screen->Unplayed().empty());
  ExpectNoBox();
  EXPECT_TRUE(MemoryForm().TakesInput());
}

TEST_F(MainActionsTest, AboutShowsItsFailure) {
  Screen->OnShowModal(u"frmAbout", [](memory::Form&) { Fail(); });
  Click(u"mnuHelpAbout");
  ExpectOneBox(u"Can't display About box.", u"frmMain.mnuHelpAbout_Click");
}

// A dialog that no item leads to.

TEST_F(MainActionsTest, TheFileDialogOffersAllFiles) {
  Window->mnuFileOpen_Click();
  EXPECT_EQ(Dialogs, Journal{"ShowOpen 'Open'"});
  EXPECT_EQ(ToUtf8(CommonDialog->Shown.Filter), "All Files (*.*)|*.*");
  EXPECT_FALSE(CommonDialog->Shown.CancelError);
}

TEST_F(MainActionsTest, TheFileDialogShowsItsFailure) {
  CommonDialog->OnCall = [](const std::string&) { Fail(); };
  Window->mnuFileOpen_Click();
  ExpectOneBox(u"Can't open file.", u"frmMain.mnuFileOpen_Click");
}

TEST_F(MainActionsTest, ExitShowsItsFailure) {
  const auto patient = std::make_shared<memory::MessageBox>(); // waits for its answer although the program ends
  patient->AnswerAllWithOK();
  gMessageBox = patient;
  Window->txtFuture()->SetFocus();
  Future().LostFocus().Connect([] { Fail(); });
  Click(u"mnuFileExit");
  ASSERT_EQ(patient->Calls().size(), 1U);
  EXPECT_EQ(patient->Calls()[0].Prompt.find(u"Can't exit application.\r\nIt broke."), 0U);
  EXPECT_TRUE(Bears(CallStack(patient->Calls()[0].Prompt).back(), u"frmMain.mnuFileExit_Click"));
}

// The logger.

class LoggerDouble final : public ISubscriber {
public:
  StringView ClassName() const override { return u"LoggerDouble"; }
  void Update(const Ref<IObject>&) override { ++Updates; }
  int Updates = 0;
};

TEST_F(MainActionsTest, ALoggerIsSubscribedAndOneThatIsReplacedStaysSo) {
  const auto first = New<LoggerDouble>();
  const auto second = New<LoggerDouble>();
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent");
  const auto notify = [&] { agent->Notify(first); }; // whatever it is
  EXPECT_FALSE(Window->Logger());
  Window->Logger(first);
  EXPECT_TRUE(IsSameObject(Window->Logger(), first));
  notify();
  EXPECT_EQ(first->Updates, 1);
  Window->Logger(second);
  notify();
  EXPECT_EQ(first->Updates, 2);
  EXPECT_EQ(second->Updates, 1);
  Window->Logger(nullptr);
  EXPECT_FALSE(Window->Logger());
  notify();
  EXPECT_EQ(first->Updates, 3);
  EXPECT_EQ(second->Updates, 1);
  Window->Logger(nullptr); // there is none to unsubscribe
  EXPECT_FALSE(Window->Logger());
}

} // namespace
} // namespace portico::test
