#include "terminal/BatchRunBench.h"

#include <csignal>

namespace portico::terminal {
namespace {

using namespace std::chrono_literals;

class BatchRunRepeatTest : public test::BatchRunBench {
protected:
  BatchRunRepeatTest() {
    TurnOffPacingAndChecking();
    Driver->OnCall = [this](const std::string& call) {
      if (!call.starts_with("write")) return;
      const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - m_start);
      Sent.push_back(std::to_string(elapsed.count()) + " " + call.substr(6));
      if (OnSend) OnSend();
    };
  }

  /// What was sent, behind the milliseconds since the beginning.
  Calls Sent;
  std::function<void()> OnSend;

private:
  const test::ManualClock::TimePoint m_start = Clock.Now();
};

TEST_F(BatchRunRepeatTest, AllSourcesAreRunSoManyTimesOverOneSession) {
  Options.Repeat = {3, 0ms};
  Sources sources;
  sources.push_back(std::make_unique<FileLines>("one.cmd", std::vector<String>{u"A", u"REM a"}));
  sources.push_back(std::make_unique<FileLines>("two.cmd", std::vector<String>{u"B"}));
  EXPECT_EQ(RunSources(sources), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write A", "write B", "write A", "write B", "write A",
                         "write B", "close"}));
  EXPECT_EQ(Out.str(), "> A\n# REM a\n> B\n> A\n# REM a\n> B\n> A\n# REM a\n> B\n");
  EXPECT_EQ(Err.str(), "");
}

TEST_F(BatchRunRepeatTest, TurnsComeStartToStart) {
  Options.Repeat = {3, 1000ms};
  OnSend = [this] { Clock.Advance(300ms); };
  EXPECT_EQ(Run({u"A", u"B"}), 0);
  EXPECT_EQ(Sent, (Calls{"0 A", "300 B", "1000 A", "1300 B", "2000 A", "2300 B"}));
  EXPECT_EQ(Err.str(), "");
}

TEST_F(BatchRunRepeatTest, AWaitMayBeLongerThanATimers) {
  Options.Repeat = {2, 200s};
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_EQ(Sent, (Calls{"0 A", "200000 A"}));
}

TEST_F(BatchRunRepeatTest, WhatIsTooLateIsSkippedAndTold) {
  Options.Repeat = {3, 1000ms};
  OnSend = [this] { Clock.Advance(Sent.size() == 1 ? 2500ms : 100ms); };
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_EQ(Sent, (Calls{"0 A", "3000 A", "4000 A"}));
  EXPECT_EQ(Err.str(), "portico-run: 2 turns were skipped, because the one in front was not over in time\n");
}

TEST_F(BatchRunRepeatTest, OneThatIsSkippedIsToldInTheSingular) {
  Options.Repeat = {2, 1000ms};
  OnSend = [this] { Clock.Advance(1500ms); };
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_EQ(Err.str(), "portico-run: 1 turn was skipped, because the one in front was not over in time\n");
}

TEST_F(BatchRunRepeatTest, ForEverIsUntilTheInterrupt) {
  Options.Repeat = {{}, 1000ms};
  OnSend = [this] {
    if (Sent.size() == 5) raise(SIGINT);
  };
  EXPECT_EQ(Run({u"A", u"B"}), 130);
  EXPECT_EQ(Sent, (Calls{"0 A", "0 B", "1000 A", "1000 B", "2000 A"})) << "it ends behind the instruction";
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1 (turn 3): interrupted\n");
  EXPECT_EQ(Wire.back(), "close");
}

TEST_F(BatchRunRepeatTest, InterruptEndsTheWaitBetweenTurns) {
  Options.Repeat = {{}, 1000ms};
  Clock.OnWait = [](std::chrono::milliseconds) { raise(SIGINT); };
  EXPECT_EQ(Run({u"A", u"B"}), 130);
  EXPECT_EQ(Sent, (Calls{"0 A", "0 B"}));
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:2 (turn 1): interrupted\n");
  EXPECT_EQ(Wire.back(), "close");
  EXPECT_EQ(Clock.Now(), test::ManualClock().Now()) << "at once";
}

