#include "wire/RpcMessage.h"

#include <gtest/gtest.h>
#include <string>

namespace portico::wire {
namespace {

using namespace std::string_literals;

std::string Bytes(const RpcCall& call) {
  std::string bytes;
  XdrWriter writer(bytes);
  WriteRpcCall(writer, call);
  return bytes;
}

std::string Bytes(const RpcReply& reply) {
  std::string bytes;
  XdrWriter writer(bytes);
  WriteRpcReply(writer, reply);
  return bytes;
}

const std::string CreateLinkCall = "\x12\x34\x56\x78" // xid
                                   "\0\0\0\0"         // call
                                   "\0\0\0\2"         // version of RPC
                                   "\x00\x06\x07\xAF"
                                   "\0\0\0\1"
                                   "\0\0\0\012"
                                   "\0\0\0\0\0\0\0\0"   // credentials
                                   "\0\0\0\0\0\0\0\0"s; // verifier

/// The head of an accepted reply up to its status.
const std::string Accepted = "\x12\x34\x56\x78\0\0\0\1\0\0\0\0"
                             "\0\0\0\0\0\0\0\0"s;
const std::string Denied = "\x12\x34\x56\x78\0\0\0\1\0\0\0\1"s;

void ExpectCall(const std::string& bytes, RpcCallKind kind, const RpcCall& call, std::string_view rest) {
  XdrReader reader(bytes);
  RpcCall read;
  EXPECT_EQ(ReadRpcCall(reader, read), kind);
  EXPECT_EQ(read, call);
  EXPECT_EQ(reader.Rest(), rest);
}

bool IsCall(const std::string& bytes) {
  XdrReader reader(bytes);
  RpcCall read;
  return ReadRpcCall(reader, read) == RpcCallKind::Call;
}

/// The reply is written as these bytes, and they are read as it; no part of them will do.
void ExpectBothWays(const RpcReply& reply, const std::string& bytes) {
  EXPECT_EQ(Bytes(reply), bytes);
  const std::string longer = bytes + "rest";
  XdrReader reader(longer);
  RpcReply read;
  EXPECT_TRUE(ReadRpcReply(reader, read));
  EXPECT_EQ(read, reply);
  EXPECT_EQ(reader.Rest(), "rest");
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const std::string part = bytes.substr(0, size);
    XdrReader cut(part);
    EXPECT_FALSE(ReadRpcReply(cut, read)) << size;
    EXPECT_TRUE(cut.Failed()) << size;
  }
}

void ExpectNoReply(const std::string& bytes) {
  XdrReader reader(bytes);
  RpcReply reply;
  EXPECT_FALSE(ReadRpcReply(reader, reply));
  EXPECT_TRUE(reader.Failed());
}

TEST(RpcMessageTest, ACallIsWrittenWithoutCredentials) {
  EXPECT_EQ(Bytes(RpcCall{0x12345678, 0x0607AF, 1, 10}), CreateLinkCall);
}

TEST(RpcMessageTest, ACallIsRead) {
  ExpectCall(CreateLinkCall + "arguments", RpcCallKind::Call, {0x12345678, 0x0607AF, 1, 10}, "arguments");
}

TEST(RpcMessageTest, CredentialsAndVerifierArePassedOver) {
  const std::string head = CreateLinkCall.substr(0, 24);
  ExpectCall(head + "\0\0\0\1\0\0\0\5abcde\0\0\0"s + "\0\0\0\2\0\0\0\4wxyz"s + "rest", RpcCallKind::Call,
             {0x12345678, 0x0607AF, 1, 10}, "rest");
}

TEST(RpcMessageTest, CredentialsAndVerifierHaveFourHundredBytesAtMost) {
  const std::string head = CreateLinkCall.substr(0, 24);
  const std::string none(8, '\0');
  const std::string longest = "\0\0\0\1\0\0\x01\x90"s + std::string(400, 'x');
  const std::string tooLong = "\0\0\0\1\0\0\x01\x91"s + std::string(404, 'x');
  EXPECT_TRUE(IsCall(head + longest + longest));
  EXPECT_EQ((head + longest + longest).size(), MaxRpcHeader);
  EXPECT_FALSE(IsCall(head + tooLong + none));
  EXPECT_FALSE(IsCall(head + none + tooLong));
}

TEST(RpcMessageTest, ACallCutOffIsMalformed) {
  for (std::size_t size = 0; size < CreateLinkCall.size(); ++size) {
    const std::string part = CreateLinkCall.substr(0, size);
    XdrReader reader(part);
    RpcCall call;
    EXPECT_EQ(ReadRpcCall(reader, call), RpcCallKind::Malformed) << size;
  }
}

TEST(RpcMessageTest, AReplyIsNoCall) {
  std::string bytes = CreateLinkCall;
  bytes[7] = 1;
  EXPECT_FALSE(IsCall(bytes));
  bytes[7] = 2;
  EXPECT_FALSE(IsCall(bytes));
}

TEST(RpcMessageTest, ACallInAnotherVersionOfRpcKeepsItsXid) {
  std::string bytes = CreateLinkCall;
  bytes[11] = 3;
  XdrReader reader(bytes);
  RpcCall call;
  EXPECT_EQ(ReadRpcCall(reader, call), RpcCallKind::OtherRpcVersion);
  EXPECT_EQ(call, (RpcCall{0x12345678, 0, 0, 0}));
}

TEST(RpcMessageTest, Success) { ExpectBothWays({0x12345678}, Accepted + "\0\0\0\0"s); }

TEST(RpcMessageTest, AcceptedCallsThatFail) {
  ExpectBothWays({0x12345678, RpcStatus::ProgramUnavailable}, Accepted + "\0\0\0\1"s);
  ExpectBothWays({0x12345678, RpcStatus::ProgramMismatch, 1, 4}, Accepted + "\0\0\0\2\0\0\0\1\0\0\0\4"s);
  ExpectBothWays({0x12345678, RpcStatus::ProcedureUnavailable}, Accepted + "\0\0\0\3"s);
  ExpectBothWays({0x12345678, RpcStatus::BadArguments}, Accepted + "\0\0\0\4"s);
  ExpectBothWays({0x12345678, RpcStatus::SystemError}, Accepted + "\0\0\0\5"s);
}

TEST(RpcMessageTest, DeniedCalls) {
  ExpectBothWays({0x12345678, RpcStatus::RpcMismatch, 2, 3}, Denied + "\0\0\0\0\0\0\0\2\0\0\0\3"s);
  ExpectBothWays({0x12345678, RpcStatus::AuthenticationFailed}, Denied + "\0\0\0\1\0\0\0\7"s);
}

TEST(RpcMessageTest, AReplysVerifierIsPassedOver) {
  const std::string bytes = "\0\0\0\1\0\0\0\1\0\0\0\0" // xid, reply, accepted
                            "\0\0\0\2\0\0\0\5abcde\0\0\0"
                            "\0\0\0\0"
                            "rest"s;
  XdrReader reader(bytes);
  RpcReply reply;
  EXPECT_TRUE(ReadRpcReply(reader, reply));
  EXPECT_EQ(reply, RpcReply{1});
  EXPECT_EQ(reader.Rest(), "rest");
}

TEST(RpcMessageTest, UnknownStatusesAreNoReply) {
  ExpectNoReply(Accepted + "\0\0\0\6"s);
  ExpectNoReply(Accepted + "\0\0\0\7"s);
  ExpectNoReply(Accepted + "\1\0\0\0"s);
  ExpectNoReply(Denied + "\0\0\0\2\0\0\0\0"s);
  ExpectNoReply("\0\0\0\1\0\0\0\1\0\0\0\2\0\0\0\0\0\0\0\0"s);
}

TEST(RpcMessageTest, ACallIsNoReply) {
  ExpectNoReply(CreateLinkCall);
  std::string bytes = Accepted + "\0\0\0\0"s;
  bytes[7] = 0;
  ExpectNoReply(bytes);
  bytes[7] = 2;
  ExpectNoReply(bytes);
}

TEST(RpcMessageTest, AReplysVerifierHasFourHundredBytesAtMost) {
  const std::string head = Accepted.substr(0, 12);
  ExpectNoReply(head + "\0\0\0\1\0\0\x01\x91"s + std::string(404, 'x') + "\0\0\0\0"s);
}

} // namespace
} // namespace portico::wire
