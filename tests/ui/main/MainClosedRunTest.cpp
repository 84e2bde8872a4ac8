#include "drivers/session/InstrumentDriver.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedTransport.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

/// The window on the driver, with a wire that writes down what is sent.
class MainClosedRunTest : public MainWindowFixture {
protected:
  MainClosedRunTest() {
    HasSpies = false;
    const drivers::TransportFactory connect = [this](const drivers::ResourceName&) {
      return std::make_unique<ScriptedTransport>(Sent);
    };
    gInstrumentDriver = std::make_shared<drivers::InstrumentDriver>(
        drivers::TransportRegistry{{drivers::InterfaceKind::Socket, connect}},
        drivers::SessionOptions{.Clock = DriverClock});
    Start(u"TCPIP::dmm::5025::SOCKET");
    for (const auto* item : {u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) SetItem(item, u"Off");
    Past().Text(u"");
  }
  ~MainClosedRunTest() override { LetGo(); } // what is open is closed on the wire

  ManualClock DriverClock;
  ScriptedTransport::Record Sent;
};

TEST_F(MainClosedRunTest, AnInstrumentThatIsClosedDuringAnIntervalWaitLeavesTheRunGoingAndNothingReachesTheWire) {
  SetItem(u"IntervalPacing", u"On");
  SetItem(u"PacingInterval", u"1000");
  Future().Text(u"one\r\ntwo\r\nthree\r\n");
  const auto user = Loop->MakeTimer();
  user->Interval(500);
  user->Enabled(true);
  user->Timer().Connect([&] {
    user->Enabled(false);
    EXPECT_EQ(Sent.written.size(), 1U) << "the second line waits";
    EXPECT_TRUE(Menu(u"mnuFileCloseInstrument").Choose());
    EXPECT_EQ(Item(u"InstrumentOpened"), "False");
    EXPECT_EQ(ToUtf8(Future().Text()), "OPEN AN INSTRUMENT!") << "the third line is thrown away";
    EXPECT_TRUE(Window->Executing());
  });
  Click(u"mnuRun");
  EXPECT_EQ(Sent.written, std::vector<std::string>{"one\r\n"});
  EXPECT_EQ(Sent.opened, 1);
  EXPECT_EQ(Escaped(Future().Text()), "") << "the placeholder is a line like any other";
  EXPECT_EQ(Escaped(Past().Text()), "one\\r\\n\u00A9two\\r\\nOPEN AN INSTRUMENT!\\r\\n")
      << "the close cleared the current instruction, so that the second line counts as automatic";
  EXPECT_FALSE(Window->Executing());
  ExpectNoBox();
}

} // namespace
} // namespace portico::test
