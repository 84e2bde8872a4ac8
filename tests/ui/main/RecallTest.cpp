#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;

/// The window on an open instrument, to which lines have been sent.
class RecallTest : public MainWindowFixture {
protected:
  RecallTest() { HasSpies = false; }

  void Send(StringView lines) {
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Future().Text(lines);
    Click(u"mnuRun");
  }
  void Type(StringView text) {
    Future().Text({});
    ASSERT_TRUE(Future().Type(text));
  }
  std::string Text() { return ToUtf8(Future().Text()); }
  std::string Earlier() {
    Click(u"mnuEarlierLine");
    return Text();
  }
  std::string Later() {
    Click(u"mnuLaterLine");
    return Text();
  }
};

TEST_F(RecallTest, BringsInstructionsAsTheyLeftTheCommandWindow) {
  Send(u"*RST\r\nREM a remark\r\n\r\n  *IDN? \r\n\u00AEanswer\r\n\u00A9*OPC?\r\n*IDN? \r\n");
  Future().Text({});
  EXPECT_EQ(Earlier(), "*IDN? ");
  EXPECT_EQ(Earlier(), "*RST");
  EXPECT_EQ(Earlier(), "*RST") << "there is none before it";
  EXPECT_EQ(Later(), "*IDN? ");
  EXPECT_EQ(Later(), "");
  EXPECT_EQ(Later(), "");
  ExpectNoBox();
}

TEST_F(RecallTest, BringsWhatStepAndRunToCursorHaveSent) {
  Send(u"");
  Future().Text(u"one\r\ntwo\r\nthree\r\n");
  Click(u"mnuStep");
  Future().SelStart(5);
  Click(u"mnuRunToCursor");
  EXPECT_EQ(Text(), "three\r\n");
  EXPECT_EQ(Earlier(), "two\r\n") << "in place of what stood in the line";
  EXPECT_EQ(Earlier(), "one\r\n");
  EXPECT_EQ(Later(), "two\r\n");
  EXPECT_EQ(Later(), "three\r\n");
}

TEST_F(RecallTest, BringsThoseThatBeginWithWhatStandsInFrontOfTheCaret) {
  Send(u"MEAS:VOLT?\r\n*RST\r\nmeas:curr?\r\n*CLS\r\n");
  Type(u"meas:");
  EXPECT_EQ(Earlier(), "meas:curr?");
  EXPECT_EQ(Earlier(), "MEAS:VOLT?") << "capitals or not";
  EXPECT_EQ(Earlier(), "MEAS:VOLT?");
  EXPECT_EQ(Later(), "meas:curr?");
  EXPECT_EQ(Later(), "meas:");
}

TEST_F(RecallTest, LooksOnlyInFrontOfTheCaret) {
  Send(u"*RST\r\n*CLS\r\n");
  Type(u"*RXYZ");
  Future().SelStart(2);
  EXPECT_EQ(Earlier(), "*RST");
  EXPECT_EQ(Future().SelStart(), 4) << "at its end";
  EXPECT_EQ(Later(), "*RXYZ");
  EXPECT_EQ(Future().SelStart(), 2) << "as the user had it";
  EXPECT_EQ(Earlier(), "*RST") << "by the same text";
}

TEST_F(RecallTest, BeginsAnewWithWhatIsTypedMeanwhile) {
  Send(u"A1\r\nA2\r\nB1\r\nA3\r\n");
  Future().Text({});
  EXPECT_EQ(Earlier(), "A3");
  EXPECT_EQ(Earlier(), "B1");
  Type(u"A");
  EXPECT_EQ(Earlier(), "A3");
  Future().SelStart(1); // the caret has moved
  EXPECT_EQ(Earlier(), "A2") << "what stands there is passed over";
  EXPECT_EQ(Later(), "A3");
}

TEST_F(RecallTest, ActsOnTheCaretsLineAndNoOther) {
  Send(u"*RST\r\n");
  Future().Text(u"one\r\n  *R\r\nthree");
  Future().SelStart(9);
  EXPECT_EQ(Earlier(), "one\r\n*RST\r\nthree");
  EXPECT_EQ(Future().SelStart(), 9);
  EXPECT_EQ(Later(), "one\r\n  *R\r\nthree");
}

