#pragma once

#include <cstdint>
#include <tuple>

namespace portico::wire {
/// The portmapper, which tells at which port of its machine an RPC program listens.
namespace PortMapper {

inline constexpr std::uint32_t Program = 100000;
inline constexpr std::uint32_t Version = 2;
inline constexpr std::uint16_t Port = 111;

inline constexpr std::uint32_t Set = 1;
inline constexpr std::uint32_t Unset = 2;
inline constexpr std::uint32_t GetPort = 3;

enum class Protocol : std::uint32_t { Tcp = 6, Udp = 17 };

/// The arguments of all three. Only Set looks at the port.
struct Mapping {
  std::uint32_t Program = 0;
  std::uint32_t Version = 0;
  PortMapper::Protocol Protocol = PortMapper::Protocol::Tcp;
  std::uint32_t Port = 0;

  static auto Fields(auto& self) { return std::tie(self.Program, self.Version, self.Protocol, self.Port); }
};

/// The result of Set and Unset.
struct ChangeResult {
  bool Done = false;

  static auto Fields(auto& self) { return std::tie(self.Done); }
};

/// The result of GetPort.
struct PortResult {
  /// 0 if the program is not registered.
  std::uint16_t Port = 0;

  static auto Fields(auto& self) { return std::tie(self.Port); }
};

} // namespace PortMapper
} // namespace portico::wire
