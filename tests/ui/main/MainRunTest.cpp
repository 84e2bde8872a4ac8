#include "support/Journal.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;

/// The window on an open instrument that answers nothing by itself, so that a line is one write.
class MainRunTest : public MainWindowFixture {
protected:
  MainRunTest() {
    HasSpies = false;
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Wire.clear();
    Type(u"");
  }

  void Type(StringView text) {
    Future().Text(text);
    Future().SelStart(Future().TextLength());
  }
  std::string Left() { return Escaped(Future().Text()); }
  std::string History() { return Escaped(Past().Text()); }
  /// Calls `look` once in each turn of the loop from now on.
  void OnEveryTurn(std::function<void()> look) {
    m_turns = Loop->MakeTimer();
    m_turns->Interval(1);
    m_turns->Enabled(true);
    m_turns->Timer().Connect([this, look = std::move(look)] {
      Clock.Advance(1ms);
      look();
    });
    Clock.Advance(1ms);
  }
  /// What the user is offered now.
  std::string Offered() {
    std::string offered;
    for (const StringView item : {u"mnuStep", u"mnuRun", u"mnuRunToCursor", u"mnuStop"}) {
      if (Menu(item).Enabled()) offered += (offered.empty() ? "" : " ") + ToUtf8(item.substr(3));
    }
    return offered;
  }
  using Lines = test::Journal;

private:
  std::unique_ptr<ITimer> m_turns;
};

TEST_F(MainRunTest, RunSendsEveryLine) {
  Type(u"*RST\r\n  *CLS \r\nREM a remark\r\n\r\n*WAI");
  Click(u"mnuRun");
  EXPECT_EQ(Wire, (Lines{"write *RST", "write *CLS ", "write *WAI"}));
  EXPECT_EQ(Left(), "");
  EXPECT_FALSE(Window->Executing());
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_TRUE(Future().HasFocus());
  ExpectNoBox();
}

TEST_F(MainRunTest, ShowsTheRunBeforeItBegins) {
  Type(u"*RST\r\n*CLS\r\n");
  Window->txtFuture()->SetFocus();
  EXPECT_EQ(Offered(), "Step Run RunToCursor");
  std::vector<std::string> seen;
  OnEveryTurn([&] {
    if (Wire.empty() && seen.empty()) {
      seen.push_back(Offered() + (Window->Executing() ? ", executing" : ""));
      EXPECT_EQ(Left(), "*RST\\r\\n*CLS\\r\\n");
    }
  });
  Window->StopRequested(true); // a stop from before is forgotten
  Click(u"mnuRun");
  EXPECT_EQ(seen, std::vector<std::string>{"Stop, executing"});
  EXPECT_EQ(Wire.size(), 2U);
  EXPECT_EQ(Left(), "");
}

TEST_F(MainRunTest, RunToCursorShowsTheRunBeforeItBegins) {
  Type(u"*RST\r\n*CLS\r\n");
  std::vector<std::string> seen;
  OnEveryTurn([&] {
    if (seen.empty()) seen.push_back(Offered() + (Window->Executing() ? ", executing" : ""));
  });
  Click(u"mnuRunToCursor");
  EXPECT_EQ(seen, std::vector<std::string>{"Stop, executing"});
}

TEST_F(MainRunTest, StepStillShowsTheIdleStateWhenItBegins) {
  Type(u"*RST\r\n*CLS\r\n");
  Window->txtFuture()->SetFocus();
  std::vector<std::string> seen;
  OnEveryTurn([&] {
    if (seen.empty()) seen.push_back(Offered() + (Window->Executing() ? ", executing" : ""));
  });
  Window->StopRequested(true);
  bool executing = false;
  Driver->OnCall = [&](const std::string&) { executing = Window->Executing(); };
  Click(u"mnuStep");
  EXPECT_EQ(seen, std::vector<std::string>{"Step Run RunToCursor"});
  EXPECT_TRUE(executing) << "but while it sends it counts as one";
  EXPECT_EQ(Wire, Lines{"write *RST"});
  EXPECT_EQ(Left(), "*CLS\\r\\n");
  EXPECT_FALSE(Window->Executing());
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_TRUE(Future().HasFocus());
  EXPECT_EQ(Offered(), "Step Run RunToCursor");
}

