#include "wire/RpcMessage.h"

namespace portico::wire {
namespace {

constexpr std::uint32_t RpcVersion = 2;
constexpr std::size_t MaxAuthentication = 400; // bytes

enum class MessageType : std::uint32_t { Call = 0, Reply = 1 };
enum class ReplyStatus : std::uint32_t { Accepted = 0, Denied = 1 };
enum class RejectStatus : std::uint32_t { RpcMismatch = 0, AuthenticationFailed = 1 };

/// Why authentication failed; ours says that it does not know.
constexpr std::uint32_t AuthenticationFailedForUnknownReason = 7;

/// Credentials or a verifier.
struct Authentication {
  std::uint32_t Flavor = 0; // none
  std::string_view Body;

  static auto Fields(auto& self) { return std::tie(self.Flavor, self.Body); }
};

struct Versions {
  std::uint32_t Lowest = 0;
  std::uint32_t Highest = 0;

  static auto Fields(auto& self) { return std::tie(self.Lowest, self.Highest); }
};

bool SkipAuthentication(XdrReader& reader) {
  Authentication authentication;
  reader.Get(authentication);
  return authentication.Body.size() <= MaxAuthentication ? !reader.Failed() : reader.Fail();
}

bool GetVersions(XdrReader& reader, RpcReply& reply) {
  Versions versions;
  reader.Get(versions);
  reply.LowestVersion = versions.Lowest;
  reply.HighestVersion = versions.Highest;
  return !reader.Failed();
}

bool ReadAccepted(XdrReader& reader, RpcReply& reply) {
  std::uint32_t status = 0;
  SkipAuthentication(reader);
  reader.Get(status);
  if (status > static_cast<std::uint32_t>(RpcStatus::SystemError)) return reader.Fail();
  reply.Status = static_cast<RpcStatus>(status);
  return reply.Status == RpcStatus::ProgramMismatch ? GetVersions(reader, reply) : !reader.Failed();
}

bool ReadDenied(XdrReader& reader, RpcReply& reply) {
  RejectStatus status{};
  reader.Get(status);
  switch (status) {
  case RejectStatus::RpcMismatch:
    reply.Status = RpcStatus::RpcMismatch;
    return GetVersions(reader, reply);
  case RejectStatus::AuthenticationFailed: {
    reply.Status = RpcStatus::AuthenticationFailed;
    std::uint32_t reason = 0;
    return reader.Get(reason);
  }
  }
  return reader.Fail();
}

} // namespace

void WriteRpcCall(XdrWriter& writer, const RpcCall& call) {
  writer.Put(call.Xid);
  writer.Put(MessageType::Call);
  writer.Put(RpcVersion);
  writer.Put(call.Program);
  writer.Put(call.Version);
  writer.Put(call.Procedure);
  writer.Put(Authentication());
  writer.Put(Authentication());
}

RpcCallKind ReadRpcCall(XdrReader& reader, RpcCall& call) {
  MessageType type{};
  std::uint32_t rpcVersion = 0;
  call = {};
  reader.Get(call.Xid);
  reader.Get(type);
  reader.Get(rpcVersion);
  if (reader.Failed() || type != MessageType::Call) return RpcCallKind::Malformed;
  if (rpcVersion != RpcVersion) return RpcCallKind::OtherRpcVersion;
  reader.Get(call.Program);
  reader.Get(call.Version);
  reader.Get(call.Procedure);
  SkipAuthentication(reader);
  return SkipAuthentication(reader) ? RpcCallKind::Call : RpcCallKind::Malformed;
}

void WriteRpcReply(XdrWriter& writer, const RpcReply& reply) {
  const Versions versions = {reply.LowestVersion, reply.HighestVersion};
  writer.Put(reply.Xid);
  writer.Put(MessageType::Reply);
  switch (reply.Status) {
  case RpcStatus::RpcMismatch:
    writer.Put(ReplyStatus::Denied);
    writer.Put(RejectStatus::RpcMismatch);
    writer.Put(versions);
    return;
  case RpcStatus::AuthenticationFailed:
    writer.Put(ReplyStatus::Denied);
    writer.Put(RejectStatus::AuthenticationFailed);
    writer.Put(AuthenticationFailedForUnknownReason);
    return;
  default:
    writer.Put(ReplyStatus::Accepted);
    writer.Put(Authentication());
    writer.Put(static_cast<std::uint32_t>(reply.Status));
    if (reply.Status == RpcStatus::ProgramMismatch) writer.Put(versions);
  }
}

bool ReadRpcReply(XdrReader& reader, RpcReply& reply) {
  MessageType type{};
  ReplyStatus status{};
  reply = {};
  reader.Get(reply.Xid);
  reader.Get(type);
  reader.Get(status);
  if (type != MessageType::Reply) return reader.Fail();
  switch (status) {
  case ReplyStatus::Accepted:
    return ReadAccepted(reader, reply);
  case ReplyStatus::Denied:
    return ReadDenied(reader, reply);
  }
  return reader.Fail();
}

} // namespace portico::wire
