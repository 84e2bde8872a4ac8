#include "support/Journal.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;

/// Runs that are asked for in the popup menu start when its call has returned.
class MainDeferredRunTest : public MainWindowFixture {
protected:
  MainDeferredRunTest() {
    HasSpies = false;
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Future().Text(u"one\r\ntwo\r\nthree\r\n");
    Future().SelStart(Future().TextLength());
    Wire.clear();
  }
  void PassTenMilliseconds() {
    Clock.Advance(10ms);
    Loop->DoEvents();
  }
  using Lines = test::Journal;
};

TEST_F(MainDeferredRunTest, NothingRunsInsideTheMenusCall) {
  Click(u"mnuPopupCMDRun");
  EXPECT_EQ(Wire, Lines{});
  Loop->DoEvents();
  Clock.Advance(9ms);
  Loop->DoEvents();
  EXPECT_EQ(Wire, Lines{});
  Clock.Advance(1ms);
  Loop->DoEvents();
  EXPECT_EQ(Wire.size(), 3U);
}

TEST_F(MainDeferredRunTest, ARequestIsServedOnce) {
  Click(u"mnuPopupCMDStep");
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"});
  PassTenMilliseconds();
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"}) << "the timer goes on and finds nothing to do";
}

TEST_F(MainDeferredRunTest, TheTimerStaysEnabled) {
  Click(u"mnuPopupCMDStep");
  PassTenMilliseconds();
  Clock.Advance(5ms);
  Click(u"mnuPopupCMDStep");
  Clock.Advance(5ms);
  Loop->DoEvents();
  EXPECT_EQ(Wire, (Lines{"write one", "write two"})) << "the interval was under way";
}

TEST_F(MainDeferredRunTest, TheTimerIsOffUntilItIsUsed) {
  bool hasWaited = false;
  Clock.OnWait = [&](std::chrono::milliseconds rest) {
    EXPECT_EQ(rest, -1ms) << "no timer is running";
    hasWaited = true;
    Clock.Wake();
  };
  Loop->WaitForEvent();
  EXPECT_TRUE(hasWaited);
}

TEST_F(MainDeferredRunTest, NothingWakesTheProgramWhenARunIsOver) {
  Click(u"mnuPopupCMDStep");
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"});
  PassTenMilliseconds(); // the timer finds nothing to do
  std::vector<std::chrono::milliseconds> waits;
  Clock.OnWait = [&](std::chrono::milliseconds rest) {
    waits.push_back(rest);
    Clock.Wake();
  };
  Loop->WaitForEvent();
  EXPECT_EQ(waits, std::vector{-1ms}) << "no timer is running";
  Click(u"mnuPopupCMDStep");
  PassTenMilliseconds();
  EXPECT_EQ(Wire, (Lines{"write one", "write two"})) << "the next request starts it again";
}

TEST_F(MainDeferredRunTest, StepWins) {
  Click(u"mnuPopupCMDRun2Cursor");
  Click(u"mnuPopupCMDRun");
  Click(u"mnuPopupCMDStep");
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"});
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"}) << "the other requests are forgotten";
}

TEST_F(MainDeferredRunTest, WhatIsAskedForDuringARunIsForgottenAtItsEnd) {
  for (const StringView item : {u"mnuPopupCMDStep", u"mnuPopupCMDRun", u"mnuPopupCMDRun2Cursor"}) {
    Future().Text(u"one\r\ntwo\r\nthree\r\n");
    Wire.clear();
    Driver->OnCall = [&](const std::string& line) {
      if (line == "write one") Click(item);
    };
    Click(u"mnuPopupCMDStep");
    PassTenMilliseconds();
    PassTenMilliseconds();
    EXPECT_EQ(Wire, Lines{"write one"}) << ToUtf8(item);
  }
}

TEST_F(MainDeferredRunTest, RunWinsOverRunToCursor) {
  Future().SelStart(6); // in the second line
  Click(u"mnuPopupCMDRun2Cursor");
  Click(u"mnuPopupCMDRun");
  PassTenMilliseconds();
  EXPECT_EQ(Wire.size(), 3U);
}

