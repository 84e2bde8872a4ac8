#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

constexpr StringView FocusSentence = u"An error occured while changing focus.";
constexpr StringView NoServer = u"The configuration server is required for this operation, but it does not exist.";

class MainTypingTest : public MainWindowFixture {
protected:
  MainTypingTest() { Start(); }
  static void Fire(const Event<>& event) { event(); }
};

// The placeholder.

TEST_F(MainTypingTest, OpeningReplacesThePlaceholderAndPutsTheCaretAtItsEnd) {
  SetOpened();
  EXPECT_EQ(ToUtf8(Future().Text()), "REM Enter commands here.\r\n");
  EXPECT_EQ(Future().SelStart(), Future().TextLength());
  EXPECT_EQ(Future().SelLength(), 0);
  EXPECT_TRUE(Future().TabStop());
}

TEST_F(MainTypingTest, OtherTextThatWasPutThereMeanwhileStays) {
  for (const StringView text : {u"*IDN?", u"", u"open an instrument!", u"OPEN AN INSTRUMENT!\r\n"}) {
    SetOpened(false);
    Future().Text(text);
    SetOpened();
    EXPECT_EQ(ToUtf8(Future().Text()), ToUtf8(text));
    EXPECT_TRUE(Future().TabStop());
  }
}

TEST_F(MainTypingTest, ClosingThrowsUnsentLinesAway) {
  SetOpened();
  Future().Text(u"*IDN?\r\n*RST\r\n");
  SetOpened(false);
  EXPECT_EQ(ToUtf8(Future().Text()), "OPEN AN INSTRUMENT!");
  EXPECT_FALSE(Future().TabStop());
}

TEST_F(MainTypingTest, ASecondOpenAfterACloseBehavesAsTheFirst) {
  SetOpened();
  SetOpened(false);
  SetOpened();
  EXPECT_EQ(ToUtf8(Future().Text()), "REM Enter commands here.\r\n");
  EXPECT_EQ(Future().SelStart(), Future().TextLength());
  EXPECT_TRUE(Future().TabStop());
}

TEST_F(MainTypingTest, WhatIsTypedWhileNothingIsOpenStaysAtTheNextUpdate) {
  Future().Text(u"*IDN?");
  Window->UpdateUI({}, {});
  EXPECT_EQ(ToUtf8(Future().Text()), "*IDN?") << "only the closing itself replaces it";
}

TEST_F(MainTypingTest, ThePlaceholderOfAnOpenInstrumentIsTextLikeAnyOther) {
  SetOpened();
  Future().Text(u"OPEN AN INSTRUMENT!");
  Window->UpdateUI({}, {});
  EXPECT_EQ(ToUtf8(Future().Text()), "OPEN AN INSTRUMENT!");
}

TEST_F(MainTypingTest, ATabKeyPassesOverTheClosedCommandWindow) {
  Window->txtPast()->SetFocus();
  MemoryForm().PressKey(TabKey);
  EXPECT_TRUE(Past().HasFocus());
  SetOpened();
  MemoryForm().PressKey(TabKey);
  EXPECT_TRUE(Future().HasFocus());
}

TEST_F(MainTypingTest, WhatAKeySelectsCanBeCopiedOnceTheKeyHasReachedTheSelection) {
  constexpr std::int32_t rightKey = 39;
  SetOpened();
  Future().Text(u"*IDN?");
  Window->txtFuture()->SetFocus();
  MemoryForm().PressKey(rightKey);
  Future().SelStart(0);
  Future().SelLength(5);
  Loop->DoEvents();
  EXPECT_FALSE(Menu(u"mnuEditCopy").Enabled());
  Clock.Advance(std::chrono::milliseconds(1));
  Loop->DoEvents();
  EXPECT_TRUE(Menu(u"mnuEditCopy").Enabled());
}

// Focus.

