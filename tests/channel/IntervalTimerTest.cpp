#include "channel/CIntervalTimer.h"

#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "framework/objects/CObjectFactory.h"
#include "memory/EventLoop.h"
#include "support/Labels.h"
#include "support/doubles/ManualClock.h"

#include <gmock/gmock.h>

namespace portico {
namespace {

using namespace std::chrono_literals;
using test::ExpectError;
using test::ExpectTrail;
using test::Raised;

class IntervalTimerTest : public ::testing::Test {
protected:
  IntervalTimerTest() {
    gEventLoop = Loop;
    Timer = New<CIntervalTimer>();
  }
  ~IntervalTimerTest() override {
    Timer = nullptr;
    gEventLoop = nullptr;
    HuntERR::Reset();
  }

  std::chrono::milliseconds Elapsed() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - memory::Clock::TimePoint{});
  }
  void ExpectElapsedResponse(const Ref<IResponse>& response) {
    EXPECT_EQ(response->ErrorCode(), 0);
    EXPECT_EQ(response->ErrorMessage(), u"Success");
    EXPECT_EQ(response->ResponseData(), u"Interval has elapsed.");
  }

  test::ManualClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  Ref<CIntervalTimer> Timer;
};

TEST_F(IntervalTimerTest, FirstStartReturnsAtOnce) {
  ExpectElapsedResponse(Timer->StartWhenDone(1000));
  EXPECT_EQ(Elapsed(), 0ms);
}

TEST_F(IntervalTimerTest, SecondStartIsHeldForTheIntervalAndNoLonger) {
  Timer->StartWhenDone(1000);
  ExpectElapsedResponse(Timer->StartWhenDone(1000));
  EXPECT_EQ(Elapsed(), 1000ms);
}

TEST_F(IntervalTimerTest, SecondStartIsHeldOnlyForWhatRemains) {
  Timer->StartWhenDone(1000);
  Clock.Advance(400ms);
  Timer->StartWhenDone(1000);
  EXPECT_EQ(Elapsed(), 1000ms);
}

TEST_F(IntervalTimerTest, StartAfterTheIntervalHasElapsedIsNotHeld) {
  Timer->StartWhenDone(1000);
  Clock.Advance(1000ms);
  Timer->StartWhenDone(1000);
  EXPECT_EQ(Elapsed(), 1000ms);
  Clock.Advance(5000ms);
  Timer->StartWhenDone(1000);
  EXPECT_EQ(Elapsed(), 6000ms);
}

TEST_F(IntervalTimerTest, WaitIsForTheIntervalOfTheStartBefore) {
  Timer->StartWhenDone(200);
  Timer->StartWhenDone(5000);
  EXPECT_EQ(Elapsed(), 200ms);
  Timer->StartWhenDone(1);
  EXPECT_EQ(Elapsed(), 5200ms);
}

TEST_F(IntervalTimerTest, LongestIntervalIsHeld) {
  Timer->StartWhenDone(65535);
  Timer->StartWhenDone(1);
  EXPECT_EQ(Elapsed(), 65535ms);
}

TEST_F(IntervalTimerTest, OtherEventsAreProcessedDuringTheWait) {
  int ticks = 0;
  const auto other = Loop->MakeTimer();
  other->Timer().Connect([&] { ++ticks; });
  other->Interval(300);
  other->Enabled(true);
  Timer->StartWhenDone(1000);
  Timer->StartWhenDone(1000);
  EXPECT_EQ(ticks, 3);
}

TEST_F(IntervalTimerTest, EventsAreProcessedAlsoWhenNothingIsWaitedFor) {
  int ticks = 0;
  const auto other = Loop->MakeTimer();
  other->Timer().Connect([&] { ++ticks; });
  other->Interval(300);
  other->Enabled(true);
  Clock.Advance(300ms);
  Timer->StartWhenDone(1000);
  EXPECT_EQ(ticks, 1);
}

TEST_F(IntervalTimerTest, StartFromInsideTheWaitIsWaitedForToo) {
  const auto other = Loop->MakeTimer();
  other->Timer().Connect([&] {
    other->Enabled(false);
    Timer->StartWhenDone(500); // held until 1000, runs until 1500
  });
  other->Interval(100);
  other->Enabled(true);
  Timer->StartWhenDone(1000);
  ExpectElapsedResponse(Timer->StartWhenDone(1000));
  EXPECT_EQ(Elapsed(), 1500ms);
}

