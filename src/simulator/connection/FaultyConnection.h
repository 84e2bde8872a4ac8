#pragma once

#include "server/IServedConnection.h"
#include "simulator/devices/Instrument.h"

namespace portico::simulator {

/// A connection in any protocol, with the device's faults that show on the wire: it may be slow to begin, put bytes
/// that belong to nothing before an answer, break one off in its middle, or end in place of one. Without them it is the
/// other connection.
class FaultyConnection final : public server::IServedConnection {
public:
  /// `instrument`, the one behind the connection, must outlive this.
  FaultyConnection(std::unique_ptr<server::IServedConnection> connection, Instrument& instrument);
  /// Makes those of another factory faulty. `instrument` must outlive all connections.
  static server::ConnectionFactory Factory(server::ConnectionFactory factory, Instrument& instrument);

  void Receive(std::string_view bytes, TimePoint now) override;
  void Collect(std::string& output, TimePoint now) override;
  bool AcceptsInput() const override;
  std::optional<TimePoint> NextEvent() const override;
  bool Finished(bool inputEnded) const override;

private:
  const std::unique_ptr<server::IServedConnection> m_connection;
  Misbehaviour& m_faults;
  TimePoint::duration m_acceptDelay;   ///< until the first input is taken; then none
  std::string m_held;                  ///< that first input
  std::optional<TimePoint> m_acceptAt; ///< when it will be taken
  bool m_dropped = false;
};

} // namespace portico::simulator
