#include "drivers/usbtmc/UsbtmcTransport.h"

#include "support/doubles/FakeUsbtmc.h"
#include "support/doubles/ManualClock.h"

#include <cerrno>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;
using std::chrono::milliseconds;
using testing::ElementsAre;

constexpr auto Place = "USB 0x1234::0xABCD::SN1";

class UsbtmcTransportTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(transport.Open(After(1000)).Succeeded()); }

  TimePoint After(int time) const { return clock.Now() + milliseconds(time); }
  Received Read(std::size_t size = 1000) {
    buffer.assign(size, '~');
    return transport.Read(buffer.data(), size, After(1000));
  }
  void Ask(const std::string& command) { ASSERT_TRUE(transport.Write(command + "\r\n", After(1000)).Succeeded()); }
  static void ExpectFailure(const DriverResult& result, DriverStatus status, const std::string& detail) {
    EXPECT_EQ(result.Status, status);
    EXPECT_EQ(result.Detail, detail);
  }

  ManualClock clock;
  FakeUsbtmc usb{clock};
  FakeUsbtmc::Device& device = usb.Plug({{}, 0x1234, 0xABCD, "SN1", 0, "Maker", "Model"},
                                        {{"Q?", Reaction::Answer("1\n")}, {"LONG?", Reaction::Answer("12345\n")}});
  system::Cancellation cancellation;
  UsbtmcTransport transport{{0, 0x1234, 0xABCD, "SN1", 0}, usb, clock, &cancellation};
  std::string buffer;
};

TEST_F(UsbtmcTransportTest, EachWriteIsOneMessageAndAnAnswerEndsAtItsMark) {
  EXPECT_TRUE(transport.MarksEnd());
  Ask("Q?");
  EXPECT_THAT(device.messages, ElementsAre("Q?\r\n"));
  const Received received = Read();
  EXPECT_TRUE(received.Result.Succeeded());
  EXPECT_EQ(received.Count, 2U);
  EXPECT_TRUE(received.End);
  EXPECT_EQ(buffer.substr(0, 3), "1\n~");
}

TEST_F(UsbtmcTransportTest, AnAnswerInSeveralTransfersEndsWithTheLast) {
  device.mostSent = 4;
  Ask("LONG?");
  EXPECT_FALSE(Read().End);
  EXPECT_EQ(buffer.substr(0, 5), "1234~");
  EXPECT_TRUE(Read().End);
  EXPECT_EQ(buffer.substr(0, 3), "5\n~");
}

TEST_F(UsbtmcTransportTest, ATransferThatJustFitsEndsOnlyWhereItIsMarked) {
  Ask("LONG?");
  EXPECT_FALSE(Read(5).End);
  EXPECT_TRUE(Read(1).End);
}

TEST_F(UsbtmcTransportTest, WhereTheSystemTellsNoMarksATransferThatLeavesRoomEndsTheMessage) {
  usb.unknown = {UsbtmcRequest::MessageAttributes};
  Ask("LONG?");
  EXPECT_FALSE(Read(5).End);
  EXPECT_TRUE(Read(5).End);
  EXPECT_EQ(buffer, "\n~~~~");
}

TEST_F(UsbtmcTransportTest, TheTimeoutIsWhatIsLeftButAtLeastWhatTheSystemTakes) {
  EXPECT_TRUE(transport.Write("A\r\n", After(700)).Succeeded());
  clock.Advance(milliseconds(1));
  EXPECT_EQ(transport.Read(buffer.data(), 0, After(30)).Result.Status, DriverStatus::ReadTimeout);
  EXPECT_THAT(device.timeouts, ElementsAre(700, 100));
}

TEST_F(UsbtmcTransportTest, OnceTheDeadlineIsPastTheDeviceIsNotAsked) {
  Ask("Q?");
  const TimePoint now = clock.Now();
  char byte = '~';
  ExpectFailure(transport.Read(&byte, 1, now).Result, DriverStatus::ReadTimeout, Place);
  ExpectFailure(transport.Write("B\r\n", now), DriverStatus::WriteTimeout, Place);
  EXPECT_EQ(device.reads, 0);
  EXPECT_EQ(device.messages.size(), 1U);
}

TEST_F(UsbtmcTransportTest, AReadThatTimesOutIsAbortedSoThatTheNextOneGetsTheAnswer) {
  ExpectFailure(Read().Result, DriverStatus::ReadTimeout, Place);
  EXPECT_EQ(device.aborts, 1);
  usb.Send(device, "late\n");
  EXPECT_TRUE(Read().End);
  EXPECT_EQ(buffer.substr(0, 6), "late\n~");
}

TEST_F(UsbtmcTransportTest, ClearDropsWhatWasAskedWithinTheTimeout) {
  Ask("Q?");
  EXPECT_TRUE(transport.Clear(milliseconds(300)));
  EXPECT_EQ(device.clears, 1);
  EXPECT_THAT(device.timeouts, ElementsAre(1000, 300));
  EXPECT_EQ(Read().Result.Status, DriverStatus::ReadTimeout);
}

TEST_F(UsbtmcTransportTest, AClearThatFailsSaysSo) {
  device.clearError = EPERM;
  EXPECT_FALSE(transport.Clear(milliseconds(20)));
  EXPECT_THAT(device.timeouts, ElementsAre(100));
  usb.Unplug(device);
  EXPECT_FALSE(transport.Clear(milliseconds(300)));
}

