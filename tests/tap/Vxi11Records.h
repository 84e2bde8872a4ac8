#pragma once

#include "wire/PortMapper.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"
#include "wire/Vxi11Messages.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace portico::tap {

/// A call with its arguments, and a reply with its result, as they go over the wire.
template <typename Arguments>
std::string Call(std::uint32_t xid, std::uint32_t program, std::uint32_t procedure, const Arguments& arguments) {
  std::string record;
  const std::size_t begin = wire::BeginRpcRecord(record);
  wire::XdrWriter writer(record);
  wire::WriteRpcCall(writer, {xid, program, program == wire::PortMapper::Program ? 2U : 1U, procedure});
  writer.Put(arguments);
  wire::EndRpcRecord(record, begin);
  return record;
}

template <typename Result>
std::string Reply(std::uint32_t xid, const Result& result) {
  std::string record;
  const std::size_t begin = wire::BeginRpcRecord(record);
  wire::XdrWriter writer(record);
  wire::WriteRpcReply(writer, {xid, wire::RpcStatus::Success});
  writer.Put(result);
  wire::EndRpcRecord(record, begin);
  return record;
}

inline std::string Link(std::uint32_t xid, std::string_view device) {
  return Call(xid, wire::Vxi11::CoreProgram, 10, wire::Vxi11::CreateLinkArguments{1, false, 2, device});
}

} // namespace portico::tap