TEST_F(MainDeferredRunTest, RunToCursorStopsAtTheCaret) {
  Future().SelStart(11); // in the third line
  Click(u"mnuPopupCMDRun2Cursor");
  PassTenMilliseconds();
  EXPECT_EQ(Wire, (Lines{"write one", "write two"}));
  EXPECT_EQ(Escaped(Future().Text()), "three\\r\\n");
}

TEST_F(MainDeferredRunTest, TheTimerIsOffWhileItsRunLasts) {
  int depth = 0;
  int deepest = 0;
  Offer(u"Step", [&](const Params&) {
    deepest = std::max(deepest, ++depth);
    PassTenMilliseconds();
    --depth;
  });
  Click(u"mnuPopupCMDRun");
  PassTenMilliseconds();
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(Escaped(Future().Text()), "");
}

TEST_F(MainDeferredRunTest, AFailureIsShownByTheRunItself) {
  OfferFailure(u"Step");
  Click(u"mnuPopupCMDRun");
  PassTenMilliseconds();
  ExpectOneBox(u"Can't run instructions.", u"frmMain.mnuRun_Click");
  PassTenMilliseconds();
  ExpectNoBox();
}

TEST_F(MainDeferredRunTest, ComesFromTheMenuThatTheMouseBringsUp) {
  Screen->OnPopup(u"mnuPopupCMD", [this](memory::MenuItem&) {
    EXPECT_TRUE(Menu(u"mnuPopupCMDStep").Choose());
    EXPECT_EQ(Wire, Lines{});
  });
  ASSERT_TRUE(Future().PressMouse({.Button = RightButton}));
  PassTenMilliseconds();
  EXPECT_EQ(Wire, Lines{"write one"});
}

/// A loop whose timers cannot be enabled while it is told so.
class BrittleLoop final : public IEventLoop {
public:
  explicit BrittleLoop(std::shared_ptr<IEventLoop> loop) : m_loop(std::move(loop)) {}
  void DoEvents() override { m_loop->DoEvents(); }
  void WaitForEvent() override { m_loop->WaitForEvent(); }
  void RequestQuit() noexcept override { m_loop->RequestQuit(); }
  std::unique_ptr<ITimer> MakeTimer() override { return std::make_unique<BrittleTimer>(m_loop->MakeTimer(), Breaks); }

  bool Breaks = false;

private:
  class BrittleTimer final : public ITimer {
  public:
    BrittleTimer(std::unique_ptr<ITimer> timer, const bool& breaks) : m_timer(std::move(timer)), m_breaks(breaks) {}
    void Interval(std::int32_t milliseconds) override { m_timer->Interval(milliseconds); }
    void Enabled(bool newValue) override {
      if (m_breaks) HuntERR::Raise(ErrorNumber::CannotCarryOut, u"Somewhere", u"It broke.");
      m_timer->Enabled(newValue);
    }
    bool Enabled() const override { return m_timer->Enabled(); }
    Event<>& Timer() override { return m_timer->Timer(); }

  private:
    std::unique_ptr<ITimer> m_timer;
    const bool& m_breaks;
  };

  std::shared_ptr<IEventLoop> m_loop;
};

class BrokenDeferralTest : public MainWindowFixture {};

TEST_F(BrokenDeferralTest, IsShownUnderTheItemOfThePopup) {
  const auto brittle = std::make_shared<BrittleLoop>(Loop);
  gEventLoop = brittle;
  Start();
  brittle->Breaks = true;
  Click(u"mnuPopupCMDStep");
  ExpectOneBox(u"Can't run an instruction.", u"frmMain.mnuPopupCMDStep_Click");
  Click(u"mnuPopupCMDRun");
  ExpectOneBox(u"Can't run instructions.", u"frmMain.mnuPopupCMDRun_Click");
  Click(u"mnuPopupCMDRun2Cursor");
  ExpectOneBox(u"Can't run instructions to cursor.", u"frmMain.mnuPopupCMDRun2Cursor_Click");
  brittle->Breaks = false;
  Clock.Advance(10ms);
  Loop->DoEvents();
  ExpectNoBox();
  LetGo(); // its timers know the loop
}

} // namespace
} // namespace portico::test
