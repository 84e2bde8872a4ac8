#include "views/LineRunners.h"

#include "views/RunFixture.h"

namespace portico::test {
namespace {

/// What each of the three runners makes of the command window.
class LineRunners : public RunFixture {
protected:
  /// The lines that were sent and shown, in order.
  List Outcome(LineRunner& runner) {
    runner.Add2History.Connect([&](const String& line) { Calls.push_back("show " + ToUtf8(line)); });
    runner.CommandQueue(Box);
    Calls.clear();
    runner.Execute();
    return Done();
  }
  List Done() const {
    List lines;
    for (const auto& call : Calls) {
      if (call.substr(0, 14) == "send SCPI.Send") lines.push_back("send" + call.substr(14));
      if (call.substr(0, 4) == "show") lines.push_back(call);
    }
    return lines;
  }
  /// Presses Stop while the instruction is carried out.
  void StopAt(const std::string& instruction) {
    Processor->OnSend = [=, this](const std::string& text) {
      if (text == instruction) Window->StopRequested(true);
    };
  }

  CCommandRunner Run;
  CCommandStepper Step;
  CCommandCursorRunner Cursor;
};

using CommandRunner = LineRunners;
using CommandStepper = LineRunners;
using CommandCursorRunner = LineRunners;

TEST_F(LineRunners, SendOneLineAfterAnother) {
  Box->Type(u"*RST\r\n  *IDN? \r\nREM hello\r\n\r\nlast");
  EXPECT_EQ(Outcome(Run), (List{"send *RST", "send *IDN? ", "show REM hello", "show ", "send last"}));
  EXPECT_EQ(Shown(), "");
}

TEST_F(LineRunners, NoteTheLineBeforeTheyBuildTheStep) {
  Box->Type(u"  *RST \r\n");
  Outcome(Run);
  EXPECT_EQ(Calls, (List{"CurrentInstruction=*RST ", "send SCPI.Send *RST "}));
  EXPECT_EQ(Current(), "*RST ");
}

TEST_F(LineRunners, SkipAnswersAndAutomaticLinesSilently) {
  Box->Type(u"\u00AE1.25\r\n\u00A9*OPC?\r\n");
  Box->Type(u"1\r\n", LikeResponse());
  for (LineRunner* runner : {static_cast<LineRunner*>(&Run), static_cast<LineRunner*>(&Step)}) {
    EXPECT_EQ(Outcome(*runner), List{});
    EXPECT_EQ(Calls, List{});
  }
  EXPECT_EQ(Shown(), "");
}

TEST_F(LineRunners, OfAPastedConversationSendOnlyItsInstructions) {
  Box->Type(u"*IDN?\r\n", LikeInstruction());
  Box->Type(u"\u00AE", Looks(true, false, 0xFFFFFF));
  Box->Type(u"maker,model\r\n", LikeResponse());
  Box->Type(u"\u00A9", Looks(false, true, 0xFFFFFF));
  Box->Type(u"SYST:ERR?\r\n", LikeAutomatic());
  Box->Type(u"\u00AE", Looks(true, false, 0xFFFFFF));
  Box->Type(u"0,none\r\n", LikeResponse());
  Box->Type(u"*RST\r\n", LikeInstruction());
  EXPECT_EQ(Outcome(Run), (List{"send *IDN?", "send *RST"}));
}

TEST_F(LineRunners, ReturnAtOnceFromAnEmptyWindow) {
  EXPECT_EQ(Outcome(Run), List{});
  EXPECT_EQ(Outcome(Step), List{});
  EXPECT_EQ(Outcome(Cursor), List{});
}

TEST_F(LineRunners, CharCommentAndPolicyHaveNoEffect) {
  const auto policy = New<CSCPICmdPolicy>();
  policy->CharComment(u"|");
  Run.Policy(policy);
  Run.CharComment(u"|");
  Box->Type(u"|a\r\nb REM c\r\n");
  EXPECT_EQ(Outcome(Run), (List{"send |a", "send b REM c"}));
}

TEST_F(LineRunners, WithoutAStepCommandRaise) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"Step", Ref<IObject>()));
  Box->Type(u"*RST\r\nnext\r\n");
  const auto error = Raised([&] { Outcome(Run); });
  ExpectError(error, 31004, u"Cannot create a step command.");
  ExpectTrail(error, {});
  EXPECT_EQ(Shown(), "next\\r\\n");
  EXPECT_EQ(Current(), "*RST");
}