TEST_F(MainTypingTest, TheFocusDecidesOnPasteAndRunToCursor) {
  SetOpened();
  Clipboard->Text = u"text";
  Window->txtFuture()->SetFocus();
  EXPECT_TRUE(Menu(u"mnuEditPaste").Enabled());
  EXPECT_TRUE(Menu(u"mnuRunToCursor").Enabled());
  Window->txtPast()->SetFocus();
  EXPECT_FALSE(Menu(u"mnuEditPaste").Enabled());
  EXPECT_FALSE(Menu(u"mnuRunToCursor").Enabled()) << "off while the history has the focus";
  EXPECT_FALSE(Button(u"Run to Cursor").Enabled());
  EXPECT_TRUE(Menu(u"mnuRun").Enabled());
}

TEST_F(MainTypingTest, TheWindowsReturnCountsAsFocus) {
  Window->txtFuture()->SetFocus();
  Screen->SwitchAway();
  SetItem(u"LogFileName", u"first.log");
  Screen->SwitchBack();
  EXPECT_EQ(ToUtf8(Form().Caption()), "first.log - Tolvane Portico");
}

TEST_F(MainTypingTest, FocusHandlersShowTheirFailure) {
  gConfiguration = nullptr;
  Fire(Future().GotFocus());
  ExpectOneBox(FocusSentence, u"frmMain.txtFuture_GotFocus", NoServer);
  Fire(Past().GotFocus());
  ExpectOneBox(FocusSentence, u"frmMain.txtPast_GotFocus", NoServer);
  Future().Text(u"x");
  ExpectOneBox(FocusSentence, u"frmMain.txtFuture_Change", NoServer);
}

TEST_F(MainTypingTest, AFocusThatFailedHasMovedAllTheSame) {
  SetOpened();
  Clipboard->Text = u"text";
  Window->txtPast()->SetFocus();
  const auto configuration = gConfiguration;
  gConfiguration = nullptr;
  Window->txtFuture()->SetFocus();
  gConfiguration = configuration;
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuEditPaste").Enabled());
}

// Typing.

TEST_F(MainTypingTest, TypingUpdatesTheWindow) {
  SetOpened();
  Future().Text(u"");
  EXPECT_FALSE(Menu(u"mnuRun").Enabled());
  ASSERT_TRUE(Future().Type(u"*"));
  EXPECT_TRUE(Menu(u"mnuRun").Enabled());
  EXPECT_TRUE(Button(u"Step").Enabled());
}

TEST_F(MainTypingTest, WhatIsTypedAfterAPasteIsPlainBlack) {
  SetOpened();
  Future().Text(u"");
  ASSERT_TRUE(Future().Type(u"ab\r\n"));
  Future().SelStart(0);
  Future().SelLength(2);
  Future().SelFormat({.SelBold = true, .SelCharOffset = 40, .SelColor = 0x0000FF, .SelItalic = true});
  const String fragment = Future().SelRTF();
  Future().SelStart(4);
  Future().SelRTF(fragment);
  const SelectionFormat format = Future().SelFormat();
  EXPECT_EQ(format.SelBold, false);
  EXPECT_EQ(format.SelItalic, false);
  EXPECT_EQ(format.SelColor, 0);
  EXPECT_EQ(format.SelCharOffset, 0);
  EXPECT_EQ(Future().SelStart(), Future().TextLength());
  Future().SelStart(4);
  Future().SelLength(2);
  EXPECT_EQ(Future().SelFormat().SelBold, true) << "the paste itself keeps its looks";
  EXPECT_EQ(Future().SelFormat().SelColor, 0x0000FF);
}

TEST_F(MainTypingTest, TheWindowIsUpdatedBeforeTypingIsPlainAgain) {
  SetOpened();
  Future().Text(u"ab");
  Future().SelStart(0);
  Future().SelLength(2);
  Future().SelFormat({.SelBold = true});
  const String fragment = Future().SelRTF();
  std::vector<bool> bold; // at the caret, in each turn
  const auto turns = Loop->MakeTimer();
  turns->Interval(1);
  turns->Enabled(true);
  turns->Timer().Connect([&] { bold.push_back(Future().SelFormat().SelBold == true); });
  Clock.Advance(std::chrono::milliseconds(1));
  Future().SelStart(2);
  Future().SelRTF(fragment);
  EXPECT_EQ(bold, std::vector<bool>{true});
  EXPECT_EQ(Future().SelFormat().SelBold, false);
}

