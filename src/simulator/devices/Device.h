#pragma once

#include "simulator/devices/CommonCommands.h"
#include "simulator/devices/Instrument.h"
#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/SystemCommands.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace portico::simulator {

/// A simulated instrument as a whole. It holds settings, stored data, the status registers, the error queue, and what
/// is under way.
class Device final : public Instrument {
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

  std::string_view Identification() const override { return m_model->Identification(); }

private:
  std::unique_ptr<InstrumentModel> m_model;
  CommonCommands m_common;
  SystemCommands m_system{m_executor, m_status, m_tree};
};

} // namespace portico::simulator
