#include "discovery/PortQuestion.h"

#include "wire/PortMapper.h"
#include "wire/RpcMessage.h"
#include "wire/Vxi11.h"

namespace portico::discovery {

using namespace wire;

std::string CoreChannelQuestion(std::uint32_t number) {
  std::string datagram;
  XdrWriter writer(datagram);
  WriteRpcCall(writer, {number, PortMapper::Program, PortMapper::Version, PortMapper::GetPort});
  writer.Put(PortMapper::Mapping{Vxi11::CoreProgram, Vxi11::Version, PortMapper::Protocol::Tcp});
  return datagram;
}

bool TellsOfCoreChannel(std::string_view datagram, std::uint32_t number) {
  XdrReader reader(datagram);
  RpcReply reply;
  PortMapper::PortResult result;
  return ReadRpcReply(reader, reply) && reply.Xid == number && reply.Status == RpcStatus::Success &&
         reader.Get(result) && result.Port != 0;
}

} // namespace portico::discovery
