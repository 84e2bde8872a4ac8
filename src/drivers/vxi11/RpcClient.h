#pragma once

#include "drivers/ITransport.h"
#include "drivers/ReceiveBuffer.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace portico::drivers {

/// Calls the procedures of one RPC program on one connection, one call at a time. What the other side sends costs no
/// more memory than the limit, and a reply to an earlier call is never taken for the one that is waited for.
///
/// What is no reply to the call that was made, or refuses it, is a ProtocolError with the peer and the reason; all
/// other failures are those of the stream. After one other than ReadTimeout the connection is of no more use.
class RpcClient {
public:
  /// `stream` belongs to the caller, is open whenever a call is made, and outlives the client. `peer` is what messages
  /// call the other side. `resultLimit` is the most that the results of a call take, in bytes.
  RpcClient(ITransport& stream, std::string peer, std::uint32_t program, std::uint32_t version,
            std::size_t resultLimit);

  /// Calls and waits for the results. Text in them stands until the next call.
  template <typename Procedure, wire::XdrRecord Arguments, wire::XdrRecord Results>
  DriverResult Call(Procedure procedure, const Arguments& arguments, Results& results, TimePoint deadline) {
    DriverResult result = Start(procedure, arguments, deadline);
    return result.Succeeded() ? Finish(results, deadline) : result;
  }

  /// Sends a call. The reply to an earlier one that never came is passed over from now on.
  template <typename Procedure, wire::XdrRecord Arguments>
  DriverResult Start(Procedure procedure, const Arguments& arguments, TimePoint deadline) {
    const std::size_t begin = BeginCall(static_cast<std::uint32_t>(procedure));
    wire::XdrWriter(m_output).Put(arguments);
    wire::EndRpcRecord(m_output, begin);
    return m_stream.Write(m_output, deadline);
  }

  /// Waits for the results of the call that was started last. After a ReadTimeout it may be called again.
  template <wire::XdrRecord Results>
  DriverResult Finish(Results& results, TimePoint deadline) {
    wire::XdrReader reader({});
    DriverResult result = AwaitReply(reader, deadline);
    return !result.Succeeded() || reader.Get(results) ? result : Failure("sent results that cannot be read");
  }

private:
  std::size_t BeginCall(std::uint32_t procedure);
  DriverResult AwaitReply(wire::XdrReader& results, TimePoint deadline);
  DriverResult AwaitRecord(TimePoint deadline);
  DriverResult Failure(const char* reason) const;

  ITransport& m_stream;
  const std::string m_peer;
  const std::uint32_t m_program;
  const std::uint32_t m_version;
  std::uint32_t m_xid = 0;
  std::string m_output;
  ReceiveBuffer m_input;
  wire::RpcRecordReader m_reply;
};

} // namespace portico::drivers
