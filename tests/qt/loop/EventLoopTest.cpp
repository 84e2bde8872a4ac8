// Turns, timers, and the end of the program.

#include "qt/loop/EventLoop.h"
#include "framework/errors/Quit.h"
#include "qt/loop/HandlerTurn.h"
#include "qt/loop/QuitSignals.h"
#include "support/ErrorReports.h"
#include "system/Cancellation.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>

#include <csignal>
#include <functional>

namespace portico::test {
namespace {

class EventLoopTest : public testing::Test {
protected:
  ~EventLoopTest() override { HuntERR::Reset(); }

  std::unique_ptr<ITimer> Started(std::int32_t interval, std::function<void()> action) {
    auto timer = loop.MakeTimer();
    timer->Timer().Connect(std::move(action));
    timer->Interval(interval);
    timer->Enabled(true);
    return timer;
  }

  qt::EventLoop loop;
};

TEST_F(EventLoopTest, ATurnHandlesWhatIsPendingAndReturns) {
  bool called = false;
  QTimer::singleShot(0, qApp, [&] { called = true; });
  loop.DoEvents();
  EXPECT_TRUE(called);
  EXPECT_NO_THROW(loop.DoEvents());
}

TEST_F(EventLoopTest, ATurnCloseToAnotherHandlesWhatHasBeenPosted) {
  int called = 0;
  for (int i = 0; i < 1000; ++i) {
    loop.DoEvents(); // finds nothing
    QTimer::singleShot(0, qApp, [&] { ++called; });
    loop.DoEvents();
    ASSERT_EQ(called, i + 1);
  }
}

TEST_F(EventLoopTest, TurnsCloseTogetherDoNotAskTheSystemEachTime) {
  int asked = 0;
  const auto counter =
      QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, qApp, [&] { ++asked; });
  for (int i = 0; i < 1000; ++i) loop.DoEvents();
  QObject::disconnect(counter);
  EXPECT_GE(asked, 1);
  EXPECT_LT(asked, 1000);
}

TEST_F(EventLoopTest, TurnsAloneSeeWhatTheSystemHas) {
  int fired = 0;
  const auto timer = Started(1, [&] { ++fired; });
  while (fired < 3) loop.DoEvents();
  EXPECT_TRUE(timer->Enabled());
}

TEST_F(EventLoopTest, WaitingEndsWithATimer) {
  int fired = 0;
  const auto timer = Started(1, [&] { ++fired; });
  while (fired < 3) loop.WaitForEvent();
  EXPECT_TRUE(timer->Enabled());
}

TEST_F(EventLoopTest, ATimerMayEndInItsOwnHandler) {
  std::unique_ptr<ITimer> timer;
  bool fired = false;
  timer = Started(1, [&] {
    fired = true;
    timer.reset();
  });
  while (!fired) loop.WaitForEvent();
  EXPECT_EQ(timer, nullptr);
}

TEST_F(EventLoopTest, AHandlerOfTheToolkitEndsAndTheTurnAroundItThrows) {
  std::string order;
  QTimer::singleShot(0, qApp, [&] {
    qt::Enter([&] {
      loop.RequestQuit();
      try {
        loop.DoEvents();
      } catch (const Quit&) {
        order += 'i';
        throw;
      }
      order += '-';
    });
    order += 'h';
  });
  EXPECT_THROW(loop.DoEvents(), Quit);
  EXPECT_EQ(order, "ih");
}

TEST_F(EventLoopTest, AnOrderToQuitEndsAWait) {
  QTimer::singleShot(0, qApp, [&] { loop.RequestQuit(); });
  EXPECT_THROW(
      {
        while (true) loop.WaitForEvent();
      },
      Quit);
}

TEST_F(EventLoopTest, RunReturnsWhenTheProgramIsToldToEndHoweverDeepItIs) {
  int depth = 0;
  const std::function<void()> nest = [&] {
    qt::Enter([&] {
      if (++depth < 5) {
        QTimer::singleShot(0, qApp, nest);
      } else {
        loop.RequestQuit();
      }
      while (true) loop.WaitForEvent();
    });
  };
  QTimer::singleShot(0, qApp, nest);
  EXPECT_EQ(loop.Run(), 0);
  EXPECT_EQ(depth, 5);
  EXPECT_EQ(loop.Run(), 0);
}

TEST_F(EventLoopTest, KeysAndMouseWaitWhileTurnsAreNestedDeeperThanTwenty) {
  EXPECT_EQ(qt::EventLoop::HandledAt(1), QEventLoop::AllEvents);
  EXPECT_EQ(qt::EventLoop::HandledAt(20), QEventLoop::AllEvents);
  EXPECT_EQ(qt::EventLoop::HandledAt(21), QEventLoop::ExcludeUserInputEvents);
}

TEST_F(EventLoopTest, TurnsMayNestDeeperThanTwenty) {
  int depth = 0;
  const std::function<void()> nest = [&] {
    qt::Enter([&] {
      if (++depth < 30) QTimer::singleShot(0, qApp, nest);
      loop.DoEvents();
    });
  };
  QTimer::singleShot(0, qApp, nest);
  loop.DoEvents();
  EXPECT_EQ(depth, 30);
}

TEST_F(EventLoopTest, WhatIsLeftToDoAfterTheEndTakesTurnsThatDoNothing) {
  loop.RequestQuit();
  loop.Run();
  loop.FinishQuit();
  bool called = false;
  QTimer::singleShot(0, qApp, [&] { called = true; });
  EXPECT_NO_THROW(loop.DoEvents());
  EXPECT_NO_THROW(loop.WaitForEvent());
  EXPECT_FALSE(called);
  QCoreApplication::processEvents();
  EXPECT_TRUE(called);
}

TEST_F(EventLoopTest, SignalsAskToQuitAndEndWaitsForInstruments) {
  for (const int signal : {SIGINT, SIGHUP, SIGTERM}) {
    qt::EventLoop told;
    system::Cancellation cancellation;
    const qt::QuitSignals orders(told, cancellation);
    EXPECT_NO_THROW(told.DoEvents());
    EXPECT_FALSE(cancellation.Requested());
    std::raise(signal);
    EXPECT_TRUE(cancellation.Requested());
    EXPECT_THROW(told.DoEvents(), Quit);
  }
}

TEST_F(EventLoopTest, QuittingFiresOnceForEachOrder) {
  int told = 0;
  loop.Quitting().Connect([&] { ++told; });
  loop.RequestQuit();
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(told, 1);
  loop.RequestQuit();
  QCoreApplication::processEvents();
  EXPECT_EQ(told, 2);
}

TEST_F(EventLoopTest, CallsWaitUntilNoHandlerRuns) {
  std::string order;
  qt::AtRest([&] { order += '0'; });
  {
    const qt::HandlerTurn outer;
    {
      const qt::HandlerTurn inner;
      qt::AtRest([&] {
        order += '1';
        qt::AtRest([&] { order += '2'; });
      });
    }
    order += '|';
  }
  EXPECT_EQ(order, "0|12");
}

} // namespace
} // namespace portico::test
