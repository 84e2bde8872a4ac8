#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

constexpr StringView ExecutionLabel = u"modAppGlobals.ExecutionEventHandler(cmdName, Params)";
constexpr StringView EventLabel = u"modAppGlobals.EventHandler(cmdName, Params)";

struct CommandRow {
  StringView Item;
  StringView Command;
  StringView Sentence;
  StringView Label;
  std::size_t Parameters = 0;
};

void PrintTo(const CommandRow& row, std::ostream* out) { *out << ToUtf8(row.Item); }

constexpr CommandRow ItemCommands[] = {
    {u"mnuFileOpenInstrument", u"OpenInstrument", u"Can't open instrument.", u"frmMain.mnuFileOpenInstrument_Click"},
    {u"mnuFileCloseInstrument", u"CloseInstrument", u"Can't open instrument.", u"frmMain.mnuFileCloseInstrument_Click"},
    {u"mnuFileNewLog", u"ToggleLogFile", u"Can't open new log file.", u"frmMain.mnuFileNewLog_Click"},
    {u"mnuFileViewLog", u"ViewLogFile", u"Can't view a log file.", u"frmMain.mnuFileViewLog_Click"},
    {u"mnuFilePause", u"ToggleLogging", u"Can't open new log file.", u"frmMain.mnuFileNewLog_Click"},
    {u"mnuCloseLog", u"ToggleLogFile", u"Can't close log file.", u"frmMain.mnuCloseLog_Click"},
    {u"mnuFilePrint", u"Print", u"Can't perform print operation.", u"frmMain.mnuFilePrint_Click", 2},
    {u"mnuFilePageSetup", u"PrintSetup", u"Can't setup page.", u"frmMain.mnuFilePageSetup_Click", 1},
    {u"mnuEditCut", u"Cut", u"Can't perform cut operation.", u"frmMain.mnuEditCut_Click"},
    {u"mnuEditCopy", u"Copy", u"Can't perform copy operation.", u"frmMain.mnuEditCopy_Click"},
    {u"mnuEditPaste", u"Paste", u"Can't perform paste operation.", u"frmMain.mnuEditPaste_Click"},
    {u"mnuCopyTo", u"Copyto", u"Can't copy to.", u"frmMain.mnuCopyTo_Click"},
    {u"mnuPasteFrom", u"Pastefrom", u"Can't paste from a file.", u"frmMain.mnuPasteFrom_Click"},
    {u"mnuRead", u"ReadInstrumentData", u"Can't read instrument data.", u"frmMain.mnuRead_Click"},
    {u"mnuOPC", u"WaitforOPC", u"Can't wait for OPC.", u"frmMain.mnuOPC_Click"},
    {u"mnuGetStatus", u"QueryStatus", u"Can't get instrument status.", u"frmMain.mnuGetStatus_Click"},
    {u"mnuOptions", u"ConfigOptions", u"Can't open options dialog.", u"frmMain.mnuOptions_Click"},
    {u"mnuFind", u"Find", u"Can't look for a text.", u"frmMain.mnuFind_Click"},
    {u"mnuFindNext", u"FindNext", u"Can't look for a text.", u"frmMain.mnuFindNext_Click"},
    {u"mnuFindPrevious", u"FindPrevious", u"Can't look for a text.", u"frmMain.mnuFindPrevious_Click"},
    {u"mnuZoomIn", u"ZoomIn", u"Can't change the size of the text.", u"frmMain.mnuZoomIn_Click"},
    {u"mnuZoomOut", u"ZoomOut", u"Can't change the size of the text.", u"frmMain.mnuZoomOut_Click"},
    {u"mnuActualSize", u"ActualSize", u"Can't change the size of the text.", u"frmMain.mnuActualSize_Click"},
    {u"mnuNextError", u"NextError", u"Can't go to an error.", u"frmMain.mnuNextError_Click", 2},
    {u"mnuPreviousError", u"PreviousError", u"Can't go to an error.", u"frmMain.mnuPreviousError_Click", 2},
    {u"mnuErrors", u"ListErrors", u"Can't list the errors.", u"frmMain.mnuErrors_Click", 2},
    {u"mnuPlot", u"ShowPlot", u"Can't draw the numbers.", u"frmMain.mnuPlot_Click", 2},
    {u"mnuShowPicture", u"ShowPicture", u"Can't show the picture.", u"frmMain.mnuShowPicture_Click", 2},
    {u"mnuStopAtErrors", u"StopAtErrors", u"Can't change when a run stops.", u"frmMain.mnuStopAtErrors_Click"},
    {u"mnuSaveAnswer", u"SaveAnswer", u"Can't save the answer.", u"frmMain.mnuSaveAnswer_Click", 1},
    {u"mnuFetchAnswer", u"FetchAnswer", u"Can't fetch an answer.", u"frmMain.mnuFetchAnswer_Click"},
    {u"mnuTimeout", u"SetTimeout", u"Can't set the time-out.", u"frmMain.mnuTimeout_Click"},
    {u"mnuClearDevice", u"ClearDevice", u"Can't clear the device.", u"frmMain.mnuClearDevice_Click"},
    {u"mnuGoToLocal", u"GoToLocal", u"Can't give the front panel back.", u"frmMain.mnuGoToLocal_Click"},
    {u"mnuComplete", u"Complete", u"Can't complete.", u"frmMain.mnuComplete_Click", 1},
    {u"mnuAskForCommands", u"AskForCommands", u"Can't ask for the commands.", u"frmMain.mnuAskForCommands_Click"},
    {u"mnuEarlierLine", u"EarlierLine", u"Can't bring a line back.", u"frmMain.mnuEarlierLine_Click"},
    {u"mnuLaterLine", u"LaterLine", u"Can't bring a line back.", u"frmMain.mnuLaterLine_Click"},
    {u"mnuSearchSentLines", u"SearchSentLines", u"Can't bring a line back.", u"frmMain.mnuSearchSentLines_Click"},
    {u"mnuPutBackLastRun", u"PutBackLastRun", u"Can't put the lines back.", u"frmMain.mnuPutBackLastRun_Click"},
    {u"mnuKeepSentLines", u"KeepSentLines", u"Can't change whether sent lines are kept.",
     u"frmMain.mnuKeepSentLines_Click"},
    {u"mnuForgetSentLines", u"ForgetSentLines", u"Can't forget the sent lines.", u"frmMain.mnuForgetSentLines_Click"},
    {u"mnuTiming", u"ShowTimes", u"Can't show the times.", u"frmMain.mnuTiming_Click"},
    {u"mnuRepeat", u"Repeat", u"Can't run instructions.", u"frmMain.mnuRepeat_Click", 1},
    {u"mnuPopupCmdCut", u"Cut", u"Can't perform cut operation.", u"frmMain.mnuEditCut_Click"},
    {u"mnuPopupCmdCopy", u"Copy", u"Can't perform copy operation.", u"frmMain.mnuEditCopy_Click"},
    {u"mnuPopupCmdPaste", u"Paste", u"Can't perform paste operation.", u"frmMain.mnuEditPaste_Click"},
    {u"mnuPopupHistoryCut", u"Cut", u"Can't perform cut operation.", u"frmMain.mnuEditCut_Click"},
    {u"mnuPopupHistoryCopy", u"Copy", u"Can't perform copy operation.", u"frmMain.mnuEditCopy_Click"},
    {u"mnuPopupHistoryPaste", u"Paste", u"Can't perform paste operation.", u"frmMain.mnuEditPaste_Click"},
};

