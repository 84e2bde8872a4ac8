#pragma once

#include "support/doubles/InstrumentScript.h"
#include "system/FileDescriptor.h"
#include "system/WakePipe.h"
#include "wire/HislipClient.h"
#include "wire/HislipReader.h"

#include <condition_variable>
#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace portico::test {

/// An instrument that speaks HiSLIP on a port of this machine and does what a script says. It serves any number of
/// clients from one thread and records the commands that they send.
class HislipInstrument {
public:
  explicit HislipInstrument(InstrumentScript script);
  ~HislipInstrument();
  HislipInstrument(const HislipInstrument&) = delete;
  HislipInstrument& operator=(const HislipInstrument&) = delete;

  std::uint16_t Port() const { return m_port; }
  /// "TCPIP::127.0.0.1::hislip0,PORT::INSTR"
  std::string ResourceName() const;

  /// Changes the reaction to a command from now on.
  void On(const std::string& command, Reaction reaction);
  /// Sends these bytes in place of the response to messages of this type, on the connection where they come.
  void Respond(wire::HislipType type, std::string bytes);
  /// Closes the connection where a message of this type comes.
  void HangUpOn(wire::HislipType type);
  /// The same, but so that the client finds it reset.
  void ResetOn(wire::HislipType type);

  /// All commands that all clients have sent so far.
  std::string Received() const;
  void WaitForReceived(const std::string& bytes) const;
  /// Waits until that many messages of this type have come.
  void WaitFor(wire::HislipType type, int count = 1) const;
  int Count(wire::HislipType type) const;
  std::string SubAddress() const;

  /// Sends to the client that came last, as its answer or as the rest of one that was begun.
  void Send(const std::string& answer);
  /// Sends bytes as they stand to the client that came last.
  void SendRaw(wire::HislipChannel channel, const std::string& bytes);
  /// Closes the client's connection of that kind, or both of all clients, and goes on listening.
  void Drop(wire::HislipChannel channel);
  void DropClients();
  /// Waits until a client has come and none is connected any more.
  void WaitForNoClient() const;

private:
  struct Connection {
    system::FileDescriptor Socket;
    wire::HislipReader Reader = wire::HislipReader(std::uint64_t{1} << 24U);
    wire::HislipChannel Channel = wire::HislipChannel::Synchronous;
    std::string Output = {};
    /// Sent again whenever all output is out.
    std::string Refrain = {};
    bool Closing = false;
    // Of the synchronous one:
    std::string Input = {};
    std::uint32_t LastId = wire::HislipFirstMessageId - wire::HislipMessageIdStep;
  };

  void Serve();
  void Accept();
  bool ReadFrom(Connection& connection);
  static bool WriteTo(Connection& connection);
  void Take(Connection& connection, const wire::HislipPiece& piece);
  void TakeData(Connection& connection, const wire::HislipPiece& piece);
  static void React(Connection& connection, const Reaction& reaction);
  static std::string Response(const wire::HislipHeader& header);
  /// The connection of that kind that came last; waits for it.
  Connection& Last(wire::HislipChannel channel, std::unique_lock<std::mutex>& lock);

  std::uint16_t m_port = 0;
  system::FileDescriptor m_listener;
  system::WakePipe m_wake;

  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  InstrumentScript m_script;
  std::map<wire::HislipType, std::string> m_responses;
  std::map<wire::HislipType, bool> m_hangUps;
  std::map<wire::HislipType, bool> m_resets;
  std::map<wire::HislipType, int> m_counts;
  std::list<Connection> m_connections;
  std::string m_received;
  std::string m_subAddress;
  bool m_visited = false;
  bool m_stopping = false;

  std::thread m_thread;
};

} // namespace portico::test