TEST_F(UsbtmcTransportTest, AfterAClearThatFailedNoFileIsOpenedBeforeOneHasWorked) {
  Ask("Q?");
  device.clearError = ETIMEDOUT;
  EXPECT_FALSE(transport.Clear(milliseconds(300)));
  ExpectFailure(transport.Open(After(1000)), DriverStatus::ConnectFailed,
                std::string(Place) + ", it does not drop what it was asked before; switch it off and on");
  EXPECT_FALSE(device.isOpen);
  device.clearError = 0;
  EXPECT_TRUE(transport.Open(After(1000)).Succeeded());
  EXPECT_EQ(Read().Result.Status, DriverStatus::ReadTimeout);
  EXPECT_TRUE(transport.Open(After(1000)).Succeeded());
  EXPECT_EQ(device.clears, 3);
}

TEST_F(UsbtmcTransportTest, AfterAClearThatFailedItStandsNoMore) {
  device.clearError = ETIMEDOUT;
  EXPECT_FALSE(transport.Clear(milliseconds(300)));
  EXPECT_FALSE(transport.Stands());
  device.clearError = 0;
  EXPECT_TRUE(transport.Clear(milliseconds(300)));
  EXPECT_TRUE(transport.Stands());
}

TEST_F(UsbtmcTransportTest, AMalformedTransferBreaksTheProtocol) {
  device.malformed = true;
  ExpectFailure(Read().Result, DriverStatus::ProtocolError, std::string(Place) + ", it sent a malformed transfer");
}

TEST_F(UsbtmcTransportTest, ADeviceThatTakesNoMessageOrAPartOfItTimesOut) {
  device.mostTaken = 2;
  ExpectFailure(transport.Write("*RST\r\n", After(1000)), DriverStatus::WriteTimeout, Place);
  device.deaf = true;
  ExpectFailure(transport.Write("*RST\r\n", After(1000)), DriverStatus::WriteTimeout, Place);
}

TEST_F(UsbtmcTransportTest, OtherFailuresLoseTheConnectionWithTheSystemsReason) {
  device.nextError = EPIPE;
  ExpectFailure(Read().Result, DriverStatus::ConnectionLost, std::string(Place) + ", Broken pipe");
  device.nextError = EPROTO;
  ExpectFailure(transport.Write("A\r\n", After(1000)), DriverStatus::ConnectionLost,
                std::string(Place) + ", Protocol error");
}

TEST_F(UsbtmcTransportTest, OneThatIsUnpluggedIsSeenAndOpensAgainUnderAnotherFile) {
  EXPECT_TRUE(transport.Stands());
  usb.Plug({{}, 0x1234, 0xABCD, "SN2", 0, "", ""});
  usb.Unplug(device);
  EXPECT_FALSE(transport.Stands());
  const std::string gone = std::string(Place) + ", it was unplugged or switched off; plug it in again";
  ExpectFailure(Read().Result, DriverStatus::ConnectionLost, gone);
  ExpectFailure(transport.Write("A\r\n", After(1000)), DriverStatus::ConnectionLost, gone);
  usb.Plug({{}, 0x1111, 0x1111, "", 0, "", ""});
  FakeUsbtmc::Device& again =
      usb.Plug({{}, 0x1234, 0xABCD, "SN1", 0, "Maker", "Model"}, {{"Q?", Reaction::Answer("2\n")}});
  EXPECT_EQ(again.listing.Path, "/dev/usbtmc2");
  EXPECT_TRUE(transport.Open(After(1000)).Succeeded());
  EXPECT_TRUE(transport.Stands());
  Ask("Q?");
  Read();
  EXPECT_EQ(buffer.substr(0, 2), "2\n");
}

TEST_F(UsbtmcTransportTest, TheFrontPanelIsGivenBackWhereTheDeviceCan) {
  transport.ReturnToLocal(After(1000));
  EXPECT_EQ(device.returnsToLocal, 1);
  device.capabilities = 5;
  transport.ReturnToLocal(After(1000));
  transport.ReturnToLocal(clock.Now());
  usb.unknown = {UsbtmcRequest::Capabilities};
  transport.ReturnToLocal(After(1000));
  transport.Close();
  transport.ReturnToLocal(After(1000));
  EXPECT_EQ(device.returnsToLocal, 1);
}

TEST_F(UsbtmcTransportTest, WhyThereIsNoWayToLocalIsTold) {
  device.capabilities = 5;
  EXPECT_EQ(transport.GoToLocal(After(1000)).Status, DriverStatus::NotPossible);
  usb.unknown = {UsbtmcRequest::Capabilities};
  EXPECT_EQ(transport.GoToLocal(After(1000)).Status, DriverStatus::NotPossible) << "an old system does not tell";
  EXPECT_EQ(transport.GoToLocal(clock.Now()).Status, DriverStatus::WriteTimeout);
}

TEST_F(UsbtmcTransportTest, OnceCancelledNothingReachesTheDevice) {
  cancellation.Request();
  ExpectFailure(Read().Result, DriverStatus::Cancelled, Place);
  ExpectFailure(transport.Write("A\r\n", After(1000)), DriverStatus::Cancelled, Place);
  transport.ReturnToLocal(After(1000));
  EXPECT_EQ(device.reads, 0);
  EXPECT_THAT(device.messages, ElementsAre());
  EXPECT_EQ(device.returnsToLocal, 0);
  ExpectFailure(transport.Open(After(1000)), DriverStatus::Cancelled, Place);
  EXPECT_FALSE(transport.Stands());
}

TEST_F(UsbtmcTransportTest, AClosedOneLetsAnotherIn) {
  UsbtmcTransport second({0, 0x1234, 0xABCD, "SN1", 0}, usb, clock);
  ExpectFailure(second.Open(After(1000)), DriverStatus::ConnectFailed,
                std::string(Place) + ", it is in use; close it in the program or session that has it open");
  transport.Close();
  EXPECT_TRUE(second.Open(After(1000)).Succeeded());
}

} // namespace
} // namespace portico::test
