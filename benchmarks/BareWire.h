#pragma once

#include "system/FileDescriptor.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace portico {

/// What the least of clients does on a wire: one call of the system to send, and as many to receive as it takes.
/// Failures of the system are std::system_error.
class BareWire {
public:
  /// Connects to a TCP port of this machine.
  explicit BareWire(std::uint16_t port);
  /// Opens a serial line as it is.
  explicit BareWire(const char* path);

  void Send(std::string_view bytes);

  /// Receives until `complete` says so of all that has come.
  template <typename Predicate>
  std::string_view ReceiveUntil(Predicate complete) {
    std::size_t filled = 0;
    do {
      filled += Receive(filled);
    } while (!complete(std::string_view(m_received.data(), filled)));
    return {m_received.data(), filled};
  }
  /// Receives until a line ends.
  std::string_view ReceiveLine() {
    return ReceiveUntil([](std::string_view received) { return received.ends_with('\n'); });
  }

private:
  std::size_t Receive(std::size_t filled);

  system::FileDescriptor m_wire;
  std::array<char, 65536> m_received{};
};

} // namespace portico
