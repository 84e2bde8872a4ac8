#pragma once

#include "server/IServedConnection.h"
#include "system/FileDescriptor.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace portico::server {

/// One client of the server: its wire, and the connection that is served over it.
///
/// No more is read from a client that does not take its answers, so that neither side's memory grows without bound.
class ClientConnection {
public:
  /// `wire` is a connected socket or a terminal, and does not block.
  ClientConnection(system::FileDescriptor wire, std::unique_ptr<IServedConnection> connection);

  int Descriptor() const { return m_wire.Get(); }
  bool WantsInput() const {
    return !m_inputEnded && (m_output.empty() || m_connection->IsDuplex()) && m_connection->AcceptsInput();
  }
  bool WantsOutput() const { return !m_output.empty(); }
  /// When Exchange() is next due though nothing arrives.
  std::optional<TimePoint> NextEvent() const;
  /// Whether the connection is to be closed.
  bool Finished() const { return m_finished; }

  /// Takes what has arrived, if `readable`, and sends what is ready, as far as the client takes it. Of a client that
  /// has `ended` its side all is taken at once, so that its place is free for who comes next.
  void Exchange(bool readable, TimePoint now, bool ended = false);
  /// The connection broke. What had come before is still taken if that does not depend on what is sent.
  void Break(TimePoint now);

private:
  /// Whether there was anything.
  bool Receive(TimePoint now);
  void EndOutput();
  void Send(TimePoint now);
  void Collect(TimePoint now);

  system::FileDescriptor m_wire;
  const std::unique_ptr<IServedConnection> m_connection;
  std::string m_output;
  std::size_t m_sent = 0; ///< of m_output
  bool m_inputEnded = false;
  bool m_outputEnded = false;
  bool m_finished = false;
};

} // namespace portico::server
