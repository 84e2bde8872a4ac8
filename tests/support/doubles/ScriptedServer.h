#pragma once

#include "support/doubles/InstrumentScript.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace portico::test {

/// An instrument on a TCP port of this machine, which does what a script says. It serves any number of clients from
/// one thread and records all that they send.
class ScriptedServer {
public:
  struct Options {
    bool ipv6 = false;
    /// A deaf server neither accepts nor reads. Its queue of waiting connections is as short as can be.
    bool deaf = false;
  };

  explicit ScriptedServer(InstrumentScript script) : ScriptedServer(std::move(script), Options()) {}
  ScriptedServer(InstrumentScript script, const Options& options);
  ~ScriptedServer();
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  /// Whether the machine has the loopback address that the server would listen on.
  static bool HasIpv6();

  /// 0 if the server could not listen.
  std::uint16_t Port() const { return m_port; }
  /// "TCPIP::127.0.0.1::PORT::SOCKET", or the same with [::1].
  std::string ResourceName() const;

  /// Changes the reaction to a command from now on.
  void On(const std::string& command, Reaction reaction);

  /// All bytes that all clients have sent so far.
  std::string Received() const;
  /// How many connections were accepted so far.
  std::size_t Connections() const;

  /// Waits until the received bytes end in `bytes`.
  void WaitForReceived(const std::string& bytes) const;
  /// Waits until the system has taken all that is to be sent, and the connections that are to be closed are.
  void WaitForSilence() const;
  /// Waits until so many connections were accepted.
  void WaitForConnections(std::size_t count) const;
  /// Waits until a client has come and none is connected any more: a quick client can be gone before it is accepted.
  void WaitForNoClient() const;

  /// Sends to the client that connected last, asked or not.
  void Send(const std::string& bytes);
  /// Closes the connection of every client and goes on listening.
  void DropClients();
  /// Goes on serving, but refuses new connections.
  void StopListening();

private:
  struct Client {
    int socket = -1;
    std::string input;
    std::string output;
    /// Sent again whenever all output is out.
    std::string refrain;
    bool closing = false;
  };

  void Serve();
  void Accept();
  bool ReadFrom(Client& client);
  bool WriteTo(Client& client);
  void React(Client& client, const std::string& command);
  void Wake();

  const Options m_options;
  std::uint16_t m_port = 0;
  int m_wakePipe[2] = {-1, -1};

  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  InstrumentScript m_script;
  int m_listener = -1;
  std::vector<Client> m_clients;
  std::string m_received;
  std::size_t m_connections = 0;
  bool m_refusing = false;
  bool m_stopping = false;

  std::thread m_thread;
};

} // namespace portico::test
