#include "drivers/hislip/HislipTransport.h"

#include "drivers/TransportCalls.h"
#include "support/doubles/HislipInstrument.h"
#include "support/doubles/ScriptedServer.h"
#include "wire/Bytes.h"

#include <array>

namespace portico::test {
namespace {

using namespace drivers;
using wire::Bytes;
using wire::HislipChannel;
using wire::HislipType;

class HislipFailureTest : public testing::Test {
protected:
  /// Opens in vain: why.
  std::string OpenFails(DriverStatus status = DriverStatus::ConnectFailed, TimePoint deadline = Soon()) {
    const DriverResult result = transport.Open(deadline);
    EXPECT_EQ(result.Status, status);
    return OfPlace(result);
  }
  /// Asks, and the instrument sends these bytes in place of an answer.
  std::string AnswerFails(HislipChannel channel, const std::string& bytes) {
    EXPECT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("A?\r\n", Soon()).Succeeded());
    instrument.SendRaw(channel, bytes);
    return ReadFails(DriverStatus::ProtocolError);
  }
  std::string ReadFails(DriverStatus status, TimePoint deadline = Soon()) {
    const Received received = transport.Read(buffer.data(), buffer.size(), deadline);
    EXPECT_EQ(received.Result.Status, status);
    return OfPlace(received.Result);
  }
  /// The particulars without the place, which they begin with.
  std::string OfPlace(const DriverResult& result) const {
    const std::string place = "127.0.0.1, port " + std::to_string(instrument.Port());
    EXPECT_TRUE(result.Detail.starts_with(place)) << result.Detail;
    return result.Detail.substr(std::min(place.size(), result.Detail.size()));
  }

