#include "drivers/vxi11/Vxi11Streams.h"

namespace portico::test {
namespace {

using namespace drivers;
using testing::ElementsAre;
using testing::SizeIs;

/// A stream that waits in vain for its connection.
class WaitingStream final : public ITransport {
public:
  DriverResult Open(TimePoint) override {
    AboutToWait();
    return {DriverStatus::ConnectTimeout};
  }
  void Close() noexcept override {}
  DriverResult Write(std::string_view, TimePoint) override { return {DriverStatus::NotConnected}; }
  Received Read(char*, std::size_t, TimePoint) override { return {{DriverStatus::NotConnected}}; }
};

class Vxi11OpeningTest : public Vxi11TransportTest {
protected:
  /// Opening "gpib0,22" at port 1024 fails with that if the stream brings these bytes.
  void ExpectFailure(const std::string& bytes, DriverStatus status, const std::string& detail) {
    core.reads.clear();
    core.bytes.clear();
    core.Piece(bytes);
    const DriverResult result = Make(1024, "gpib0,22")->Open(Deadline());
    EXPECT_EQ(result.Status, status);
    EXPECT_EQ(result.Detail, detail);
  }

  /// The same of an instrument that answers create_link with this error.
  void ExpectRefusal(char error, const std::string& detail) {
    ExpectFailure(Reply(1, "\0\0\0"s + error + "\0\0\0\0\0\0\0\0\0\0\0\0"s), DriverStatus::ConnectFailed,
                  "bench, port 1024, " + detail);
  }
};

TEST_F(Vxi11OpeningTest, ThePortmapperTellsThePortOfTheCoreChannel) {
  portMapper.Piece(Reply(1, "\0\0\x04\x00"s));
  core.Piece(Reply(1, "\0\0\0\0\0\0\0\7\0\0\3\3\0\0\4\0"s));
  EXPECT_TRUE(Make(std::nullopt)->Open(Deadline()).Succeeded());
  EXPECT_THAT(connections, ElementsAre("bench:111", "bench:1024"));
  EXPECT_THAT(portMapper.written, ElementsAre("\x80\0\0\x38"
                                              "\0\0\0\1\0\0\0\0\0\0\0\2\x00\x01\x86\xA0\0\0\0\2\0\0\0\3"
                                              "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                              "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"s));
  EXPECT_THAT(core.written, ElementsAre("\x80\0\0\x40"
                                        "\0\0\0\1\0\0\0\0\0\0\0\2\x00\x06\x07\xAF\0\0\0\1\0\0\0\x0A"
                                        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                        "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\5inst0\0\0\0"s));
}

TEST_F(Vxi11OpeningTest, ANamedPortIsTakenWithoutAPortmapper) {
  core.Piece(Reply(1, "\0\0\0\0\0\0\0\7\0\0\3\3\0\0\4\0"s));
  EXPECT_TRUE(Make(1024, "gpib0,22")->Open(Deadline()).Succeeded());
  EXPECT_THAT(connections, ElementsAre("bench:1024"));
  EXPECT_THAT(core.written, ElementsAre(CoreCall(1, 10, "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x8gpib0,22"s)));
}

TEST_F(Vxi11OpeningTest, EachStreamHasTheDeadlineOfTheOpening) {
  portMapper.Piece(Reply(1, "\0\0\x04\x00"s));
  core.Piece(Reply(1, "\0\0\0\0\0\0\0\7\0\0\3\3\0\0\4\0"s));
  const TimePoint deadline = Deadline();
  EXPECT_TRUE(Make(std::nullopt)->Open(deadline).Succeeded());
  EXPECT_THAT(portMapper.deadlines, ElementsAre(deadline, deadline, deadline));
  EXPECT_THAT(core.deadlines, ElementsAre(deadline, deadline, deadline));
}

TEST_F(Vxi11OpeningTest, AHostWhosePortmapperKnowsNoVxi11IsToldSo) {
  portMapper.Piece(Reply(1, "\0\0\0\0"s));
  const DriverResult result = Make(std::nullopt)->Open(Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(result.Detail, "bench offers no VXI-11; try its raw socket, as in TCPIP::HOST::5025::SOCKET");
  EXPECT_THAT(connections, SizeIs(1));
}

TEST_F(Vxi11OpeningTest, AStreamThatCannotBeMadeSaysSoItself) {
  portMapper.openResult = {DriverStatus::ConnectionRefused, "bench, port 111"};
  DriverResult result = Make(std::nullopt)->Open(Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ConnectionRefused);
  EXPECT_EQ(result.Detail, "bench, port 111");
  core.openResult = {DriverStatus::UnknownHost, "bench"};
  result = Make(1024)->Open(Deadline());
  EXPECT_EQ(result.Status, DriverStatus::UnknownHost);
  EXPECT_EQ(result.Detail, "bench");
}

TEST_F(Vxi11OpeningTest, AWaitOfAStreamIsTold) {
  const auto connect = [](const std::string&, std::uint16_t) { return std::make_unique<WaitingStream>(); };
  Vxi11Transport waiting({0, "bench", "inst0", 1024}, connect, clock);
  int waits = 0;
  waiting.OnWait([&waits] { ++waits; });
  EXPECT_EQ(waiting.Open(Deadline()).Status, DriverStatus::ConnectTimeout);
  EXPECT_EQ(waits, 1);
}

TEST_F(Vxi11OpeningTest, APortmapperWithoutAnAnswerIsATimeout) {
  EXPECT_EQ(Make(std::nullopt)->Open(Deadline()).Status, DriverStatus::ConnectTimeout);
}

TEST_F(Vxi11OpeningTest, AnInstrumentWithoutAnAnswerIsATimeout) {
  EXPECT_EQ(Make(1024)->Open(Deadline()).Status, DriverStatus::ConnectTimeout);
}

TEST_F(Vxi11OpeningTest, AnOpeningThatWasGivenUpSaysSo) {
  core.Fails(DriverStatus::Cancelled);
  EXPECT_EQ(Make(1024)->Open(Deadline()).Status, DriverStatus::Cancelled);
}

TEST_F(Vxi11OpeningTest, AnInstrumentThatClosesTheConnectionIsToldSo) {
  core.reads.push_back({{DriverStatus::ConnectionClosed, "bench, port 1024"}});
  core.bytes.emplace_back();
  const DriverResult result = Make(1024)->Open(Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(result.Detail, "bench, port 1024, closed it; check that the instrument speaks VXI-11 there");
}

TEST_F(Vxi11OpeningTest, WhatSpeaksAnotherProtocolIsToldSo) {
  ExpectFailure(Record("welcome!"), DriverStatus::ConnectFailed,
                "bench, port 1024, sent what is no RPC reply; check that the instrument speaks VXI-11 there");
  ExpectFailure("SSH-2.0-server", DriverStatus::ConnectFailed,
                "bench, port 1024, sent a longer RPC reply than there is room for; check that the instrument speaks "
                "VXI-11 there");
  ExpectFailure(Reply(1, "\0\0\0\0"s), DriverStatus::ConnectFailed,
                "bench, port 1024, sent results that cannot be read; check that the instrument speaks VXI-11 there");
}

TEST_F(Vxi11OpeningTest, ARefusedLinkSaysWhatToDo) {
  ExpectRefusal(1, "has no device \"gpib0,22\"; check the name in front of ::INSTR");
  ExpectRefusal(3, "has no device \"gpib0,22\"; check the name in front of ::INSTR");
  ExpectRefusal(21, "has no device \"gpib0,22\"; check the name in front of ::INSTR");
  ExpectRefusal(9, "has no link left; close the instrument in another program");
  ExpectRefusal(11, "is locked by another program; close the instrument there");
  ExpectRefusal(8, "does not support the call; try again, or switch the instrument off and on");
  ExpectRefusal(17, "had an error of its interface; try again, or switch the instrument off and on");
  ExpectRefusal(99, "answered with VXI-11 error 99; try again, or switch the instrument off and on");
}

TEST_F(Vxi11OpeningTest, AFailedOpeningLeavesNoConnection) {
  core.Piece(Reply(1, "\0\0\0\3\0\0\0\0\0\0\0\0\0\0\0\0"s));
  EXPECT_FALSE(transport->Open(Deadline()).Succeeded());
  EXPECT_FALSE(transport->Stands());
  EXPECT_FALSE(transport->Clear(std::chrono::seconds(5)));
}

TEST_F(Vxi11OpeningTest, AClosedTransportOpensAnew) {
  Open();
  EXPECT_TRUE(transport->Stands());
  transport->Close();
  EXPECT_FALSE(transport->Stands());
  Open();
  EXPECT_TRUE(transport->Stands());
  EXPECT_THAT(connections, ElementsAre("bench:1024", "bench:1024"));
}

} // namespace
} // namespace portico::test
