#pragma once

#include "server/ClientConnection.h"
#include "server/IServedConnection.h"
#include "system/FileDescriptor.h"
#include "system/WakePipe.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace portico::server {

/// Serves clients over TCP, in one thread, on any number of ports with a protocol each. What they meet behind it is the
/// business of the connections that the listeners' factories make.
class SocketServer {
public:
  /// The port that IANA has registered for SCPI over a raw socket.
  static constexpr std::uint16_t StandardPort = 5025;

  struct Listener {
    std::string Address = "127.0.0.1"; ///< of the interface, IPv4 or IPv6, in figures
    std::uint16_t Port = StandardPort; ///< 0 picks a free one
    ConnectionFactory Factory;         ///< called by Run() for each client
  };

  /// Listens from now on; connections are accepted while Run() runs. What the factories refer to must outlive the
  /// server, and while Run() runs only the server uses it. Throws std::invalid_argument for what is not an address, and
  /// std::system_error if the operating system refuses.
  explicit SocketServer(std::vector<Listener> listeners = {});
  /// One listener more, before Run(), in the same way.
  void Listen(Listener listener);

  // Of a listener, by its place in the list.
  std::uint16_t Port(std::size_t listener = 0) const { return m_listeners[listener].Port; }
  /// `127.0.0.1:5025` or `[::1]:5025`.
  std::string Endpoint(std::size_t listener = 0) const;

  /// Serves a further client, over a wire that is there already and does not block: the far end of a pseudo-terminal.
  void Add(system::FileDescriptor wire, std::unique_ptr<IServedConnection> connection);

  /// Serves until Stop(), then closes all connections. Throws std::system_error.
  void Run();

  /// Ends Run(), now or when it is called. May be called from any thread and from a signal handler.
  void Stop() noexcept;

private:
  struct Opened : Listener {
    system::FileDescriptor Socket;
  };

  static Opened Open(Listener listener);
  static std::string EndpointOf(const Listener& listener);
  void Accept(const Opened& listener, TimePoint now);
  std::optional<TimePoint> NextEvent() const;
  void Serve(TimePoint now, const std::vector<short>& events);

  std::vector<Opened> m_listeners;
  system::WakePipe m_wakeUp; // never drained
  std::vector<std::unique_ptr<ClientConnection>> m_clients;
  TimePoint m_acceptAgain{}; ///< after the system ran out of descriptors
};

} // namespace portico::server