class MenuCommandTest : public MainWindowFixture, public ::testing::WithParamInterface<CommandRow> {
protected:
  MenuCommandTest() { Start(); }
};

TEST_P(MenuCommandTest, RunsUnderTheHourglass) {
  Window->MousePointer(5);
  Click(GetParam().Item);
  EXPECT_EQ(Commands, std::vector<std::string>{ToUtf8(GetParam().Command)});
  EXPECT_EQ(LastParameters.size(), GetParam().Parameters);
  EXPECT_EQ(PointerInside, 11);
  EXPECT_EQ(Window->MousePointer(), 5) << "the pointer comes back";
  EXPECT_FALSE(Window->Executing());
  ExpectNoBox();
}

TEST_P(MenuCommandTest, ShowsItsFailureAndKeepsTheHourglass) {
  OfferFailure(String(GetParam().Command));
  Click(GetParam().Item);
  ExpectOneBox(GetParam().Sentence, GetParam().Label);
  ASSERT_GE(LastTrail.size(), 3U);
  EXPECT_TRUE(Bears(LastTrail[LastTrail.size() - 2], ExecutionLabel));
  EXPECT_TRUE(Bears(LastTrail[LastTrail.size() - 3], EventLabel));
  EXPECT_EQ(Window->MousePointer(), 11);
  EXPECT_FALSE(Window->Executing());
  EXPECT_TRUE(MemoryForm().IsShown());
  EXPECT_FALSE(Loop->IsQuitting());
  EXPECT_TRUE(Environment.Appended.empty()) << "shown, not filed";
}

TEST_P(MenuCommandTest, NextOneKeepsTheHourglassOfTheFailure) {
  OfferFailure(String(GetParam().Command));
  Click(GetParam().Item);
  OfferSpies();
  Click(GetParam().Item);
  EXPECT_EQ(Window->MousePointer(), 11);
}

INSTANTIATE_TEST_SUITE_P(OfEachItem, MenuCommandTest, ::testing::ValuesIn(ItemCommands));