TEST_F(MainTypingTest, TheCaretStaysBehindALineEnd) {
  SetOpened();
  Future().Text(u"");
  ASSERT_TRUE(Future().Type(u"*IDN?\r\n"));
  EXPECT_EQ(Future().SelStart(), 7);
  EXPECT_EQ(Future().SelLength(), 0);
  ASSERT_TRUE(Future().Type(u"x"));
  EXPECT_EQ(ToUtf8(Future().Text()), "*IDN?\r\nx");
  EXPECT_EQ(Future().SelStart(), 8);
}

TEST_F(MainTypingTest, TheHistoryIsReadOnlyToTheUser) {
  EXPECT_FALSE(Past().Type(u"x"));
  EXPECT_EQ(ToUtf8(Past().Text()), "");
}

// The mouse.

TEST_F(MainTypingTest, ARightPressInTheCommandWindowGivesItTheFocusAndShowsItsMenu) {
  SetOpened();
  Window->txtPast()->SetFocus();
  SetItem(u"LogFileName", u"first.log");
  Screen->OnPopup(u"mnuPopupCMD", [this](memory::MenuItem&) {
    EXPECT_TRUE(Future().HasFocus());
    EXPECT_EQ(ToUtf8(Form().Caption()), "first.log - Tolvane Portico") << "updated before it shows";
    EXPECT_TRUE(Menu(u"mnuPopupCMDRun").Choose());
  });
  ASSERT_TRUE(Future().PressMouse({.Button = RightButton}));
  EXPECT_TRUE(Screen->Unplayed().empty());
  ExpectNoBox();
}

TEST_F(MainTypingTest, TheLoopGetsATurnBeforeTheMenuIsUpdatedAndOneWhenItHasClosed) {
  SetOpened();
  Window->txtFuture()->SetFocus(); // so that the press moves no focus, which would give a turn, too
  SetItem(u"LogFileName", u"first.log");
  std::vector<std::string> captions;
  const auto timer = Loop->MakeTimer();
  timer->Interval(10);
  timer->Enabled(true);
  timer->Timer().Connect([&] { captions.push_back(ToUtf8(Form().Caption())); });
  const auto passTenMilliseconds = [this] { Clock.Advance(std::chrono::milliseconds(10)); };
  Screen->OnPopup(u"mnuPopupCMD", [&](memory::MenuItem&) { passTenMilliseconds(); });
  passTenMilliseconds();
  ASSERT_TRUE(Future().PressMouse({.Button = RightButton}));
  EXPECT_EQ(captions, (std::vector<std::string>{"Tolvane Portico", "first.log - Tolvane Portico"}));
}

TEST_F(MainTypingTest, OtherButtonsShowNoMenuInTheCommandWindow) {
  SetOpened();
  Window->txtPast()->SetFocus();
  Screen->OnPopup(u"mnuPopupCMD", [](memory::MenuItem&) { ADD_FAILURE(); });
  ASSERT_TRUE(Future().PressMouse({.Button = 4}));
  EXPECT_FALSE(Future().HasFocus());
  ASSERT_TRUE(Future().PressMouse({.Button = LeftButton}));
  EXPECT_EQ(Screen->Unplayed(), std::vector<String>{u"mnuPopupCMD"});
}

TEST_F(MainTypingTest, AnyPressInTheHistoryGivesItTheFocus) {
  SetOpened();
  for (const std::int32_t button : {LeftButton, 4}) {
    Window->txtFuture()->SetFocus();
    ASSERT_TRUE(Past().PressMouse({.Button = button}));
    EXPECT_TRUE(Past().HasFocus()) << button;
  }
}

TEST_F(MainTypingTest, ARightPressInTheHistoryShowsItsMenu) {
  SetOpened();
  Window->txtFuture()->SetFocus();
  Past().Text(u"one\r\n");
  Screen->OnPopup(u"mnuPopupHistory", [this](memory::MenuItem&) {
    EXPECT_TRUE(Past().HasFocus());
    EXPECT_TRUE(Menu(u"mnuPopupHistoryClearHistory").Choose());
  });
  ASSERT_TRUE(Past().PressMouse({.Button = RightButton}));
  EXPECT_EQ(ToUtf8(Past().Text()), "");
  EXPECT_TRUE(Screen->Unplayed().empty());
}

} // namespace
} // namespace portico::test
