#pragma once

#include "simulator/devices/CommonCommands.h"
#include "simulator/devices/FaultCommands.h"
#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/SystemCommands.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::simulator {

/// A simulated instrument as a whole. It carries out complete program messages for any number of connections, by
/// whatever protocol they come, and holds all that outlives a connection: settings, stored data, the status registers,
/// the error queue, and what is under way.
///
/// It belongs to whoever wires a driver or a server, and must outlive the connections to it.
class Device {
public:
  enum class Kind { Multimeter, PowerSupply, Oscilloscope };

  /// The kind of a name, "dmm", "psu" or "scope" in any case; none for any other.
  static std::optional<Kind> KindNamed(std::string_view name);
  /// Makes an instrument in the state after power-on.
  static std::unique_ptr<Device> Make(Kind kind, std::uint64_t seed);
  /// The same by its name; a null pointer for one that names no kind.
  static std::unique_ptr<Device> Make(std::string_view name, std::uint64_t seed);

  using ModelMaker = std::function<std::unique_ptr<InstrumentModel>(Executor&, StatusModel&)>;
  Device(const ModelMaker& makeModel, std::uint64_t seed);

  /// The answer to `*IDN?`: maker, model, serial number and firmware version.
  std::string_view Identification() const { return m_model->Identification(); }
  /// How it misbehaves.
  Misbehaviour& Faults() { return m_executor.Faults(); }
  /// Carries out a message that comes by no connection, before the first of them. Its answers go nowhere; the error
  /// that it raised is taken off the queue, `0,"No error"` if there is none.
  std::string CarryOut(std::string_view message);

private:
  friend class Connection;

  StatusModel m_status;
  CommandTree m_tree;
  Executor m_executor{m_tree, m_status};
  std::unique_ptr<InstrumentModel> m_model;
  CommonCommands m_common;
  SystemCommands m_system{m_executor, m_status, m_tree};
  FaultCommands m_faults;
};

} // namespace portico::simulator
