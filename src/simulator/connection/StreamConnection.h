#pragma once

#include "simulator/connection/Connection.h"
#include "simulator/language/MessageFramer.h"
#include "simulator/status/SimulatedConnection.h"

namespace portico::simulator {

/// A connection that carries a plain stream of bytes, in which line feeds end the messages.
class StreamConnection final : public SimulatedConnection {
public:
  /// `device` must outlive the connection.
  explicit StreamConnection(Device& device) : m_connection(device) {}

  void Write(std::string_view bytes, TimePoint now) override;
  std::optional<std::string> Read(TimePoint now) override { return m_connection.Read(now); }
  std::optional<TimePoint> NextEvent() const override { return m_connection.NextEvent(); }

  // For a server; as in Connection.

  bool CloseRequested() const { return m_connection.CloseRequested(); }
  bool AcceptsInput() const { return m_connection.AcceptsInput(); }
  bool Busy() const { return m_connection.Busy(); }

private:
  Connection m_connection;
  MessageFramer m_framer{Connection::LongestMessage};
};

} // namespace portico::simulator