TEST_F(MainRunTest, AStepOffersWhatIsOfferedIdleUntilItsLineIsTakenAndStopAloneFromThenOn) {
  Type(u"*RST\r\n*CLS\r\n");
  Window->txtFuture()->SetFocus();
  Lines seen;
  OnEveryTurn([&] {
    const std::string now = Left() + " " + Offered();
    if (seen.empty() || seen.back() != now) seen.push_back(now);
  });
  Click(u"mnuStep");
  EXPECT_EQ(seen, (Lines{"*RST\\r\\n*CLS\\r\\n Step Run RunToCursor", "*CLS\\r\\n Stop", "*CLS\\r\\n Step Run",
                         "*CLS\\r\\n Step Run RunToCursor"}))
      << "and behind it the idle state again, with the focus at last in the command window";
}

TEST_F(MainRunTest, AStepPassesOverRemarksAndLeavesWhatIsBehindItsInstruction) {
  Type(u"REM one\r\n\r\n*RST\r\nREM two\r\n*CLS\r\n");
  Click(u"mnuStep");
  EXPECT_EQ(Wire, Lines{"write *RST"});
  EXPECT_EQ(Left(), "REM two\\r\\n*CLS\\r\\n");
  EXPECT_EQ(History().find("REM one\\r\\n"), 0U) << History();
}

TEST_F(MainRunTest, AStepThroughRemarksAloneEndsWithTheWindow) {
  Type(u"REM one\r\nREM two\r\n");
  Click(u"mnuStep");
  EXPECT_EQ(Wire, Lines{});
  EXPECT_EQ(Left(), "");
  EXPECT_EQ(History(), "REM one\\r\\nREM two\\r\\n");
}

TEST_F(MainRunTest, RemarksAloneGoToTheHistoryAndNothingIsSent) {
  Type(u"REM one\r\n\r\nREM two\r\n");
  Click(u"mnuRun");
  EXPECT_EQ(Wire, Lines{});
  EXPECT_EQ(Left(), "");
  EXPECT_EQ(History(), "REM one\\r\\n\\r\\nREM two\\r\\n");
  EXPECT_TRUE(Future().HasFocus()) << "the remark took the focus, the end brings it back";
}

TEST_F(MainRunTest, AnEmptyWindowIsRunAtOnce) {
  Click(u"mnuRun");
  EXPECT_EQ(Wire, Lines{});
  EXPECT_FALSE(Window->Executing());
  ExpectNoBox();
}

