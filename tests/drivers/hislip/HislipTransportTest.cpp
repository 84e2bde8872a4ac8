#include "drivers/hislip/HislipTransport.h"

#include "drivers/TransportCalls.h"
#include "support/doubles/HislipInstrument.h"
#include "wire/Bytes.h"

#include <array>

namespace portico::test {
namespace {

using namespace drivers;
using wire::Bytes;
using wire::HislipChannel;
using wire::HislipType;

class HislipTransportTest : public testing::Test {
protected:
  void Open() { ASSERT_TRUE(transport.Open(Soon()).Succeeded()); }
  void Write(const std::string& command) { ASSERT_TRUE(transport.Write(command + "\r\n", Soon()).Succeeded()); }

  /// Reads up to the end mark, at most `size` bytes at once.
  std::string ReadAnswer(std::size_t size = 64) {
    std::string answer;
    std::string piece(size, '~');
    for (;;) {
      const Received received = transport.Read(piece.data(), size, Soon());
      EXPECT_TRUE(received.Result.Succeeded()) << received.Result.Detail;
      if (received.Anew) answer.clear();
      answer += piece.substr(0, received.Count);
      if (received.End || !received.Result.Succeeded()) return answer;
    }
  }
  Received ReadPart() { return transport.Read(buffer.data(), buffer.size(), Soon()); }
  DriverResult ReadFails(TimePoint deadline = Soon()) {
    Received received = transport.Read(buffer.data(), buffer.size(), deadline);
    EXPECT_EQ(received.Count, 0u);
    return std::move(received.Result);
  }
  std::string Place() const { return "127.0.0.1, port " + std::to_string(instrument.Port()); }