struct ButtonRow {
  StringView Key;
  std::int32_t Value;
  StringView Command;
  StringView Sentence;
  StringView Label;
  StringView Handler = ExecutionLabel;
};

void PrintTo(const ButtonRow& row, std::ostream* out) { *out << ToUtf8(row.Key) << " " << row.Value; }

constexpr StringView ButtonLabel = u"frmMain.tbToolBar_ButtonClick";
constexpr ButtonRow ButtonCommands[] = {
    {u"OpenInstrument", 1, u"OpenInstrument", u"Can't open instrument.", u"frmMain.mnuFileOpenInstrument_Click"},
    {u"OpenInstrument", 0, u"CloseInstrument", u"Can't open instrument.", u"frmMain.mnuFileCloseInstrument_Click"},
    {u"View Log", 0, u"ViewLogFile", u"Can't perform View Log operation.", ButtonLabel},
    {u"Logger", 1, u"ToggleLogFile", u"Can't perform Logger operation.", ButtonLabel},
    {u"Logger", 0, u"ToggleLogFile", u"Can't perform Logger operation.", ButtonLabel},
    {u"Pause", 1, u"ToggleLogging", u"Can't perform Pause operation.", ButtonLabel},
    {u"Pause", 0, u"ToggleLogging", u"Can't perform Pause operation.", ButtonLabel},
    {u"Print", 0, u"Print", u"Can't perform print operation.", u"frmMain.mnuFilePrint_Click"},
    {u"Cut", 0, u"Cut", u"Can't perform Cut operation.", ButtonLabel},
    {u"Copy", 0, u"Copy", u"Can't perform Copy operation.", ButtonLabel},
    {u"Paste", 0, u"Paste", u"Can't perform Paste operation.", ButtonLabel},
    {u"Copy to", 0, u"Copyto", u"Can't perform Copy to operation.", ButtonLabel, EventLabel},
    {u"Paste from", 0, u"Pastefrom", u"Can't perform Paste from operation.", ButtonLabel, EventLabel},
    {u"Read", 0, u"ReadInstrumentData", u"Can't perform Read operation.", ButtonLabel},
};

class ToolButtonTest : public MainWindowFixture, public ::testing::WithParamInterface<ButtonRow> {
protected:
  ToolButtonTest() { Start(); }
};

TEST_P(ToolButtonTest, RunsItsCommand) {
  ClickButton(GetParam().Key, GetParam().Value);
  EXPECT_EQ(Commands, std::vector<std::string>{ToUtf8(GetParam().Command)});
  EXPECT_EQ(PointerInside, 11);
  EXPECT_EQ(Window->MousePointer(), 0);
  ExpectNoBox();
}

TEST_P(ToolButtonTest, ShowsItsFailure) {
  OfferFailure(String(GetParam().Command));
  ClickButton(GetParam().Key, GetParam().Value);
  ExpectOneBox(GetParam().Sentence, GetParam().Label);
  ASSERT_GE(LastTrail.size(), 2U);
  EXPECT_TRUE(Bears(LastTrail[LastTrail.size() - 2], GetParam().Handler)) << ToUtf8(LastTrail[LastTrail.size() - 2]);
  EXPECT_EQ(Window->MousePointer(), 11);
}

INSTANTIATE_TEST_SUITE_P(OfEachButton, ToolButtonTest, ::testing::ValuesIn(ButtonCommands));

class MainCommandsTest : public MainWindowFixture {
protected:
  MainCommandsTest() { Start(); }
};

TEST_F(MainCommandsTest, SeparatorsDoNothing) {
  ClickButton(u"Sep0");
  ClickButton(u"Sep1");
  EXPECT_TRUE(Commands.empty());
  ExpectNoBox();
}

TEST_F(MainCommandsTest, PrintIsHandedTheDialogAndTheHistory) {
  Click(u"mnuFilePrint");
  ASSERT_EQ(LastParameters.size(), 2U);
  EXPECT_TRUE(IsSameObject(LastParameters[0].ToObject<IObject>(), CommonDialog));
  EXPECT_TRUE(IsSameObject(LastParameters[1].ToObject<IObject>(), Window->txtPast()));
  Click(u"mnuFilePageSetup");
  ASSERT_EQ(LastParameters.size(), 1U);
  EXPECT_TRUE(IsSameObject(LastParameters[0].ToObject<IObject>(), CommonDialog));
}

TEST_F(MainCommandsTest, AnUnknownCommandLeavesTheHourglass) {
  gObjectFactory->Remove(gObjectFactory->GetCreator(u"Cut"));
  Click(u"mnuEditCut");
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_NE(Box->Calls()[0].Prompt.find(u"  Number: 5 = "), String::npos) << ToUtf8(Box->Calls()[0].Prompt);
  EXPECT_EQ(Window->MousePointer(), 11);
}