TEST_F(IntervalTimerTest, IntervalOfZeroIsWaitedForUntilTheUserEndsTheProgram) {
  bool idle = false;
  ExpectElapsedResponse(Timer->StartWhenDone(0));
  Clock.OnIdle = [&] {
    idle = true;
    Loop->RequestQuit();
  };
  EXPECT_THROW(Timer->StartWhenDone(1000), Quit);
  EXPECT_TRUE(idle);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(IntervalTimerTest, QuitEndsARunningWait) {
  Timer->StartWhenDone(1000);
  const auto other = Loop->MakeTimer();
  other->Timer().Connect([&] { Loop->RequestQuit(); });
  other->Interval(100);
  other->Enabled(true);
  EXPECT_THROW(Timer->StartWhenDone(1000), Quit);
  EXPECT_EQ(Elapsed(), 100ms);
}

TEST_F(IntervalTimerTest, IntervalThatTheTimerRefusesRaises380) {
  for (const std::int32_t interval : {65536, INT32_MAX}) {
    const auto fresh = New<CIntervalTimer>();
    const ErrorRecord error = Raised([&] { fresh->StartWhenDone(interval); });
    EXPECT_EQ(error.Number, 380);
    ExpectTrail(error, {u"CIntervalTimer.StartWhenDone(Interval)"});
  }
}

TEST_F(IntervalTimerTest, RefusedIntervalCountsAsOneThatRuns) {
  Raised([&] { Timer->StartWhenDone(65536); });
  Clock.OnIdle = [&] { Loop->RequestQuit(); };
  EXPECT_THROW(Timer->StartWhenDone(1), Quit);
}

TEST_F(IntervalTimerTest, WithoutAnEventLoopItCannotBeMade) {
  gEventLoop = nullptr;
  EXPECT_THROW(New<CIntervalTimer>(), Error);
  EXPECT_EQ(HuntERR::ErrNumber(), 91);
  ExpectTrail(HuntERR::ErrDescription(), {u"CIntervalTimer.Class_Initialize"});
}

/// A loop that notes how its timers are used. No event ever comes but those that the test fires.
class RecordingLoop final : public IEventLoop {
public:
  using Notes = std::vector<std::string>;

  void DoEvents() override { Seen.emplace_back("DoEvents"); }
  void WaitForEvent() override {
    Seen.emplace_back("WaitForEvent");
    (*Elapse)();
  }
  void RequestQuit() noexcept override {}
  std::unique_ptr<ITimer> MakeTimer() override { return std::make_unique<RecordingTimer>(*this); }

  Notes Seen;
  Event<>* Elapse = nullptr;

private:
  class RecordingTimer final : public ITimer {
  public:
    explicit RecordingTimer(RecordingLoop& loop) : m_loop(loop) { m_loop.Elapse = &m_event; }
    void Interval(std::int32_t milliseconds) override {
      m_loop.Seen.push_back("Interval=" + std::to_string(milliseconds));
    }
    void Enabled(bool newValue) override {
      m_enabled = newValue;
      m_loop.Seen.emplace_back(newValue ? "Enabled" : "Disabled");
    }
    bool Enabled() const override { return m_enabled; }
    Event<>& Timer() override { return m_event; }

  private:
    RecordingLoop& m_loop;
    Event<> m_event;
    bool m_enabled = false;
  };
};

class IntervalTimerControlTest : public ::testing::Test {
protected:
  IntervalTimerControlTest() { gEventLoop = Loop; }
  ~IntervalTimerControlTest() override {
    gEventLoop = nullptr;
    HuntERR::Reset();
  }
  std::shared_ptr<RecordingLoop> Loop = std::make_shared<RecordingLoop>();
};

TEST_F(IntervalTimerControlTest, IsSetAndEnabledAtTheStartAndDisabledByItsEvent) {
  const auto timer = New<CIntervalTimer>();
  Loop->Seen.clear();
  timer->StartWhenDone(250);
  EXPECT_EQ(Loop->Seen, (RecordingLoop::Notes{"DoEvents", "Interval=250", "Enabled"}));
  Loop->Seen.clear();
  (*Loop->Elapse)();
  EXPECT_EQ(Loop->Seen, (RecordingLoop::Notes{"Disabled"}));
}

TEST_F(IntervalTimerControlTest, WaitBlocksBetweenEvents) {
  const auto timer = New<CIntervalTimer>();
  timer->StartWhenDone(250);
  Loop->Seen.clear();
  timer->StartWhenDone(250);
  EXPECT_EQ(Loop->Seen, (RecordingLoop::Notes{"DoEvents", "WaitForEvent", "Disabled", "Interval=250", "Enabled"}));
}

TEST_F(IntervalTimerControlTest, IsDisabledWhenTheTimerGoes) {
  auto timer = New<CIntervalTimer>();
  timer->StartWhenDone(250);
  Loop->Seen.clear();
  timer = nullptr;
  EXPECT_EQ(Loop->Seen, (RecordingLoop::Notes{"Disabled"}));
}

class CtorIntervalTimerTest : public IntervalTimerTest {
protected:
  Ref<ICreator> Creator = MakeCreator(CtorIntervalTimer);
};

TEST_F(CtorIntervalTimerTest, HandsTheOneTimerOutForEveryRequest) {
  EXPECT_EQ(Creator->ClassName(), u"CtorIntervalTimer");
  EXPECT_EQ(Creator->Specification().ToString(), u"IntervalTimer");
  EXPECT_TRUE(IsSameObject(Creator->Create({}), Creator->Create({})));
}

TEST_F(CtorIntervalTimerTest, TakesNoParametersAndBearsTheLabelsOfTheCloseCommand) {
  const ErrorRecord error = Raised([&] { Creator->Create({1000}); });
  ExpectError(error, 450, u"Expected 0 parameters.");
  ExpectTrail(error, {u"CtorCloseCmd.ICreator_Create(Params)"});
  ExpectTrail(Raised([&] { Creator->IsMatch(Timer); }), {u"CtorCloseCmd.ICreator_IsMatch(Specification)"});
}

TEST_F(CtorIntervalTimerTest, MissingTimerRaises5) {
  CreatorRow row = CtorIntervalTimer;
  row.Make = [](const Params&) -> Ref<IObject> { return {}; };
  ExpectError(Raised([&] { MakeCreator(row)->Create({}); }), 5, u"Interval timer is invalid.");
}

} // namespace
} // namespace portico
