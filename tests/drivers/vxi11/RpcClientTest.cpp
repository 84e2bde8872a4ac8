#include "drivers/vxi11/RpcClient.h"

#include "support/doubles/ScriptedTransport.h"
#include "wire/PortMapper.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;
using namespace wire;
using namespace std::string_literals;

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

/// The head of a call of GetPort behind its xid, and the question.
const std::string Question = "\0\0\0\0\0\0\0\2"
                             "\x00\x01\x86\xA0\0\0\0\2\0\0\0\3"
                             "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                             "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"s;

/// The head of a successful reply behind its xid.
const std::string Success = "\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;
/// The same of an accepted call up to its status, and of a denied one up to the reason.
const std::string Accepted = Success.substr(0, 16);
const std::string Denied = "\0\0\0\1\0\0\0\1"s;

std::string Xid(char number) { return "\0\0\0"s + number; }

/// One fragment, and the last.
std::string Record(const std::string& content) { return "\x80\0\0"s + static_cast<char>(content.size()) + content; }

/// The whole reply to a call of that number, which found the port.
std::string Found(char xid) { return Record(Xid(xid) + Success + "\0\0\x13\x99"s); }

class RpcClientTest : public testing::Test {
protected:
  DriverResult Call() { return client.Call(PortMapper::GetPort, question, answer, deadline); }
  DriverResult Finish() { return client.Finish(answer, deadline); }

  /// The call fails with these particulars if the stream brings these bytes.
  void ExpectFailure(const std::string& bytes, const std::string& detail) {
    ScriptedTransport::Record script;
    ScriptedTransport other(script);
    RpcClient caller(other, "scope", PortMapper::Program, PortMapper::Version, 8);
    script.Piece(bytes);
    const DriverResult result = caller.Call(PortMapper::GetPort, question, answer, deadline);
    EXPECT_EQ(result.Status, DriverStatus::ProtocolError);
    EXPECT_EQ(result.Detail, detail);
  }

  const TimePoint deadline{std::chrono::seconds(7)};
  const PortMapper::Mapping question{0x0607AF, 1, PortMapper::Protocol::Tcp, 0};
  PortMapper::PortResult answer;
  ScriptedTransport::Record stream;
  ScriptedTransport transport{stream};
  RpcClient client{transport, "scope", PortMapper::Program, PortMapper::Version, 8};
};

TEST_F(RpcClientTest, ACallGoesOutInOnePieceUnderItsOwnNumber) {
  stream.Piece(Found(1));
  stream.Piece(Found(2));
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_THAT(stream.written, ElementsAre("\x80\0\0\x38"s + Xid(1) + Question, "\x80\0\0\x38"s + Xid(2) + Question));
}

TEST_F(RpcClientTest, TheResultsAreRead) {
  stream.Piece(Found(1));
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
}

TEST_F(RpcClientTest, AReplyMayDripIn) {
  for (const char byte : Found(1)) stream.Piece(std::string(1, byte));
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
  EXPECT_THAT(stream.deadlines, SizeIs(1 + 32));
  EXPECT_THAT(stream.deadlines, Each(deadline));
}

TEST_F(RpcClientTest, ARepliesFragmentsArePutTogether) {
  stream.Piece("\0\0\0\4"s + Xid(1) + "\x80\0\0\x18"s + Success + "\0\0\x13\x99"s);
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
}

TEST_F(RpcClientTest, TheReplyToAnEarlierCallIsPassedOver) {
  EXPECT_EQ(Call().Status, DriverStatus::ReadTimeout);
  stream.Piece(Record(Xid(1) + Success + "\0\0\0\1"s) + Found(2));
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
}

TEST_F(RpcClientTest, TheRestOfAnEarlierReplyIsPassedOver) {
  const std::string late = Record(Xid(1) + Success + "\0\0\0\1"s);
  stream.Piece(late.substr(0, 9));
  EXPECT_EQ(Call().Status, DriverStatus::ReadTimeout);
  stream.Piece(late.substr(9));
  stream.Piece(Found(2));
  EXPECT_TRUE(Call().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
}

TEST_F(RpcClientTest, ARefusalOfAnEarlierCallIsPassedOver) {
  EXPECT_EQ(Call().Status, DriverStatus::ReadTimeout);
  stream.Piece(Record(Xid(1) + Accepted + "\0\0\0\5"s));
  stream.Piece(Found(2));
  EXPECT_TRUE(Call().Succeeded());
}

TEST_F(RpcClientTest, RepliesToNoCallNeverEndTheWait) {
  for (char xid = 2; xid < 100; ++xid) stream.Piece(Found(xid));
  EXPECT_EQ(Call().Status, DriverStatus::ReadTimeout);
}

TEST_F(RpcClientTest, BehindATimeoutTheWaitGoesOnForTheSameReply) {
  const std::string reply = Found(1);
  stream.Piece(reply.substr(0, 20));
  EXPECT_EQ(Call().Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(Finish().Status, DriverStatus::ReadTimeout);
  stream.Piece(reply.substr(20));
  EXPECT_TRUE(Finish().Succeeded());
  EXPECT_EQ(answer.Port, 5017);
  EXPECT_THAT(stream.written, SizeIs(1));
}

TEST_F(RpcClientTest, AConnectionThatFailsSaysSoItself) {
  stream.Fails(DriverStatus::ConnectionClosed);
  EXPECT_EQ(Call().Status, DriverStatus::ConnectionClosed);
  stream.writeResult = {DriverStatus::WriteTimeout, "why"};
  const DriverResult result = Call();
  EXPECT_EQ(result.Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(result.Detail, "why");
}

TEST_F(RpcClientTest, WhatIsNoReplyIsAFailure) {
  ExpectFailure(Record(""), "scope, sent what is no RPC reply");
  ExpectFailure(Record(Xid(1) + Question), "scope, sent what is no RPC reply");
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\6"s), "scope, sent what is no RPC reply");
}

TEST_F(RpcClientTest, AReplyBeyondTheLimitIsAFailureAtItsMark) {
  ExpectFailure("\x80\x00\x03\x51"s, "scope, sent a longer RPC reply than there is room for"); // 840 + 8 + 1
  ExpectFailure("HTTP/1.1 400 Bad Request", "scope, sent a longer RPC reply than there is room for");
}

TEST_F(RpcClientTest, ResultsCutOffOrOutOfRangeAreAFailure) {
  ExpectFailure(Record(Xid(1) + Success), "scope, sent results that cannot be read");
  ExpectFailure(Record(Xid(1) + Success + "\0\1\0\0"s), "scope, sent results that cannot be read");
}

TEST_F(RpcClientTest, ARefusedCallSaysWhy) {
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\1"s), "scope, does not have the RPC program");
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\2\0\0\0\2\0\0\0\3"s),
                "scope, has the RPC program in another version only");
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\3"s), "scope, does not have the RPC procedure");
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\4"s), "scope, could not read the RPC call");
  ExpectFailure(Record(Xid(1) + Accepted + "\0\0\0\5"s), "scope, had a system error in the RPC call");
  ExpectFailure(Record(Xid(1) + Denied + "\0\0\0\0\0\0\0\3\0\0\0\3"s), "scope, speaks another version of RPC");
  ExpectFailure(Record(Xid(1) + Denied + "\0\0\0\1\0\0\0\1"s), "scope, refused the RPC call for want of credentials");
}

} // namespace
} // namespace portico::test