TEST_F(MainCommandsTest, AnExpectedErrorIsShownWithItsPlainDescription) {
  Offer(u"Cut", [](const Params&) { HuntERR::Raise(Hex(0x80041100), u"Somewhere", u"Not today."); });
  Click(u"mnuEditCut");
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(ToUtf8(Box->Calls()[0].Prompt), "Can't perform cut operation.\r\nNot today.");
}

TEST_F(MainCommandsTest, TheErrorIsRecordedBeforeTheBoxAppears) {
  OfferFailure(u"Cut");
  Box->OnShow = [](const memory::MessageBox::Call&) {
    EXPECT_EQ(HuntERR::ErrNumber(), ErrorNumber::CannotCarryOut);
    EXPECT_EQ(ToUtf8(FirstDescription(HuntERR::ErrDescription())), "It broke.");
  };
  Click(u"mnuEditCut");
  EXPECT_EQ(Box->Calls().size(), 1U);
}

TEST_F(MainCommandsTest, NothingIsRolledBack) {
  Offer(u"ToggleLogFile", [](const Params&) {
    SetItem(u"LogFileName", u"first.log");
    Fail();
  });
  Click(u"mnuFileNewLog");
  EXPECT_EQ(Item(u"LogFileName"), "first.log");
}

TEST_F(MainCommandsTest, PasteGivesTheFocusToTheCommandWindowBeforeAndAfter) {
  for (const StringView item : {u"mnuEditPaste", u"mnuPopupCmdPaste", u"mnuPopupHistoryPaste"}) {
    Window->txtPast()->SetFocus();
    OnCommand = [this](const std::string&) {
      EXPECT_TRUE(Future().HasFocus());
      Window->txtPast()->SetFocus();
    };
    Click(item);
    EXPECT_TRUE(Future().HasFocus()) << ToUtf8(item);
  }
}

TEST_F(MainCommandsTest, TheToolbarsPasteLeavesTheFocus) {
  Window->txtPast()->SetFocus();
  ClickButton(u"Paste");
  EXPECT_TRUE(Past().HasFocus());
}

TEST_F(MainCommandsTest, OtherCommandsLeaveTheFocus) {
  Window->txtPast()->SetFocus();
  Click(u"mnuEditCut");
  Click(u"mnuOPC");
  EXPECT_TRUE(Past().HasFocus());
}

TEST_F(MainCommandsTest, AnOpenThatMovesNoFocusUpdatesTheWindowAllTheSame) {
  Window->txtFuture()->SetFocus();
  Offer(u"OpenInstrument", [this](const Params&) {
    SetItem(u"InstrumentName", u"DMM");
    SetItem(u"InstrumentOpened", u"True");
    Window->txtFuture()->SetFocus();
  });
  Click(u"mnuFileOpenInstrument");
  EXPECT_EQ(ToUtf8(Panel(1).Text()), "DMM ");
  EXPECT_EQ(Button(u"OpenInstrument").Value(), 1);
}

TEST_F(MainCommandsTest, AnOpenThatIsCancelledShowsTheButtonReleasedAtTheNextUpdate) {
  ClickButton(u"OpenInstrument", 1);
  EXPECT_EQ(Commands, std::vector<std::string>{"OpenInstrument"});
  EXPECT_EQ(Button(u"OpenInstrument").Value(), 1) << "as the press left it";
  Window->UpdateUI({}, {});
  EXPECT_EQ(Button(u"OpenInstrument").Value(), 0);
}

TEST_F(MainCommandsTest, PressingTheOpenButtonOpensAndPressingItAgainCloses) {
  EXPECT_TRUE(Button(u"OpenInstrument").Press());
  SetOpened();
  EXPECT_TRUE(Button(u"OpenInstrument").Press());
  EXPECT_EQ(Commands, (std::vector<std::string>{"OpenInstrument", "CloseInstrument"}));
}

TEST_F(MainCommandsTest, TheMenusReachTheirCommandsAndShortcutsDoToo) {
  SetOpened();
  EXPECT_TRUE(Menu(u"mnuFileCloseInstrument").Choose());
  EXPECT_FALSE(Menu(u"mnuFileOpenInstrument").Choose()) << "disabled while an instrument is open";
  EXPECT_TRUE(MemoryForm().PressKey(F1Key + 2)); // F3
  EXPECT_TRUE(Menu(u"mnuOptions").Choose());
  EXPECT_EQ(Commands, (std::vector<std::string>{"CloseInstrument", "WaitforOPC", "ConfigOptions"}));
}

TEST_F(MainCommandsTest, HiddenItemsShortcutsDoNothing) {
  EXPECT_FALSE(Menu(u"mnuCopyTo").Visible());
  MemoryForm().PressKey(u'S', CtrlState);
  MemoryForm().PressKey(u'L', CtrlState);
  EXPECT_TRUE(Commands.empty());
}

} // namespace
} // namespace portico::test
