// Turns, timers, and the order to quit.

#include "contract/FormsBench.h"

#include "framework/errors/Quit.h"
#include "support/ErrorReports.h"

namespace portico::test {
namespace {

class EventLoopContract : public FormsContract {};

INSTANTIATE_TEST_SUITE_P(AllLoops, EventLoopContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

TEST_P(EventLoopContract, ATurnWithNothingToDoReturns) { EXPECT_NO_THROW(Loop().DoEvents()); }

TEST_P(EventLoopContract, ATimerIsDisabledToBeginWithAndFiresAgainAndAgainOnceItIsEnabled) {
  const auto timer = Loop().MakeTimer();
  EXPECT_FALSE(timer->Enabled());
  int fired = 0;
  timer->Timer().Connect([&] { ++fired; });
  timer->Interval(1);
  Wait(5);
  EXPECT_EQ(fired, 0);
  timer->Enabled(true);
  while (fired < 3) Loop().WaitForEvent();
  EXPECT_TRUE(timer->Enabled());
}

TEST_P(EventLoopContract, ATimerWithAnIntervalOfZeroNeverFires) {
  const auto timer = Loop().MakeTimer();
  int fired = 0;
  timer->Timer().Connect([&] { ++fired; });
  timer->Interval(0);
  timer->Enabled(true);
  Wait(5);
  EXPECT_TRUE(timer->Enabled());
  EXPECT_EQ(fired, 0);
  timer->Interval(1);
  while (fired == 0) Loop().WaitForEvent();
}

TEST_P(EventLoopContract, ATimerThatIsDisabledInItsHandlerFiresNoMore) {
  const auto timer = Loop().MakeTimer();
  int fired = 0;
  timer->Timer().Connect([&] {
    ++fired;
    timer->Enabled(false);
  });
  timer->Interval(1);
  timer->Enabled(true);
  Wait(10);
  EXPECT_EQ(fired, 1);
}

TEST_P(EventLoopContract, AnIntervalIsZeroTo65535AndAnotherChangesNothing) {
  const auto timer = Loop().MakeTimer();
  int fired = 0;
  timer->Timer().Connect([&] { ++fired; });
  EXPECT_NO_THROW(timer->Interval(0));
  EXPECT_NO_THROW(timer->Interval(65535));
  timer->Interval(1);
  timer->Enabled(true);
  for (const std::int32_t interval : {-1, 65536, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(Raised([&] { timer->Interval(interval); }).Number, 380);
  }
  while (fired == 0) Loop().WaitForEvent();
}

TEST_P(EventLoopContract, EveryTurnThrowsOnceTheProgramIsToldToEnd) {
  Loop().RequestQuit();
  EXPECT_THROW(Loop().DoEvents(), Quit);
  EXPECT_THROW(Loop().WaitForEvent(), Quit);
  EXPECT_THROW(Loop().DoEvents(), Quit);
}

TEST_P(EventLoopContract, ATurnInWhichTheProgramIsToldToEndThrows) {
  const auto timer = Loop().MakeTimer();
  timer->Timer().Connect([&] { Loop().RequestQuit(); });
  timer->Interval(1);
  timer->Enabled(true);
  EXPECT_THROW(Wait(60000), Quit);
}

} // namespace
} // namespace portico::test
