#include "views/repeat/RepeatedRun.h"

#include "memory/EventLoop.h"
#include "memory/RichTextBox.h"
#include "support/doubles/ManualClock.h"
#include "views/RunFixture.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;

/// Turns on a clock that passes only while somebody waits, or an instruction takes its time.
class RepeatedRunTest : public RunFixture {
protected:
  RepeatedRunTest() {
    gEventLoop = std::make_shared<memory::EventLoop>(Clock);
    Clock.OnWait = [this](std::chrono::milliseconds time) { Waits.push_back(time.count()); };
    const auto source = New<memory::RichTextBox>();
    source->Text(u"one\r\n");
    Lines->Copy(*source);
    Processor->OnSend = [this](const std::string&) {
      Starts.push_back(std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - Begin).count());
      if (!Takes.empty()) {
        Clock.Advance(Takes.front());
        Takes.erase(Takes.begin());
      }
    };
  }
  RepeatedRun::Outcome Run(std::optional<std::uint64_t> turns, std::chrono::milliseconds every) {
    Begin = Clock.Now();
    return Repeated.Run(Lines, {.Turns = turns, .Every = every});
  }

  ManualClock Clock;
  std::vector<std::string> PastCalls;
  Ref<RecordingTextBox> Past = New<RecordingTextBox>(PastCalls);
  RunFrame Frame{Box, Past};
  RepeatedRun Repeated{Frame, [this] { return Clock.Now(); }};
  Ref<RepeatedLines> Lines = New<RepeatedLines>();
  ManualClock::TimePoint Begin;
  std::vector<std::chrono::milliseconds> Takes;
  std::vector<std::int64_t> Starts;
  std::vector<std::int64_t> Waits;
};

TEST_F(RepeatedRunTest, TurnsAreSoFarApartFromStartToStart) {
  Takes = {300ms, 1s};
  const auto outcome = Run(4, 1s);
  EXPECT_EQ(Starts, (std::vector<std::int64_t>{0, 1000, 2000, 3000}));
  EXPECT_EQ(outcome.Begun, 4U);
  EXPECT_EQ(outcome.Skipped, 0U);
  EXPECT_FALSE(outcome.IsStopped);
}

TEST_F(RepeatedRunTest, OneThatComesTooLateIsSkippedAndCounted) {
  Takes = {2500ms};
  const auto outcome = Run(2, 1s);
  EXPECT_EQ(Starts, (std::vector<std::int64_t>{0, 3000}));
  EXPECT_EQ(outcome.Begun, 2U);
  EXPECT_EQ(outcome.Skipped, 2U);
  EXPECT_FALSE(outcome.IsStopped);
}

TEST_F(RepeatedRunTest, TheWaitIsOneAndNoBusyLoop) {
  Run(3, 1s);
  EXPECT_EQ(Waits, (std::vector<std::int64_t>{1000, 1000}));
}

TEST_F(RepeatedRunTest, ALongWaitIsCutWhereATimerEnds) {
  Run(2, 100s);
  EXPECT_EQ(Waits, (std::vector<std::int64_t>{65535, 34465}));
}

TEST_F(RepeatedRunTest, WithoutAnIntervalThereIsNoWait) {
  const auto outcome = Run(3, 0s);
  EXPECT_TRUE(Waits.empty());
  EXPECT_EQ(outcome.Begun, 3U);
}

TEST_F(RepeatedRunTest, OneFrameSurroundsAllTurns) {
  Calls.clear();
  Processor->OnSend = {};
  Run(3, 0s);
  EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "Executing on"), 1);
  EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "Executing off"), 1);
  EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "UpdateUI ="), 2);
  EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "send SCPI.Send one"), 3);
}

TEST_F(RepeatedRunTest, OnlyTheFirstTurnTellsWhatItSends) {
  std::vector<std::string> sent;
  Repeated.Sending.Connect([&](const String& line) { sent.push_back(ToUtf8(line)); });
  Run(3, 0s);
  EXPECT_EQ(sent, (std::vector<std::string>{"one"}));
}

TEST_F(RepeatedRunTest, TellsWhetherItGoesOnAlsoWhenATurnFails) {
  EXPECT_FALSE(Repeated.GoesOn());
  Processor->OnSend = [this](const std::string&) { EXPECT_TRUE(Repeated.GoesOn()); };
  Run(1, 0s);
  EXPECT_FALSE(Repeated.GoesOn());
  Processor->Answer = 1;
  ExpectError(Raised([this] { Run(2, 0s); }), 17, u"Instruction was not handled.");
  EXPECT_FALSE(Repeated.GoesOn());
}

TEST_F(RepeatedRunTest, AStoppedTurnCountsAsBegun) {
  Processor->OnSend = [this](const std::string&) {
    Window->StopRequested(Starts.size() == 1);
    Starts.push_back(0);
  };
  const auto outcome = Run({}, 1s);
  EXPECT_EQ(outcome.Begun, 2U);
  EXPECT_TRUE(outcome.IsStopped);
}

TEST_F(RepeatedRunTest, BehindAStoppedTurnNoneIsSkipped) {
  Processor->OnSend = [this](const std::string&) {
    Clock.Advance(2500ms);
    Window->StopRequested(true);
  };
  const auto outcome = Run({}, 1s);
  EXPECT_EQ(outcome.Begun, 1U);
  EXPECT_EQ(outcome.Skipped, 0U);
  EXPECT_TRUE(outcome.IsStopped);
}

} // namespace
} // namespace portico::test