TEST_F(BatchRunRepeatTest, SecondInterruptInTheWaitEndsItToo) {
  Options.Repeat = {{}, 1000ms};
  Clock.OnWait = [](std::chrono::milliseconds) {
    raise(SIGINT);
    raise(SIGINT);
  };
  EXPECT_EQ(Run({u"A"}), 130);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1 (turn 1): interrupted\n");
}

TEST_F(BatchRunRepeatTest, OutputIsFlushedBeforeTheWait) {
  Options.Repeat = {2, 1000ms};
  int flushes = 0;
  Loop->BeforeWait.Connect([&] { flushes += Out.str() == "> A\n" ? 1 : 0; });
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_GT(flushes, 0);
}

TEST_F(BatchRunRepeatTest, FailuresTellTheirTurn) {
  Options.Repeat = {3, 0ms};
  Options.Options.pop_back(); // the last of those that are off: the error query is asked
  Answers.Listed[":SYST:ERR?"] = "-113,\"Undefined header\"";
  EXPECT_EQ(Run({u"FOO"}), 1);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1 (turn 1): the instrument reports -113,\"Undefined header\"\n"
                       "portico-run: lines.cmd:1 (turn 2): the instrument reports -113,\"Undefined header\"\n"
                       "portico-run: lines.cmd:1 (turn 3): the instrument reports -113,\"Undefined header\"\n");
}

TEST_F(BatchRunRepeatTest, StopOnErrorEndsAllTurns) {
  Options.Repeat = {{}, 1000ms};
  Options.StopOnError = true;
  OnSend = [this] {
    if (Sent.size() == 4) Driver->Statuses["write A"] = -9;
  };
  EXPECT_EQ(Run({u"A", u"B"}), 4);
  EXPECT_EQ(Sent, (Calls{"0 A", "0 B", "1000 A", "1000 B", "2000 A"}));
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1 (turn 3): failure -9\n");
}

TEST_F(BatchRunRepeatTest, FailureThatGoesOnOverTurnsIsToldOnce) {
  Options.Repeat = {50, 0ms};
  Driver->Statuses["write A"] = -9;
  EXPECT_EQ(Run({u"A"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1 (turn 1): failure -9\n"
                       "portico-run: lines.cmd:1 (turn 50): failure -9 (50 times)\n");
}

TEST_F(BatchRunRepeatTest, ProgressTellsTurnSkippedAndWait) {
  Options.Repeat = {3, 1000ms};
  Options.ShowProgress = true;
  OnSend = [this] { Clock.Advance(Sent.size() == 1 ? 1500ms : 500ms); };
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_EQ(Err.str(), "\rturn 1 of 3: 1 of 1 lines, 0.7/s, 0:00 left\x1B[K"
                       "\rturn 2 of 3, 1 skipped: waiting\x1B[K"
                       "\rturn 2 of 3, 1 skipped: 1 of 1 lines, 2.0/s, 0:00 left\x1B[K"
                       "\rturn 3 of 3, 1 skipped: waiting\x1B[K"
                       "\rturn 3 of 3, 1 skipped: 1 of 1 lines, 2.0/s, 0:00 left\x1B[K"
                       "\r\x1B[K"
                       "portico-run: 1 turn was skipped, because the one in front was not over in time\n");
}

TEST_F(BatchRunRepeatTest, WithAnInterruptBeforeItNothingIsOpened) {
  raise(SIGINT);
  EXPECT_EQ(Run({u"A"}), 130);
  EXPECT_EQ(Wire, Calls());
  EXPECT_EQ(Err.str(), "portico-run: interrupted\n");
}

} // namespace
} // namespace portico::terminal
