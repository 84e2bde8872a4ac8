#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;

/// The program's end, in each state in which it can come. `Quit` comes down to the bottom of the stack, and from then
/// on only the close reaches the instrument.
class MainEndTest : public MainWindowFixture {
protected:
  MainEndTest() { HasSpies = false; }

  void Open() {
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Future().Text(u"one\r\ntwo\r\nthree\r\n");
    Future().SelStart(Future().TextLength());
    Wire.clear();
    HuntERR::Reset();
  }
  void PressCloseBox() {
    EXPECT_TRUE(MemoryForm().PressCloseBox());
    ExpectClosing();
  }
  void ExpectClosing() {
    EXPECT_FALSE(MemoryForm().IsShown());
    EXPECT_TRUE(Window->StopRequested());
    EXPECT_TRUE(Loop->IsQuitting());
  }
  /// The end after what has been sent so far.
  void ExpectEnd(test::Journal sent) {
    EXPECT_EQ(Wire, sent);
    ExpectSilence();
    End();
    sent.emplace_back("close");
    EXPECT_EQ(Wire, sent);
    ExpectSilence();
    EXPECT_EQ(Setting(u"MainWidth"), "6500");
    EXPECT_EQ(Setting(u"MainWindowState"), "0");
    EXPECT_EQ(Setting(u"SplitPercent"), "75");
    EXPECT_EQ(Setting(u"ProtocolName", u"Configuration"), "SCPI");
    EXPECT_FALSE(gConfiguration);
    EXPECT_FALSE(gObjectFactory);
    EXPECT_TRUE(Screen->Forms().empty());
  }
  /// No box, and nothing on record but what every data entity leaves there.
  void ExpectSilence() {
    ExpectNoBox();
    const auto trail = CallStack(HuntERR::ErrReport());
    for (const String& call : trail) EXPECT_EQ(ToUtf8(call), "Get CSettings.Item(AttributeName='Timestamp')");
    EXPECT_TRUE(Environment.Appended.empty());
  }
};

TEST_F(MainEndTest, ByTheCloseBoxWhileIdle) {
  Open();
  PressCloseBox();
  EXPECT_TRUE(Quits([this] { Loop->WaitForEvent(); }));
  ExpectEnd({});
}

TEST_F(MainEndTest, ByTheExitItem) {
  Open();
  Quits([this] { Click(u"mnuFileExit"); });
  ExpectClosing();
  EXPECT_TRUE(Quits([this] { Loop->DoEvents(); }));
  ExpectEnd({});
}

TEST_F(MainEndTest, ByASignalWhileIdle) {
  Open();
  Loop->RequestQuit();
  EXPECT_TRUE(Quits([this] { Loop->WaitForEvent(); }));
  ExpectEnd({});
}

TEST_F(MainEndTest, DuringARun) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write two") PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRun"); }));
  ExpectEnd({"write one", "write two"});
}

TEST_F(MainEndTest, DuringARunToTheCursor) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write one") PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRunToCursor"); }));
  ExpectEnd({"write one"});
}

TEST_F(MainEndTest, DuringAStep) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write one") PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuStep"); }));
  ExpectEnd({"write one"});
}

TEST_F(MainEndTest, DuringARunThatAButtonStarted) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write one") PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Button(u"Run").Press(); }));
  ExpectEnd({"write one"});
}

TEST_F(MainEndTest, BetweenAWriteAndItsRead) {
  Open();
  SetItem(u"AutoReadAfterQueryMode", u"On");
  Future().Text(u"one?\r\ntwo?\r\n");
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write one?") PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRun"); }));
  EXPECT_TRUE(Wire == test::Journal{"write one?"} || Wire == (test::Journal{"write one?", "read"}));
  ExpectEnd(Wire);
}

TEST_F(MainEndTest, DuringAnIntervalOfAMinuteWithNoTimerEvent) {
  Open();
  SetItem(u"IntervalPacing", u"On");
  SetItem(u"PacingInterval", u"60000");
  const auto start = Clock.Now();
  int waits = 0;
  Clock.OnWait = [&](std::chrono::milliseconds rest) {
    ++waits;
    EXPECT_EQ(rest, 60000ms);
    PressCloseBox();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRun"); }));
  EXPECT_EQ(waits, 1);
  EXPECT_EQ(Clock.Now(), start) << "no time has passed";
  ExpectEnd({"write one"});
}

TEST_F(MainEndTest, DuringADeferredRun) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write two") PressCloseBox();
  };
  Click(u"mnuPopupCMDRun");
  Clock.Advance(10ms);
  EXPECT_TRUE(Quits([this] { Loop->DoEvents(); }));
  ExpectEnd({"write one", "write two"});
}

