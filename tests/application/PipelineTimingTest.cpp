#include "framework/errors/Quit.h"
#include "support/fixtures/PipelineFixture.h"

namespace portico {
namespace {

using namespace std::chrono_literals;
using test::Journal;

/// Paced instructions on a clock that only the waits and the test itself move.
class PipelineTiming : public test::PipelineFixture {
protected:
  void SetUp() override {
    PipelineFixture::SetUp();
    SetAllOff();
    Set(u"IntervalPacing", u"On");
    Set(u"PacingInterval", u"1000");
    m_start = Clock.Now();
    Driver->OnCall = [this](const std::string& line) {
      if (line.rfind("write ", 0) == 0) m_writes.push_back(Now());
    };
  }

  std::chrono::milliseconds Now() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - m_start);
  }

  using Times = std::vector<std::chrono::milliseconds>;
  Times m_writes;

private:
  memory::Clock::TimePoint m_start;
};

TEST_F(PipelineTiming, TheFirstInstructionIsNotHeld) {
  SendLine(u"*RST");
  EXPECT_EQ(m_writes, Times{0ms});
}

TEST_F(PipelineTiming, TheSecondIsHeldUntilTheIntervalIsOverAndNoLonger) {
  SendLine(u"*RST");
  SendLine(u"*CLS");
  EXPECT_EQ(m_writes, (Times{0ms, 1000ms}));
}

TEST_F(PipelineTiming, TimeThatTheUserTookCountsAsRest) {
  SendLine(u"*RST");
  Clock.Advance(400ms);
  SendLine(u"*CLS");
  EXPECT_EQ(m_writes, (Times{0ms, 1000ms}));
}

TEST_F(PipelineTiming, AnInstructionAfterTheIntervalIsNotHeldAtAll) {
  SendLine(u"*RST");
  Clock.Advance(1700ms);
  SendLine(u"*CLS");
  SendLine(u"*WAI");
  EXPECT_EQ(m_writes, (Times{0ms, 1700ms, 2700ms})) << "the next interval runs from the start of the second";
}

TEST_F(PipelineTiming, ANewIntervalHoldsFromTheInstructionThatReadItOn) {
  SendLine(u"*RST");
  Set(u"PacingInterval", u"200");
  SendLine(u"*CLS");
  SendLine(u"*WAI");
  EXPECT_EQ(m_writes, (Times{0ms, 1000ms, 1200ms}));
}

TEST_F(PipelineTiming, CommunicationInstructionsAreNotHeld) {
  SendLine(u"*RST");
  Send(test::MakeInstruction(u"COMM", u"Write", {{u"Data", u"*CLS"}}));
  EXPECT_EQ(m_writes, (Times{0ms, 0ms}));
}

TEST_F(PipelineTiming, AnIntervalThatIsNoNumberFailsBeforeAnythingIsSent) {
  Set(u"OPCPacing", u"On");
  Set(u"PacingInterval", u"soon");
  EXPECT_EQ(test::FailureOf([this] { SendLine(u"*RST"); }).Number, 13);
  EXPECT_EQ(Calls, Journal{});
}

TEST_F(PipelineTiming, QuitInTheWaitPassesWithoutAReportAndNothingMoreIsSent) {
  Set(u"OPCPacing", u"On");
  Set(u"AutoReadAfterQueryMode", u"On");
  Set(u"AutoErrorCheckingMode", u"On");
  SendLine(u"*RST");
  Calls.clear();

  const auto timer = Loop->MakeTimer();
  timer->Timer().Connect([this] { Loop->RequestQuit(); });
  timer->Interval(500);
  timer->Enabled(true);
  EXPECT_THROW(SendLine(u"*CLS"), Quit);

  EXPECT_EQ(Now(), 500ms);
  EXPECT_EQ(Calls, (Journal{"write *OPC?", "report CWriteCmd", "read", "report CReadCmd"}));
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(PipelineTiming, QuitBeforeTheWaitPassesToo) {
  Loop->RequestQuit();
  EXPECT_THROW(SendLine(u"*RST"), Quit);
  EXPECT_EQ(Calls, Journal{});
}

TEST_F(PipelineTiming, QuitOutOfASubscriberPassesWithoutAReport) {
  Subscriber->OnReport = [] { throw Quit{}; };
  Set(u"AutoErrorCheckingMode", u"On");
  Set(u"IntervalPacing", u"Off");
  EXPECT_THROW(SendLine(u"*RST"), Quit);
  EXPECT_EQ(Calls, (Journal{"write *RST", "report CWriteCmd"}));
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
}

} // namespace
} // namespace portico