TEST_F(MainRunTest, RunToCursorRunsTheLinesAboveTheCaret) {
  Type(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  Future().SelStart(11); // in the third line
  Click(u"mnuRunToCursor");
  EXPECT_EQ(Wire, (Lines{"write one", "write two"}));
  EXPECT_EQ(Left(), "three\\r\\nfour\\r\\n");
}

TEST_F(MainRunTest, RunToCursorWithTheCaretInTheFirstLineRunsAll) {
  Type(u"one\r\ntwo\r\nthree\r\n");
  Future().SelStart(1);
  Click(u"mnuRunToCursor");
  EXPECT_EQ(Wire.size(), 3U);
  EXPECT_EQ(Left(), "");
}

TEST_F(MainRunTest, RemarksCountAsLinesAboveTheCaret) {
  Type(u"REM one\r\n\r\ntwo\r\nthree\r\n");
  Future().SelStart(16); // in the fourth line
  Click(u"mnuRunToCursor");
  EXPECT_EQ(Wire, Lines{"write two"});
  EXPECT_EQ(Left(), "three\\r\\n");
}

TEST_F(MainRunTest, StopLetsTheInstructionFinishAndNothingAfterItIsSent) {
  SetItem(u"AutoReadAfterQueryMode", u"On");
  Type(u"one?\r\ntwo?\r\nthree?\r\nfour?\r\n");
  std::string offered;
  Driver->OnCall = [&](const std::string& line) {
    if (line != "write one?") return;
    offered = Offered();
    Click(u"mnuStop");
    EXPECT_TRUE(Window->StopRequested());
  };
  Click(u"mnuRun");
  EXPECT_EQ(offered, "Stop");
  EXPECT_EQ(Wire, (Lines{"write one?", "read"}));
  EXPECT_NE(Left().find("three?\\r\\nfour?\\r\\n"), std::string::npos);
  EXPECT_FALSE(Window->StopRequested()) << "forgotten afterwards";
  EXPECT_FALSE(Window->Executing());
  Click(u"mnuRun");
  EXPECT_GT(Wire.size(), 2U) << "the rest can be run";
}

TEST_F(MainRunTest, StopDoesNothingElse) {
  Click(u"mnuStop");
  EXPECT_TRUE(Window->StopRequested());
  EXPECT_EQ(Wire, Lines{});
  ExpectNoBox();
}

TEST_F(MainRunTest, TheStopButtonAndThePopupsStopAtOnce) {
  ClickButton(u"Stop");
  EXPECT_TRUE(Window->StopRequested());
  Window->StopRequested(false);
  Click(u"mnuPopupCMDStop");
  EXPECT_TRUE(Window->StopRequested());
}

TEST_F(MainRunTest, TheButtonsRunToo) {
  Type(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  ClickButton(u"Step");
  EXPECT_EQ(Wire, Lines{"write one"});
  Future().SelStart(7); // in what is the second line now
  ClickButton(u"Run to Cursor");
  EXPECT_EQ(Wire, (Lines{"write one", "write two"}));
  ClickButton(u"Run");
  EXPECT_EQ(Wire.size(), 4U);
}

TEST_F(MainRunTest, ALineThatTheInstrumentRefusesStopsNothing) {
  Driver->Statuses["write one"] = -1;
  Type(u"one\r\ntwo\r\n");
  Click(u"mnuRun");
  EXPECT_EQ(Wire, (Lines{"write one", "write two"}));
  ExpectNoBox();
  EXPECT_FALSE(Window->Executing());
}

TEST_F(MainRunTest, APastedConversationSendsItsInstructionsOnly) {
  SetItem(u"AutoReadAfterQueryMode", u"On");
  Type(u"one?\r\n");
  Click(u"mnuRun");
  EXPECT_EQ(Wire, (Lines{"write one?", "read"}));
  Past().SelStart(0);
  Past().SelLength(Past().TextLength());
  const String conversation = Past().SelRTF();
  Future().SelRTF(conversation);
  Wire.clear();
  Click(u"mnuRun");
  EXPECT_EQ(Wire, (Lines{"write one?", "read"})) << Escaped(Past().Text());
}

// A remark is written into the history at its end, whoever asks.

TEST_F(MainRunTest, RemarksAreAddedAtTheEndOfTheHistory) {
  Past().Text(u"first\r\n");
  Past().SelStart(0);
  Window->aCmdRunner_Add2History(u"REM one");
  EXPECT_TRUE(Past().HasFocus());
  Window->aCmdStepper_Add2History(u"REM two");
  Window->aCmdCursorRunner_Add2History(u"REM three");
  EXPECT_EQ(History(), "first\\r\\nREM one\\r\\nREM two\\r\\nREM three\\r\\n");
}

// A failure.

struct Failing {
  StringView Item;
  StringView Sentence;
  StringView Label;
};
class RunFailureTest : public MainRunTest, public ::testing::WithParamInterface<Failing> {};

TEST_P(RunFailureTest, IsShownAndLeavesTheRunStuck) {
  OfferFailure(u"Step");
  Type(u"one\r\ntwo\r\n");
  Future().SelStart(6);
  Click(GetParam().Item);
  ExpectOneBox(GetParam().Sentence, GetParam().Label);
  EXPECT_TRUE(Window->Executing());
  EXPECT_EQ(Left(), "two\\r\\n") << "the line that failed is lost";
  EXPECT_EQ(Item(u"CurrentInstruction"), "one");
  Window->UpdateUI({}, {});
  EXPECT_EQ(Offered(), "Stop") << "no other run can be started";
  EXPECT_EQ(Wire, Lines{});
}

TEST_P(RunFailureTest, LeavesARequestedStop) {
  Offer(u"Step", [this](const Params&) {
    Click(u"mnuStop");
    Fail();
  });
  Type(u"one\r\ntwo\r\n");
  Click(GetParam().Item);
  EXPECT_TRUE(Window->StopRequested());
}

TEST_P(RunFailureTest, OfTheProcessorReadsThatNothingWasHandled) {
  Offer(u"Step", [](const Params&) { HuntERR::Check(false, 17, u"Instruction was not handled."); });
  Type(u"one\r\n");
  Click(GetParam().Item);
  ExpectOneBox(GetParam().Sentence, GetParam().Label, u"Instruction was not handled.");
}

INSTANTIATE_TEST_SUITE_P(
    OfEachRun, RunFailureTest,
    ::testing::Values(Failing{u"mnuRun", u"Can't run instructions.", u"frmMain.mnuRun_Click"},
                      Failing{u"mnuRunToCursor", u"Can't run instructions to cursor.", u"frmMain.mnuRunToCursor_Click"},
                      Failing{u"mnuStep", u"Can't run an instruction.", u"frmMain.mnuStep_Click"}));

} // namespace
} // namespace portico::test
