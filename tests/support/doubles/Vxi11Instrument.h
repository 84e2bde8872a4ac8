#pragma once

#include "server/SocketServer.h"
#include "support/doubles/InstrumentScript.h"

#include <cstdint>
#include <memory>
#include <string>
#include <thread>

namespace portico::test {

/// A VXI-11 instrument on a TCP port of this machine, which does what a script says. It takes commands in pieces of 64
/// bytes, has links for any number of clients, and records all that they write.
class Vxi11Instrument {
public:
  explicit Vxi11Instrument(InstrumentScript script);
  ~Vxi11Instrument();
  Vxi11Instrument(const Vxi11Instrument&) = delete;
  Vxi11Instrument& operator=(const Vxi11Instrument&) = delete;

  /// Of the core channel.
  std::uint16_t Port() const { return m_server.Port(0); }
  /// "TCPIP::127.0.0.1,PORT::INSTR".
  std::string ResourceName() const;

  /// All bytes that all clients have written so far.
  std::string Received() const;
  /// Waits until these end in `bytes`.
  void WaitForReceived(const std::string& bytes) const;
  /// Answers on the link that was made last, asked or not; the answer ends there. The instrument has it when this
  /// returns.
  void Send(const std::string& bytes);

private:
  class Instrument;
  class Channel;
  class CoreChannel;
  class AbortChannel;
  class BackDoor;

  const std::shared_ptr<Instrument> m_instrument;
  server::SocketServer m_server;
  std::thread m_thread;
};

} // namespace portico::test
