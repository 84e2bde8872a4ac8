#pragma once

#include "simulator/server/ClientConnection.h"
#include "system/FileDescriptor.h"
#include "system/WakePipe.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace portico::simulator {

/// Serves a device over TCP, in one thread: bytes only, as instruments do on port 5025. All clients meet the same one.
class SocketServer {
public:
  /// The port that IANA has registered for SCPI over a raw socket.
  static constexpr std::uint16_t StandardPort = 5025;

  struct Options {
    std::string Address = "127.0.0.1"; ///< of the interface, IPv4 or IPv6, in figures
    std::uint16_t Port = StandardPort; ///< 0 picks a free one
  };

  /// Listens from now on; connections are accepted while Run() runs. `device` must outlive the server, and while Run()
  /// runs only the server uses it. Throws std::invalid_argument for what is not an address, and std::system_error if
  /// the operating system refuses.
  SocketServer(Device& device, Options options);

  std::uint16_t Port() const { return m_port; }
  /// `127.0.0.1:5025` or `[::1]:5025`.
  std::string Endpoint() const;

  /// Serves until Stop(), then closes all connections. Throws std::system_error.
  void Run();

  /// Ends Run(), now or when it is called. May be called from any thread and from a signal handler.
  void Stop() noexcept;

private:
  void Listen();
  void Accept(TimePoint now);
  std::optional<TimePoint> NextEvent() const;
  void Serve(TimePoint now, const std::vector<short>& events);

  Device& m_device;
  const Options m_options;
  std::uint16_t m_port = 0;
  system::FileDescriptor m_listener;
  system::WakePipe m_wakeUp; // never drained
  std::vector<std::unique_ptr<ClientConnection>> m_clients;
  TimePoint m_acceptAgain{}; ///< after the system ran out of descriptors
};

} // namespace portico::simulator
