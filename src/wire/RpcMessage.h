#pragma once

#include "wire/Xdr.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>

namespace portico::wire {

/// What an RPC message may take besides arguments or results, in bytes: the header of a call with the longest
/// credentials and verifier that are allowed. A reply's header is shorter.
inline constexpr std::size_t MaxRpcHeader = 840;

/// The head of a call, in front of the arguments. Nobody is asked who he is: credentials and verifier are written
/// empty, and read without a look at what they say.
struct RpcCall {
  /// The caller's number for the call, which the reply repeats.
  std::uint32_t Xid = 0;
  std::uint32_t Program = 0;
  std::uint32_t Version = 0;
  std::uint32_t Procedure = 0;

  bool operator==(const RpcCall&) const = default;
};

enum class RpcStatus : std::uint8_t {
  // As accepted calls end, by their numbers on the wire.
  Success = 0,
  ProgramUnavailable = 1,
  /// The server has the program, but not in that version.
  ProgramMismatch = 2,
  ProcedureUnavailable = 3,
  BadArguments = 4,
  SystemError = 5,
  // Why calls are denied.
  RpcMismatch,
  AuthenticationFailed,
};

/// The head of a reply, in front of the results, which only a success has.
struct RpcReply {
  std::uint32_t Xid = 0;
  RpcStatus Status = RpcStatus::Success;
  /// The versions that the server has, of the program or of RPC, if that is what does not match.
  std::uint32_t LowestVersion = 0;
  std::uint32_t HighestVersion = 0;

  bool operator==(const RpcReply&) const = default;
};

/// What a server finds where a call should begin.
enum class RpcCallKind : std::uint8_t {
  Call,
  /// A call in another version of RPC than 2: only its Xid is known, and RpcMismatch is the answer.
  OtherRpcVersion,
  Malformed,
};

void WriteRpcCall(XdrWriter& writer, const RpcCall& call);

/// Leaves the reader at the arguments.
RpcCallKind ReadRpcCall(XdrReader& reader, RpcCall& call);

void WriteRpcReply(XdrWriter& writer, const RpcReply& reply);

/// Leaves the reader at the results. Answers false, with a reader that has failed, for what is no reply; its Xid is
/// then 0 or the one that stands there.
bool ReadRpcReply(XdrReader& reader, RpcReply& reply);

} // namespace portico::wire
