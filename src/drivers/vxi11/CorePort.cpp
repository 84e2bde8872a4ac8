#include "drivers/vxi11/CorePort.h"

#include "drivers/vxi11/Vxi11Errors.h"
#include "wire/PortMapper.h"

#include <utility>

namespace portico::drivers {

namespace PortMapper = wire::PortMapper;

DriverResult FindCorePort(const StreamConnector& connect, const std::string& host, std::uint16_t& port,
                          TimePoint deadline) {
  constexpr std::size_t resultLimit = 4;
  RpcChannel channel(connect(host, PortMapper::Port), host + ", port " + std::to_string(PortMapper::Port),
                     PortMapper::Program, PortMapper::Version, resultLimit);
  if (DriverResult result = channel.Stream().Open(deadline); !result.Succeeded()) return result;
  const PortMapper::Mapping question = {wire::Vxi11::CoreProgram, wire::Vxi11::Version, PortMapper::Protocol::Tcp, 0};
  PortMapper::PortResult answer;
  DriverResult result = channel.Client().Call(PortMapper::GetPort, question, answer, deadline);
  if (!result.Succeeded()) return OpeningFailure(std::move(result));
  port = answer.Port;
  if (port != 0) return {};
  return {DriverStatus::ConnectFailed, host + " offers no VXI-11; try its raw socket, as in TCPIP::HOST::5025::SOCKET"};
}

} // namespace portico::drivers