  HislipInstrument instrument{{{"*IDN?", Reaction::Answer("Maker,Model\n")}, {"Q?", Reaction::Answer("1\n")}}};
  HislipTransport transport{"127.0.0.1", instrument.Port(), "hislip0"};
  std::array<char, 64> buffer = {};
};

TEST_F(HislipTransportTest, CarriesCommandsAndAnswersWithTheirEnds) {
  Open();
  EXPECT_TRUE(transport.MarksEnd());
  EXPECT_EQ(instrument.SubAddress(), "hislip0");
  Write("*IDN?");
  EXPECT_EQ(ReadAnswer(), "Maker,Model\n");
  Write("*RST");
  Write("Q?");
  EXPECT_EQ(ReadAnswer(), "1\n");
  EXPECT_EQ(instrument.Received(), "*IDN?\r\n*RST\r\nQ?\r\n");
  EXPECT_EQ(instrument.Count(HislipType::DataEnd), 3);
}

TEST_F(HislipTransportTest, KeepsWhatASmallBufferHasNoRoomFor) {
  Open();
  Write("*IDN?");
  EXPECT_EQ(ReadAnswer(1), "Maker,Model\n");
  Write("Q?");
  EXPECT_EQ(ReadAnswer(1), "1\n");
}

TEST_F(HislipTransportTest, LongCommandsAndAnswersCrossWhole) {
  std::string data;
  for (std::size_t i = 0; i < 3'000'000; ++i) data += static_cast<char>('0' + i % 75);
  instrument.On("LONG?", Reaction::Answer(data));
  Open();
  Write("LONG?");
  EXPECT_TRUE(ReadAnswer(65536) == data);
  EXPECT_TRUE(transport.Write(data + "\r\n", Soon()).Succeeded());
  instrument.WaitFor(HislipType::DataEnd, 2);
  EXPECT_TRUE(instrument.Received() == "LONG?\r\n" + data + "\r\n");
  EXPECT_EQ(instrument.Count(HislipType::Data), 2) << "the instrument takes a mebibyte at once, its header included";
}

TEST_F(HislipTransportTest, AnAnswerWithoutBytesHasItsEnd) {
  instrument.On("EMPTY?", Reaction::Answer(""));
  Open();
  Write("EMPTY?");
  const Received received = ReadPart();
  EXPECT_TRUE(received.Result.Succeeded());
  EXPECT_EQ(received.Count, 0u);
  EXPECT_TRUE(received.End);
}

TEST_F(HislipTransportTest, WhatIsNotReadIsGoneWithTheNextCommand) {
  Open();
  Write("*IDN?");
  Write("Q?");
  EXPECT_EQ(ReadAnswer(), "1\n");
}

TEST_F(HislipTransportTest, WhatIsNotReadIsGoneWithTheConnection) {
  Open();
  Write("*IDN?");
  EXPECT_EQ(transport.Read(buffer.data(), 1, Soon()).Count, 1u);
  Open();
  Write("Q?");
  EXPECT_EQ(ReadAnswer(), "1\n");
}

TEST_F(HislipTransportTest, AnAnswerToAnotherMessageIsNeverTaken) {
  Open();
  Write("LATE?");
  EXPECT_EQ(ReadFails(VerySoon()).Status, DriverStatus::ReadTimeout);
  Write("Q?");
  EXPECT_EQ(ReadAnswer(), "1\n");
  Write("LATE?");
  instrument.SendRaw(HislipChannel::Synchronous, Bytes("4853 07 00 FFFFFF00 0000000000000002 3939"));
  EXPECT_EQ(ReadFails(VerySoon()).Status, DriverStatus::ReadTimeout);
}

TEST_F(HislipTransportTest, AReadGoesOnWhereATimeoutLeftIt) {
  instrument.On("PART?", Reaction::Part("12"));
  Open();
  Write("PART?");
  EXPECT_EQ(ReadPart().Count, 2u);
  EXPECT_EQ(ReadFails(VerySoon()).Status, DriverStatus::ReadTimeout);
  instrument.Send("34");
  EXPECT_EQ(ReadAnswer(), "34");
}

TEST_F(HislipTransportTest, AnInterruptedAnswerIsGivenUp) {
  instrument.On("PART?", Reaction::Part("12"));
  Open();
  Write("PART?");
  EXPECT_EQ(ReadPart().Count, 2u);
  instrument.SendRaw(HislipChannel::Asynchronous, Bytes("4853 0E 00 FFFFFF00 0000000000000000"));
  instrument.SendRaw(HislipChannel::Synchronous, Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  instrument.Send("3");
  const Received received = ReadPart();
  EXPECT_TRUE(received.Result.Succeeded());
  EXPECT_TRUE(received.Anew);
  EXPECT_TRUE(received.End);
  EXPECT_EQ(std::string(buffer.data(), received.Count), "3");
}

TEST_F(HislipTransportTest, NothingIsReadBehindTheDeadline) {
  Open();
  Write("*IDN?");
  EXPECT_EQ(transport.Read(buffer.data(), 2, Soon()).Count, 2u);
  EXPECT_EQ(ReadFails(TimePoint()).Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(ReadAnswer(), "ker,Model\n");
}

TEST_F(HislipTransportTest, AComplaintIsTheReasonOfATimeout) {
  Open();
  Write("A?");
  instrument.SendRaw(HislipChannel::Synchronous, Bytes("4853 03 04 00000000 0000000000000003 6F7567"));
  const DriverResult result = ReadFails(VerySoon());
  EXPECT_EQ(result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(result.Detail, Place() + ", error 4, message too large (oug)");
}

TEST_F(HislipTransportTest, ALockOfAnotherClientIsTheReasonOfATimeout) {
  Open();
  Write("A?");
  EXPECT_EQ(ReadFails(VerySoon()).Detail, Place());
  instrument.Respond(HislipType::AsyncLockInfo, Bytes("4853 19 01 00000001 0000000000000000"));
  EXPECT_EQ(ReadFails(VerySoon()).Detail, Place() + " (locked by another program; close the instrument there)");
}

TEST_F(HislipTransportTest, ADeviceClearDropsWhatIsOnItsWayAndKeepsTheConnections) {
  instrument.On("ENDLESS?", Reaction::Endless("1234567890,"));
  Open();
  Write("ENDLESS?");
  EXPECT_TRUE(ReadPart().Result.Succeeded());
  EXPECT_TRUE(transport.Clear(std::chrono::seconds(5)));
  Write("Q?");
  EXPECT_EQ(ReadAnswer(), "1\n");
  EXPECT_EQ(instrument.Count(HislipType::Initialize), 1);
  EXPECT_EQ(instrument.Count(HislipType::DeviceClearComplete), 1);
}

TEST_F(HislipTransportTest, ADeviceClearThatNobodyAcknowledgesFailsInTime) {
  instrument.Respond(HislipType::AsyncDeviceClear, "");
  Open();
  EXPECT_TRUE(transport.Stands());
  EXPECT_FALSE(transport.Clear(std::chrono::milliseconds(50)));
  EXPECT_FALSE(transport.Stands());
  instrument.Respond(HislipType::AsyncDeviceClear, Bytes("4853 17 00 00000000 0000000000000000"));
  instrument.Respond(HislipType::DeviceClearComplete, "");
  Open();
  EXPECT_FALSE(transport.Clear(std::chrono::milliseconds(50)));
}

TEST_F(HislipTransportTest, TheFrontPanelIsGivenBackBeforeTheClose) {
  Open();
  transport.ReturnToLocal(Soon());
  EXPECT_EQ(instrument.Count(HislipType::AsyncRemoteLocalControl), 1);
  transport.Close();
  transport.ReturnToLocal(Soon());
  EXPECT_EQ(instrument.Count(HislipType::AsyncRemoteLocalControl), 1);
}

TEST_F(HislipTransportTest, AnInstrumentThatKeepsItsFrontPanelHoldsUpNobody) {
  instrument.Respond(HislipType::AsyncRemoteLocalControl, "");
  Open();
  EXPECT_EQ(transport.GoToLocal(VerySoon()).Status, DriverStatus::ReadTimeout);
  instrument.WaitFor(HislipType::AsyncRemoteLocalControl);
}

TEST_F(HislipTransportTest, StandsUntilEitherConnectionEnds) {
  for (const HislipChannel channel : {HislipChannel::Synchronous, HislipChannel::Asynchronous}) {
    Open();
    EXPECT_TRUE(transport.Stands());
    instrument.Drop(channel);
    EXPECT_FALSE(transport.Stands());
  }
}

TEST_F(HislipTransportTest, AnUnreadAnswerHidesNoEnd) {
  Open();
  Write("Q?");
  instrument.WaitFor(HislipType::DataEnd);
  EXPECT_TRUE(transport.Stands());
  instrument.DropClients();
  EXPECT_FALSE(transport.Stands());
  EXPECT_EQ(ReadAnswer(), "1\n");
  EXPECT_EQ(ReadFails().Status, DriverStatus::ConnectionClosed);
}

} // namespace
} // namespace portico::test
