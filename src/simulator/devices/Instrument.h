#pragma once

#include "simulator/devices/FaultCommands.h"
#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"
#include "simulator/status/StatusModel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace portico::simulator {

/// What connections are made to: it carries out complete program messages for any number of them, by whatever protocol
/// they come, and holds all that outlives a connection.
///
/// It belongs to whoever wires a driver or a server, and must outlive the connections to it.
class Instrument {
public:
  virtual ~Instrument() = default;
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;

  /// The answer to `*IDN?`: maker, model, serial number and firmware version.
  virtual std::string_view Identification() const = 0;
  /// How it misbehaves.
  Misbehaviour& Faults() { return m_executor.Faults(); }
  /// Carries out a message that comes by no connection, before the first of them, by the instrument's own commands. Its
  /// answers go nowhere; the error that it raised is taken off the queue, `0,"No error"` if there is none.
  std::string CarryOut(std::string_view message);

protected:
  /// It knows the commands of its faults. All that looks random in them comes from `seed`.
  explicit Instrument(std::uint64_t seed);

  StatusModel m_status;
  CommandTree m_tree;
  Executor m_executor{m_tree, m_status};

private:
  friend class Connection;

  /// The exchange of a new connection.
  virtual std::shared_ptr<MessageExchange> Join() { return m_executor.Join(); }

  FaultCommands m_faults;
};

} // namespace portico::simulator
