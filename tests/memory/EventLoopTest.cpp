#include "memory/EventLoop.h"

#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "support/ErrorReports.h"
#include "support/doubles/ManualClock.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace portico::memory {
namespace {

using namespace std::chrono_literals;
using test::ManualClock;

class EventLoopTest : public ::testing::Test {
protected:
  ~EventLoopTest() override { HuntERR::Reset(); }

  /// An enabled timer that notes its name and then does `action`.
  std::unique_ptr<ITimer> Started(char name, std::int32_t interval, std::function<void()> action = {}) {
    auto timer = Loop.MakeTimer();
    timer->Timer().Connect([this, name, does = std::move(action)] {
      Fired += name;
      if (does) does();
    });
    timer->Interval(interval);
    timer->Enabled(true);
    return timer;
  }
  void AdvanceAndTurn(std::chrono::milliseconds duration) {
    Time.Advance(duration);
    Loop.DoEvents();
  }
  std::chrono::milliseconds Elapsed() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Time.Now() - Clock::TimePoint{});
  }

  ManualClock Time;
  EventLoop Loop{Time};
  std::string Fired;
};

TEST_F(EventLoopTest, TurnWithoutEventsReturns) {
  EXPECT_NO_THROW(Loop.DoEvents());
  EXPECT_EQ(Elapsed(), 0ms);
}

TEST_F(EventLoopTest, TimerFiresWhenItIsDueAndNotBefore) {
  const auto timer = Started('a', 100);
  AdvanceAndTurn(99ms);
  EXPECT_EQ(Fired, "");
  AdvanceAndTurn(1ms);
  EXPECT_EQ(Fired, "a");
  EXPECT_TRUE(timer->Enabled());
}

TEST_F(EventLoopTest, TimerFiresAgainAndAgain) {
  const auto timer = Started('a', 100);
  for (int i = 0; i < 3; ++i) AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "aaa");
}

TEST_F(EventLoopTest, LateTurnFiresOnceAndStartsAnewFromThere) {
  const auto timer = Started('a', 100);
  AdvanceAndTurn(350ms);
  EXPECT_EQ(Fired, "a");
  AdvanceAndTurn(99ms);
  EXPECT_EQ(Fired, "a");
  AdvanceAndTurn(1ms);
  EXPECT_EQ(Fired, "aa");
}

TEST_F(EventLoopTest, TimersFireInTheOrderInWhichTheyAreDue) {
  const auto slow = Started('s', 300);
  const auto quick = Started('q', 100);
  const auto middle = Started('m', 200);
  AdvanceAndTurn(300ms);
  EXPECT_EQ(Fired, "qms");
}

TEST_F(EventLoopTest, TimersThatAreDueTogetherFireInTheOrderOfTheirMaking) {
  const auto first = Started('1', 100);
  const auto second = Started('2', 100);
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "12");
}

TEST_F(EventLoopTest, DisablingStopsATimerAndEnablingStartsItAnew) {
  const auto timer = Started('a', 100);
  Time.Advance(60ms);
  timer->Enabled(false);
  AdvanceAndTurn(60ms);
  EXPECT_EQ(Fired, "");
  timer->Enabled(true);
  AdvanceAndTurn(99ms);
  EXPECT_EQ(Fired, "");
  AdvanceAndTurn(1ms);
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, EnablingARunningTimerLeavesItRunning) {
  const auto timer = Started('a', 100);
  Time.Advance(60ms);
  timer->Enabled(true);
  AdvanceAndTurn(40ms);
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, SettingTheIntervalStartsARunningTimerAnew) {
  const auto timer = Started('a', 100);
  Time.Advance(60ms);
  timer->Interval(100);
  AdvanceAndTurn(99ms);
  EXPECT_EQ(Fired, "");
  AdvanceAndTurn(1ms);
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, LongestIntervalIs65535) {
  const auto timer = Started('a', 65535);
  AdvanceAndTurn(65534ms);
  EXPECT_EQ(Fired, "");
  AdvanceAndTurn(1ms);
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, HandlerMayDisableAnotherTimerThatIsDue) {
  std::unique_ptr<ITimer> second;
  const auto first = Started('1', 100, [&] { second->Enabled(false); });
  second = Started('2', 100);
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "1");
}

TEST_F(EventLoopTest, HandlerMayDestroyItsOwnTimerAndOthers) {
  std::unique_ptr<ITimer> first;
  std::unique_ptr<ITimer> second;
  first = Started('1', 100, [&] {
    second.reset();
    first.reset();
  });
  second = Started('2', 100);
  const auto third = Started('3', 100);
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "13");
}