TEST_F(LineRunners, PassTheFailureOfAStepOnAndLoseItsLine) {
  Processor->Answer = 1;
  for (LineRunner* runner : {static_cast<LineRunner*>(&Run), static_cast<LineRunner*>(&Step)}) {
    Box->Type(u"*RST\r\n");
    const auto error = Raised([&] { Outcome(*runner); });
    ExpectError(error, 17, u"Instruction was not handled.");
    ExpectTrail(error, {u"CStep.ICommand_Execute"});
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Current(), "*RST");
    HuntERR::Reset();
  }
}

TEST_F(LineRunners, GiveTheStepOneParameterTheInstruction) {
  const auto creator = New<CreatorOfOne>(u"Step", Ref<IObject>());
  gObjectFactory->Substitue(creator);
  Box->Type(u"*RST\r\n");
  Raised([&] { Outcome(Run); });
  EXPECT_EQ(creator->LastCount, 1U);
}

TEST_F(LineRunners, CanRunAgain) {
  for (int i = 0; i < 2; ++i) {
    Box->Type(u"*RST\r\n");
    Run.CommandQueue(Box);
    Calls.clear();
    Run.Execute();
    EXPECT_EQ(Done(), List{"send *RST"});
  }
}

TEST_F(CommandRunner, GivesOneTurnToEachPopAndOneToEachPass) {
  Box->Type(u"a\r\nb\r\n");
  Outcome(Run);
  EXPECT_EQ(Loop->Turns, 5); // three lines with the end, two passes
}

TEST_F(CommandRunner, WithOnlyRemarksShowsThemAll) {
  Box->Type(u"REM a\r\n\r\nREM b\r\n");
  EXPECT_EQ(Outcome(Run), (List{"show REM a", "show ", "show REM b"}));
  EXPECT_EQ(Shown(), "");
}