  HislipInstrument instrument{{{"Q?", Reaction::Answer("1\n")}}};
  HislipTransport transport{"127.0.0.1", instrument.Port(), "hislip0"};
  std::array<char, 64> buffer = {};
};

TEST_F(HislipFailureTest, AClosedPortRefuses) {
  ScriptedServer server({});
  server.StopListening();
  HislipTransport refused("127.0.0.1", server.Port(), "hislip0");
  const DriverResult result = refused.Open(Soon());
  EXPECT_EQ(result.Status, DriverStatus::ConnectionRefused);
  EXPECT_EQ(result.Detail, "127.0.0.1, port " + std::to_string(server.Port()));
}

TEST_F(HislipFailureTest, AnUnknownHostIsSaidToBeOne) {
  EXPECT_EQ(HislipTransport("a..b", 4880, "hislip0").Open(Soon()).Status, DriverStatus::UnknownHost);
}

TEST_F(HislipFailureTest, EncryptionThatIsDemandedIsRefusedInWords) {
  instrument.Respond(HislipType::Initialize, Bytes("4853 01 02 02000001 0000000000000000"));
  EXPECT_EQ(OpenFails(), ", encrypted connection required, not supported; switch encryption off in its settings");
}

TEST_F(HislipFailureTest, AWrongDeviceNameIsRefusedInWords) {
  instrument.Respond(HislipType::Initialize, Bytes("4853 02 03 00000000 0000000000000004 6E6F6E65"));
  EXPECT_EQ(OpenFails(), ", fatal error 3, bad initialization sequence (none); check the device name hislip0");
}

TEST_F(HislipFailureTest, AServerOfVersion2WithoutEncryptionOpens) {
  instrument.Respond(HislipType::Initialize, Bytes("4853 01 00 02000001 0000000000000000"));
  EXPECT_TRUE(transport.Open(Soon()).Succeeded());
}

TEST_F(HislipFailureTest, OneThatPrefersOverlappedModeIsClearedIntoTheOther) {
  instrument.Respond(HislipType::Initialize, Bytes("4853 01 01 01000001 0000000000000000"));
  EXPECT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_EQ(instrument.Count(HislipType::DeviceClearComplete), 1);
}

TEST_F(HislipFailureTest, OneThatStaysInOverlappedModeIsRefusedInWords) {
  instrument.Respond(HislipType::Initialize, Bytes("4853 01 01 01000001 0000000000000000"));
  instrument.Respond(HislipType::DeviceClearComplete, Bytes("4853 09 01 00000000 0000000000000000"));
  EXPECT_EQ(OpenFails(), ", it stays in overlapped mode, which is not supported; set it to synchronized mode");
}

TEST_F(HislipFailureTest, WhatDoesNotSpeakHislipIsNotOpened) {
  instrument.Respond(HislipType::Initialize, "SSH-2.0-OpenSSH_9.2\r\n");
  EXPECT_EQ(OpenFails(), ", the message header is none of HiSLIP; check that the port is that of HiSLIP");
}

TEST_F(HislipFailureTest, OneThatHangsUpWhileOpeningIsNotOpened) {
  for (const HislipType type : {HislipType::AsyncInitialize, HislipType::Initialize}) {
    instrument.HangUpOn(type);
    instrument.Respond(type, "");
    EXPECT_EQ(OpenFails(),
              ", the instrument closed it; see that HiSLIP is switched on and that no other program has it open");
  }
}

TEST_F(HislipFailureTest, OneThatResetsTheConnectionWhileOpeningIsNotOpened) {
  instrument.ResetOn(HislipType::Initialize);
  instrument.Respond(HislipType::Initialize, "");
  EXPECT_EQ(OpenFails(), ", Connection reset by peer; see that HiSLIP is switched on and that no other program has it "
                         "open");
}

TEST_F(HislipFailureTest, OneThatDoesNotRespondWhileOpeningIsGivenUp) {
  for (const HislipType type :
       {HislipType::AsyncMaximumMessageSize, HislipType::AsyncInitialize, HislipType::Initialize}) {
    instrument.Respond(type, "");
    EXPECT_EQ(OpenFails(DriverStatus::ConnectTimeout, VerySoon()), "");
  }
}

TEST_F(HislipFailureTest, AnOpeningThatFailedLeavesNoConnection) {
  instrument.Respond(HislipType::AsyncMaximumMessageSize, Bytes("4853 10 00 00000000 0000000000000000"));
  EXPECT_EQ(OpenFails(), ", the maximum message size leaves no room for a command; try again, or switch the instrument "
                         "off and on");
  instrument.WaitForNoClient();
}

TEST_F(HislipFailureTest, WhatBreaksTheProtocolIsSaidInWords) {
  EXPECT_EQ(AnswerFails(HislipChannel::Synchronous, "stray bytes of whatever kind"),
            ", the message header is none of HiSLIP");
  EXPECT_EQ(AnswerFails(HislipChannel::Asynchronous, "stray bytes of whatever kind"),
            ", the message header is none of HiSLIP");
  EXPECT_EQ(AnswerFails(HislipChannel::Synchronous, Bytes("4853 07 00 FFFFFF00 FFFFFFFFFFFFFFFF")),
            ", a message has 18446744073709551615 bytes, more than was agreed");
  EXPECT_EQ(AnswerFails(HislipChannel::Synchronous, Bytes("4853 02 01 00000000 0000000000000000")),
            ", fatal error 1, bad message header");
  EXPECT_EQ(AnswerFails(HislipChannel::Asynchronous, Bytes("4853 02 02 00000000 0000000000000002 6E6F")),
            ", fatal error 2, connection used before both channels exist (no)");
}

TEST_F(HislipFailureTest, WhyAConnectionIsClosedStandsOnTheOther) {
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.SendRaw(HislipChannel::Asynchronous, Bytes("4853 02 00 00000000 0000000000000000"));
  instrument.DropClients();
  EXPECT_EQ(ReadFails(DriverStatus::ProtocolError), ", fatal error 0, unidentified error");
}

TEST_F(HislipFailureTest, ACloseAmidAnAnswerIsNoAnswer) {
  instrument.On("HALF?", Reaction::Part("1.2"));
  for (const HislipChannel channel : {HislipChannel::Synchronous, HislipChannel::Asynchronous}) {
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    ASSERT_TRUE(transport.Write("HALF?\r\n", Soon()).Succeeded());
    EXPECT_EQ(transport.Read(buffer.data(), buffer.size(), Soon()).Count, 3u);
    instrument.Drop(channel);
    EXPECT_EQ(ReadFails(DriverStatus::ConnectionClosed), "");
  }
}

TEST_F(HislipFailureTest, ACommandThatMayNotGoOutTimesOut) {
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  // From now on nothing is to be sent before the other connection tells of the interruption, too.
  instrument.SendRaw(HislipChannel::Synchronous, Bytes("4853 0D 00 FFFFFEFE 0000000000000000"));
  ReadFails(DriverStatus::ReadTimeout, VerySoon());
  EXPECT_EQ(transport.Write("A?\r\n", VerySoon()).Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(instrument.Received(), "");
}

TEST_F(HislipFailureTest, EveryWaitEndsOnceTheProgramIsToEnd) {
  system::Cancellation cancellation;
  HislipTransport cancelled("127.0.0.1", instrument.Port(), "hislip0", &cancellation);
  ASSERT_TRUE(cancelled.Open(Soon()).Succeeded());
  cancellation.Request();
  EXPECT_EQ(cancelled.Read(buffer.data(), buffer.size(), Soon()).Result.Status, DriverStatus::Cancelled);
  EXPECT_FALSE(cancelled.Clear(std::chrono::hours(1)));
  EXPECT_EQ(cancelled.Open(Soon()).Status, DriverStatus::Cancelled);
}

} // namespace
} // namespace portico::test