TEST_F(EventLoopTest, HandlerMayMakeATimerThatFiresInALaterTurn) {
  std::unique_ptr<ITimer> made;
  const auto first = Started('1', 100, [&] { made = Started('n', 10); });
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "1");
  AdvanceAndTurn(10ms);
  EXPECT_EQ(Fired, "1n");
}

TEST_F(EventLoopTest, NestedTurnFiresWhatElseIsDue) {
  const auto outer = Started('o', 100, [&] {
    Loop.DoEvents();
    Fired += '.';
  });
  const auto inner = Started('i', 100);
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "oi.");
}

TEST_F(EventLoopTest, NestedWaitFiresATimerAgainInsideItsOwnHandler) {
  int depth = 0;
  const auto timer = Started('a', 100, [&] {
    if (++depth < 3) Loop.WaitForEvent();
    Fired += '.';
  });
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "aaa...");
  EXPECT_EQ(Elapsed(), 300ms);
}

TEST_F(EventLoopTest, HandlerThatTakesLongerThanItsIntervalCannotHoldTheTurn) {
  const auto timer = Started('a', 10, [&] { Time.Advance(50ms); });
  AdvanceAndTurn(10ms);
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, WaitReachesTheNextEventAndNoFurther) {
  const auto slow = Started('s', 300);
  const auto quick = Started('q', 100);
  Loop.WaitForEvent();
  EXPECT_EQ(Fired, "q");
  EXPECT_EQ(Elapsed(), 100ms);
}

TEST_F(EventLoopTest, WaitDoesNotBlockForWhatIsDueAlready) {
  const auto timer = Started('a', 100);
  Time.Advance(500ms);
  Loop.WaitForEvent();
  EXPECT_EQ(Fired, "a");
  EXPECT_EQ(Elapsed(), 500ms);
}

TEST_F(EventLoopTest, WaitWithNothingRunningIsIdle) {
  const auto never = Started('n', 0);
  int idle = 0;
  Time.OnIdle = [&] { ++idle; };
  Loop.WaitForEvent();
  EXPECT_EQ(idle, 1);
}

TEST_F(EventLoopTest, WaitThatNothingCanEndIsALogicError) { EXPECT_THROW(Loop.WaitForEvent(), std::logic_error); }

TEST_F(EventLoopTest, WakeEndsOneWaitWithoutAnEvent) {
  const auto timer = Started('a', 100);
  Time.Wake();
  Loop.WaitForEvent();
  EXPECT_EQ(Fired, "");
  EXPECT_EQ(Elapsed(), 0ms);
  Loop.WaitForEvent();
  EXPECT_EQ(Fired, "a");
}

TEST_F(EventLoopTest, QuitEndsAWait) {
  Time.OnIdle = [&] { Loop.RequestQuit(); };
  EXPECT_THROW(Loop.WaitForEvent(), Quit);
}

TEST_F(EventLoopTest, QuitFromAHandlerIsThrownAtTheEndOfTheTurn) {
  const auto first = Started('1', 100, [&] { Loop.RequestQuit(); });
  const auto second = Started('2', 100);
  Time.Advance(100ms);
  EXPECT_THROW(Loop.DoEvents(), Quit);
  EXPECT_EQ(Fired, "12");
}

TEST_F(EventLoopTest, NothingFiresAfterQuit) {
  const auto timer = Started('a', 100);
  Loop.RequestQuit();
  Time.Advance(100ms);
  EXPECT_THROW(Loop.DoEvents(), Quit);
  EXPECT_EQ(Fired, "");
}

TEST_F(EventLoopTest, ErrorOfAHandlerLeavesTheTurnAndTheTimerRunning) {
  bool fails = true;
  const auto timer = Started('a', 100, [&] {
    if (fails) HuntERR::Raise(7777, u"Test", u"It fails.");
  });
  Time.Advance(100ms);
  EXPECT_EQ(test::Raised([&] { Loop.DoEvents(); }).Number, 7777);
  fails = false;
  AdvanceAndTurn(100ms);
  EXPECT_EQ(Fired, "aa");
}

TEST_F(EventLoopTest, TurnsDoNothingOnceQuitIsFinished) {
  const auto timer = Started('a', 10);
  EXPECT_FALSE(Loop.IsQuitting());
  Loop.RequestQuit();
  EXPECT_TRUE(Loop.IsQuitting());
  EXPECT_THROW(Loop.DoEvents(), Quit);
  Loop.FinishQuit();
  EXPECT_FALSE(Loop.IsQuitting());
  EXPECT_NO_THROW(AdvanceAndTurn(100ms));
  EXPECT_NO_THROW(Loop.WaitForEvent()); // with nothing to wait for
  EXPECT_EQ(Fired, "");
  EXPECT_EQ(Elapsed(), 100ms);
}

} // namespace
} // namespace portico::memory
