#pragma once

#include "server/IServedConnection.h"
#include "simulator/connection/StreamConnection.h"

namespace portico::simulator {

/// A raw socket or a serial line: the wire carries the program messages and the answers, and nothing else.
class ServedStream final : public server::IServedConnection {
public:
  /// `instrument` must outlive the connection.
  explicit ServedStream(Instrument& instrument) : m_connection(instrument) {}
  /// `instrument` must outlive all connections.
  static server::ConnectionFactory Factory(Instrument& instrument);

  void Receive(std::string_view bytes, TimePoint now) override { m_connection.Write(bytes, now); }
  void Collect(std::string& output, TimePoint now) override;
  bool AcceptsInput() const override { return m_connection.AcceptsInput(); }
  std::optional<TimePoint> NextEvent() const override { return m_connection.NextEvent(); }
  bool Finished(bool inputEnded) const override;

private:
  StreamConnection m_connection;
};

} // namespace portico::simulator