TEST_F(CommandRunner, StopLetsTheInstructionFinishAndLosesTheLineBehindIt) {
  Box->Type(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  StopAt("one");
  EXPECT_EQ(Outcome(Run), List{"send one"});
  EXPECT_EQ(Shown(), "three\\r\\nfour\\r\\n"); // "two" was off the window before the flag was read
  EXPECT_EQ(Current(), "one");
}

TEST_F(CommandRunner, StopInTheFirstTurnSendsNothing) {
  Box->Type(u"one\r\ntwo\r\n");
  Loop->OnTurn = [&] { Window->StopRequested(true); };
  EXPECT_EQ(Outcome(Run), List{});
  EXPECT_EQ(Shown(), "two\\r\\n");
}

TEST_F(CommandRunner, DoesNotClearTheFlag) {
  Window->StopRequested(true);
  Box->Type(u"one\r\n");
  Outcome(Run);
  EXPECT_TRUE(Window->StopRequested());
}

TEST_F(CommandRunner, ShowsBlankLinesForEverUntilStop) {
  Box->Type(u"  ");
  int shown = 0;
  Run.Add2History.Connect([&](const String&) {
    if (++shown == 5) Window->StopRequested(true);
  });
  Outcome(Run);
  EXPECT_EQ(shown, 5);
  EXPECT_EQ(Shown(), "  ");
}

TEST_F(CommandRunner, EndsAtATypedCharacter26AndLosesThatLine) {
  Box->Type(u"one\r\n\x1A three\r\nfour\r\n");
  EXPECT_EQ(Outcome(Run), List{"send one"});
  EXPECT_EQ(Shown(), "four\\r\\n");
}

TEST_F(CommandRunner, RunsLinesThatAppearDuringTheRun) {
  Box->Type(u"one\r\n");
  Processor->OnSend = [&](const std::string& text) {
    if (text == "one") Box->Type(u"two\r\n");
  };
  EXPECT_EQ(Outcome(Run), (List{"send one", "send two"}));
}

TEST_F(CommandStepper, SendsExactlyOneInstruction) {
  Box->Type(u"one\r\ntwo\r\n");
  EXPECT_EQ(Outcome(Step), List{"send one"});
  EXPECT_EQ(Shown(), "two\\r\\n");
}

TEST_F(CommandStepper, PassesOverWhatStandsInFrontAndLeavesWhatStandsBehind) {
  Box->Type(u"REM a\r\n\r\n\u00AEok\r\none\r\nREM b\r\n\u00AEok\r\n");
  EXPECT_EQ(Outcome(Step), (List{"show REM a", "show ", "send one"}));
  EXPECT_EQ(Shown(), "REM b\\r\\n\u00AEok\\r\\n");
}

TEST_F(CommandStepper, WithoutAnInstructionEndsWithTheWindow) {
  Box->Type(u"REM a\r\nREM b\r\n");
  EXPECT_EQ(Outcome(Step), (List{"show REM a", "show REM b"}));
  EXPECT_EQ(Shown(), "");
}

TEST_F(CommandStepper, ReadsStopAfterTheLineWasActedOn) {
  Box->Type(u"REM a\r\nREM b\r\n");
  Loop->OnTurn = [&] { Window->StopRequested(true); };
  EXPECT_EQ(Outcome(Step), List{"show REM a"});
  EXPECT_EQ(Shown(), "REM b\\r\\n");
}

TEST_F(CommandStepper, GivesTwoTurnsToEachLine) {
  Box->Type(u"REM a\r\none\r\n");
  Outcome(Step);
  EXPECT_EQ(Loop->Turns, 4);
}

TEST_F(CommandCursorRunner, RunsTheLinesAboveTheCaret) {
  Box->Type(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  Box->PlaceCaret(12); // inside the third line
  EXPECT_EQ(Outcome(Cursor), (List{"send one", "send two"}));
  EXPECT_EQ(Shown(), "three\\r\\nfour\\r\\n");
}

TEST_F(CommandCursorRunner, CountsEveryKindOfLine) {
  Box->Type(u"REM a\r\n\u00AEok\r\n\r\none\r\ntwo\r\n");
  Box->PlaceCaret(Box->Contents().find(u"two"));
  EXPECT_EQ(Outcome(Cursor), (List{"show REM a", "show ", "send one"}));
  EXPECT_EQ(Shown(), "two\\r\\n");
}

TEST_F(CommandCursorRunner, WithTheCaretOnTheFirstLineRunsEverything) {
  Box->Type(u"one\r\ntwo\r\nthree");
  Box->PlaceCaret(2);
  EXPECT_EQ(Outcome(Cursor), (List{"send one", "send two", "send three"}));
  EXPECT_EQ(Shown(), "");
}

TEST_F(CommandCursorRunner, WithTheCaretBehindTheTextRunsEverythingAbove) {
  Box->Type(u"one\r\ntwo\r\n");
  Box->PlaceCaret(10);
  EXPECT_EQ(Outcome(Cursor), (List{"send one", "send two"}));
}

TEST_F(CommandCursorRunner, TakesItsTargetOnceBeforeTheFirstLine) {
  Box->Type(u"one\r\ntwo\r\nthree\r\n");
  Box->PlaceCaret(12);
  BoxCalls.clear();
  Outcome(Cursor);
  ASSERT_GE(BoxCalls.size(), 2U);
  EXPECT_EQ(BoxCalls[0], "future.get SelStart");
  EXPECT_EQ(BoxCalls[1], "future.GetLineFromChar 12");
  EXPECT_EQ(std::count(BoxCalls.begin(), BoxCalls.end(), "future.GetLineFromChar 12"), 1);
}

TEST_F(CommandCursorRunner, StopLosesNoLine) {
  Box->Type(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  Box->PlaceCaret(17);
  StopAt("one");
  EXPECT_EQ(Outcome(Cursor), List{"send one"});
  EXPECT_EQ(Shown(), "two\\r\\nthree\\r\\nfour\\r\\n");
}

TEST_F(CommandCursorRunner, GivesTwoTurnsToEachLine) {
  Box->Type(u"REM a\r\none\r\ntwo\r\n");
  Box->PlaceCaret(12); // in the third line
  EXPECT_EQ(Outcome(Cursor), (List{"show REM a", "send one"}));
  EXPECT_EQ(Loop->Turns, 4); // one to each pop, one to each pass
}

TEST_F(CommandCursorRunner, AnotherRunWithinItLeavesItsTargetAndItsCount) {
  Box->Type(u"one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n");
  Box->PlaceCaret(17); // in the fourth line
  Processor->OnSend = [&](const std::string& text) {
    if (text != "one") return;
    Box->PlaceCaret(5); // in what is the second line now
    Cursor.Execute();
  };
  EXPECT_EQ(Outcome(Cursor), (List{"send one", "send two", "send three", "send four"}));
  EXPECT_EQ(Shown(), "five\\r\\n");
}

TEST_F(CommandCursorRunner, CanRunAgainWithANewTarget) {
  Box->Type(u"one\r\ntwo\r\nthree\r\n");
  for (const auto* expected : {"send one", "send two"}) {
    Box->PlaceCaret(Box->Contents().find(u"\r\n") + 2);
    Cursor.CommandQueue(Box);
    Calls.clear();
    Cursor.Execute();
    EXPECT_EQ(Done(), List{expected});
  }
  EXPECT_EQ(Shown(), "three\\r\\n");
}

} // namespace
} // namespace portico::test
