#include "drivers/vxi11/RpcClient.h"

#include <utility>

namespace portico::drivers {
namespace {

/// Why there are no results, of a peer; nothing if there are.
const char* Refusal(wire::RpcStatus status) {
  switch (status) {
  case wire::RpcStatus::Success:
    break;
  case wire::RpcStatus::ProgramUnavailable:
    return "does not have the RPC program";
  case wire::RpcStatus::ProgramMismatch:
    return "has the RPC program in another version only";
  case wire::RpcStatus::ProcedureUnavailable:
    return "does not have the RPC procedure";
  case wire::RpcStatus::BadArguments:
    return "could not read the RPC call";
  case wire::RpcStatus::SystemError:
    return "had a system error in the RPC call";
  case wire::RpcStatus::RpcMismatch:
    return "speaks another version of RPC";
  case wire::RpcStatus::AuthenticationFailed:
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
      m_reply(wire::MaxRpcHeader + resultLimit) {}

std::size_t RpcClient::BeginCall(std::uint32_t procedure) {
  m_output.clear();
  const std::size_t begin = wire::BeginRpcRecord(m_output);
  wire::XdrWriter writer(m_output);
  wire::WriteRpcCall(writer, {++m_xid, m_program, m_version, procedure});
  return begin;
}

DriverResult RpcClient::AwaitReply(wire::XdrReader& results, TimePoint deadline) {
  for (;;) {
    // A record that has come in part goes on, whatever call it answers; a whole one was dealt with before.
    if (m_reply.Complete()) m_reply.Restart();
    if (DriverResult result = AwaitRecord(deadline); !result.Succeeded()) return result;
    results = wire::XdrReader(m_reply.Content());
    wire::RpcReply reply;
    if (!wire::ReadRpcReply(results, reply)) return Failure("sent what is no RPC reply");
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
  return {DriverStatus::ProtocolError, m_peer + ", " + reason};
}

} // namespace portico::drivers
