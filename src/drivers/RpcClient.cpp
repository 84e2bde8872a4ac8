#include "drivers/RpcClient.h"

#include <utility>

namespace portico::drivers {
namespace {

/// Why there are no results, of a peer; nothing if there are.
const char* Refusal(RpcStatus status) {
  switch (status) {
  case RpcStatus::Success:
    break;
  case RpcStatus::ProgramUnavailable:
    return "does not have the RPC program";
  case RpcStatus::ProgramMismatch:
    return "has the RPC program in another version only";
  case RpcStatus::ProcedureUnavailable:
    return "does not have the RPC procedure";
  case RpcStatus::BadArguments:
    return "could not read the RPC call";
  case RpcStatus::SystemError:
    return "had a system error in the RPC call";
  case RpcStatus::RpcMismatch:
    return "speaks another version of RPC";
  case RpcStatus::AuthenticationFailed:
    return "refused the RPC call for want of credentials";
  }
  return nullptr;
}

} // namespace

RpcClient::RpcClient(ITransport& stream, std::string peer, std::uint32_t program, std::uint32_t version,
                     std::size_t resultLimit)
    : m_stream(stream),
      m_peer(std::move(peer)),
      m_program(program),
      m_version(version),
      m_reply(MaxRpcHeader + resultLimit) {}

std::size_t RpcClient::BeginCall(std::uint32_t procedure) {
  m_output.clear();
  const std::size_t begin = BeginRpcRecord(m_output);
  XdrWriter writer(m_output);
  WriteRpcCall(writer, {++m_xid, m_program, m_version, procedure});
  return begin;
}

DriverResult RpcClient::AwaitReply(XdrReader& results, TimePoint deadline) {
  for (;;) {
    // A record that has come in part goes on, whatever call it answers; a whole one was dealt with before.
    if (m_reply.Complete()) m_reply.Restart();
    if (DriverResult result = AwaitRecord(deadline); !result.Succeeded()) return result;
    results = XdrReader(m_reply.Content());
    RpcReply reply;
    if (!ReadRpcReply(results, reply)) return Failure("sent what is no RPC reply");
    if (reply.Xid != m_xid) continue;
    const char* refusal = Refusal(reply.Status);
    return refusal == nullptr ? DriverResult() : Failure(refusal);
  }
}

DriverResult RpcClient::AwaitRecord(TimePoint deadline) {
  while (!m_reply.Complete()) {
    if (m_input.Empty()) {
      Received received = m_stream.Read(m_input.Space(), ReceiveBuffer::Capacity, deadline);
      if (!received.Result.Succeeded()) return std::move(received.Result);
      m_input.Filled(received.Count, received.End);
    }
    m_input.Drop(m_reply.Feed(m_input.Unread()));
    if (m_reply.TooLong()) return Failure("sent a longer RPC reply than there is room for");
  }
  return {};
}

DriverResult RpcClient::Failure(const char* reason) const {
  return {DriverStatus::ConnectionLost, m_peer + ", " + reason};
}

} // namespace portico::drivers
