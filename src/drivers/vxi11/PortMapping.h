#pragma once

#include "drivers/vxi11/RpcChannel.h"

#include <cstdint>
#include <string>

namespace portico::drivers {

/// What the portmapper of this machine tells about one of its RPC programs, for as long as the object lives.
class PortMapping {
public:
  /// `connect` makes streams to the portmapper.
  PortMapping(StreamConnector connect, std::uint32_t program, std::uint32_t version)
      : m_connect(std::move(connect)), m_program(program), m_version(version) {}
  /// Has the portmapper forget the program, if it was told of it and nobody has told it of another since.
  ~PortMapping();
  PortMapping(const PortMapping&) = delete;
  PortMapping& operator=(const PortMapping&) = delete;

  /// Tells the portmapper that the program is at that TCP port, whatever it knew of it before. ConnectionRefused if
  /// there is no portmapper.
  DriverResult Set(std::uint16_t port, TimePoint deadline);

private:
  /// Calls a procedure of the portmapper about the program.
  template <typename Answer>
  DriverResult Call(std::uint32_t procedure, std::uint16_t port, Answer& answer, TimePoint deadline);

  const StreamConnector m_connect;
  const std::uint32_t m_program;
  const std::uint32_t m_version;
  std::uint16_t m_port = 0; ///< the one that was told
};

} // namespace portico::drivers