TEST_F(RecallTest, BringsPlainBlackTextAndTheTypedLineInItsLooks) {
  Send(u"*RST\r\n");
  Future().Text(u"*R");
  Future().SelStart(0);
  Future().SelLength(2);
  Future().SelFormat({.SelBold = true, .SelColor = 0x0000FF, .SelItalic = true, .SelUnderline = true});
  const String typed = Future().TextRTF();
  Future().SelStart(2);
  EXPECT_EQ(Earlier(), "*RST");
  Future().SelStart(0);
  Future().SelLength(4);
  const SelectionFormat look = Future().SelFormat();
  EXPECT_EQ(look.SelBold, false);
  EXPECT_EQ(look.SelColor, 0);
  EXPECT_EQ(look.SelItalic, false);
  EXPECT_EQ(look.SelUnderline, false);
  Future().SelStart(4);
  EXPECT_EQ(Later(), "*R");
  EXPECT_EQ(ToUtf8(Future().TextRTF()), ToUtf8(typed));
}

TEST_F(RecallTest, EachLineIsOneStepOfUndo) {
  Send(u"one\r\ntwo\r\n");
  Type(u"");
  ASSERT_TRUE(Future().Type(u"t"));
  Future().SelStart(0);
  Earlier();
  EXPECT_EQ(Earlier(), "one");
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Text(), "two");
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Text(), "t");
}

TEST_F(RecallTest, DoesNothingWhileThePlaceholderStandsThere) {
  Send(u"OPEN THE DOOR\r\n");
  SetOpened(false);
  EXPECT_FALSE(Menu(u"mnuEarlierLine").Enabled());
  EXPECT_FALSE(Menu(u"mnuLaterLine").Enabled());
  Future().SelStart(5);
  EXPECT_EQ(Earlier(), "OPEN AN INSTRUMENT!");
  Type(u"OPEN");
  EXPECT_TRUE(Menu(u"mnuEarlierLine").Enabled()) << "that is text like any other";
  EXPECT_EQ(Earlier(), "OPEN THE DOOR");
}

TEST_F(RecallTest, DoesNothingWhileARunTakesLines) {
  Send(u"*RST\r\n");
  std::vector<std::string> seen;
  Driver->OnWrite = [&](const std::string&) {
    EXPECT_FALSE(Menu(u"mnuEarlierLine").Enabled());
    seen.push_back(Earlier());
    return 0;
  };
  Future().Text(u"one\r\ntwo\r\n");
  Click(u"mnuRun");
  EXPECT_EQ(seen, (std::vector<std::string>{"two\r\n", ""}));
  EXPECT_TRUE(Menu(u"mnuEarlierLine").Enabled());
}

TEST_F(RecallTest, GivesTheCommandWindowTheFocus) {
  Send(u"*RST\r\n");
  Window->txtPast()->SetFocus();
  Earlier();
  EXPECT_TRUE(Future().HasFocus());
}

TEST_F(RecallTest, IsForgotten) {
  Send(u"*RST\r\n");
  Click(u"mnuForgetSentLines");
  EXPECT_EQ(Earlier(), "");
  ExpectNoBox();
}

TEST_F(RecallTest, TheCheckMarkIsKept) {
  Send(u"*RST\r\n");
  EXPECT_TRUE(Menu(u"mnuKeepSentLines").Checked());
  Click(u"mnuKeepSentLines");
  EXPECT_FALSE(Menu(u"mnuKeepSentLines").Checked());
  EXPECT_EQ(Setting(u"KeepSentLines", u"Data"), "Off");
  Click(u"mnuKeepSentLines");
  EXPECT_TRUE(Menu(u"mnuKeepSentLines").Checked());
}

/// A file that cannot be used.
class BrokenFile final : public ILineFile {
public:
  Contents Read() override { return {{}, u"It cannot be read."}; }
  std::optional<String> Append(const std::vector<String>&) override { return u"It cannot be written."; }
  std::optional<String> Clear() override { return u"It cannot be written."; }
};

TEST_F(RecallTest, AFaultOfTheFileIsToldInOneSentenceWhenALineIsWanted) {
  gSentLinesFile = std::make_shared<BrokenFile>();
  Send(u"*RST\r\n");
  gSentLinesFile.reset();
  ExpectNoBox();
  EXPECT_EQ(Earlier(), "*RST") << "this session's lines are there";
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(ToUtf8(Box->Calls()[0].Prompt), "It cannot be read.");
  EXPECT_EQ(ToUtf8(Box->Calls()[0].Title), "Tolvane Portico");
  Clock.Advance(1000ms);
  Loop->DoEvents();
  EXPECT_EQ(Box->Calls().size(), 1U) << "nobody is disturbed";
  Later();
  ASSERT_EQ(Box->Calls().size(), 2U);
  EXPECT_EQ(ToUtf8(Box->Calls()[1].Prompt), "It cannot be written.");
  Earlier();
  EXPECT_EQ(Box->Calls().size(), 2U);
}

} // namespace
} // namespace portico::test