TEST_F(MainEndTest, WithTheInstrumentDialogOpen) {
  Start();
  Screen->OnShowModal(u"frmInstrumentDialog", [this](memory::Form&) { Loop->RequestQuit(); });
  EXPECT_TRUE(Quits([this] { Click(u"mnuFileOpenInstrument"); }));
  EXPECT_TRUE(Screen->Unplayed().empty());
  EXPECT_EQ(Screen->InFront(), &MemoryForm()) << "the dialog has gone";
  ExpectNoBox();
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
  End();
  ExpectNoBox();
  EXPECT_TRUE(Screen->Forms().empty());
  EXPECT_EQ(Setting(u"MainLeft"), "1000");
}

TEST_F(MainEndTest, WithTheAboutBoxOpen) {
  Open();
  Screen->OnShowModal(u"frmAbout", [this](memory::Form&) { Loop->RequestQuit(); });
  EXPECT_TRUE(Quits([this] { Click(u"mnuHelpAbout"); }));
  ExpectEnd({});
}

TEST_F(MainEndTest, WithTheOptionsOpenSavesThemAsTheyWere) {
  Open();
  Screen->OnShowModal(u"frmTVSCPIOptions", [this](memory::Form&) { Loop->RequestQuit(); });
  EXPECT_TRUE(Quits([this] { Click(u"mnuOptions"); }));
  EXPECT_TRUE(Screen->Unplayed().empty());
  ExpectEnd({});
  EXPECT_EQ(Setting(u"SCPIProtocolPacingInterval", u"Configuration"), "1000");
}

TEST_F(MainEndTest, WithAMessageBoxOpen) {
  Open();
  OfferFailure(u"Cut");
  Box->OnShow = [this](const memory::MessageBox::Call&) { Loop->RequestQuit(); };
  EXPECT_TRUE(Quits([this] { Click(u"mnuEditCut"); }));
  ASSERT_EQ(Box->Calls().size(), 1U);
  End();
  EXPECT_EQ(Box->Calls().size(), 1U) << "the box that was open is the only one";
  EXPECT_EQ(Wire, test::Journal{"close"});
  EXPECT_EQ(Setting(u"MainLeft"), "1000");
}

TEST_F(MainEndTest, WithTheBoxOfAFailedRunOpen) {
  Open();
  OfferFailure(u"Step");
  Box->OnShow = [this](const memory::MessageBox::Call&) { Loop->RequestQuit(); };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRun"); }));
  EXPECT_EQ(Box->Calls().size(), 1U);
  End();
  EXPECT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(Wire, test::Journal{"close"});
}

TEST_F(MainEndTest, WithThePopupMenuOpen) {
  Open();
  Screen->OnPopup(u"mnuPopupCMD", [this](memory::MenuItem&) { Loop->RequestQuit(); });
  EXPECT_TRUE(Quits([this] { Future().PressMouse({.Button = RightButton}); }));
  ExpectEnd({});
}

TEST_F(MainEndTest, DuringACommandOfTheUsers) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write *OPC?") PressCloseBox();
  };
  Quits([this] { Click(u"mnuOPC"); });
  EXPECT_TRUE(Quits([this] { Loop->DoEvents(); }));
  EXPECT_EQ(Wire.front(), "write *OPC?");
  ExpectSilence();
  const std::size_t sent = Wire.size();
  End();
  ASSERT_EQ(Wire.size(), sent + 1);
  EXPECT_EQ(Wire.back(), "close");
  ExpectSilence();
}

TEST_F(MainEndTest, ASecondCloseChangesNothing) {
  Open();
  Driver->OnCall = [this](const std::string& line) {
    if (line != "write one") return;
    PressCloseBox();
    Loop->RequestQuit();
    Form().Close();
  };
  EXPECT_TRUE(Quits([this] { Click(u"mnuRun"); }));
  ExpectEnd({"write one"});
}

TEST_F(MainEndTest, ClosesAnInstrumentThatIsNotOpenToo) {
  HasSpies = true;
  Start();
  End();
  EXPECT_EQ(Commands, std::vector<std::string>{"CloseInstrument"});
  EXPECT_EQ(LastParameters.size(), 0U);
}

} // namespace
} // namespace portico::test
