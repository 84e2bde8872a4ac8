#pragma once

#include "server/IServedConnection.h"
#include "simulator/status/SimulatedConnection.h"

namespace portico::simulator {

/// A serial line, which cannot be closed: where a connection over it ends, the next one begins.
class ServedLine final : public server::IServedConnection {
public:
  /// `factory` makes the connections, one at once.
  explicit ServedLine(server::ConnectionFactory factory);

  void Receive(std::string_view bytes, TimePoint now) override;
  void Collect(std::string& output, TimePoint now) override { m_connection->Collect(output, now); }
  bool AcceptsInput() const override { return m_connection->AcceptsInput(); }
  std::optional<TimePoint> NextEvent() const override { return m_connection->NextEvent(); }
  bool Finished(bool inputEnded) const override { return inputEnded; }

private:
  server::ConnectionFactory m_factory;
  std::unique_ptr<server::IServedConnection> m_connection;
};

} // namespace portico::simulator
