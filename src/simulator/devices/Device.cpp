#include "simulator/devices/Device.h"

#include "scpi/Mnemonic.h"
#include "simulator/devices/Multimeter.h"
#include "simulator/devices/Oscilloscope.h"
#include "simulator/devices/PowerSupply.h"

#include <type_traits>

namespace portico::simulator {

std::optional<Device::Kind> Device::KindNamed(std::string_view name) {
  if (scpi::Mnemonic("DMM").Matches(name)) return Kind::Multimeter;
  if (scpi::Mnemonic("PSU").Matches(name)) return Kind::PowerSupply;
  if (scpi::Mnemonic("SCOPE").Matches(name)) return Kind::Oscilloscope;
  return std::nullopt;
}

std::unique_ptr<Device> Device::Make(std::string_view name, std::uint64_t seed) {
  const auto kind = KindNamed(name);
  return kind ? Make(*kind, seed) : nullptr;
}

std::unique_ptr<Device> Device::Make(Kind kind, std::uint64_t seed) {
  const auto make = [seed]<class Model>(std::type_identity<Model>) {
    return std::make_unique<Device>(
        [seed](Executor& executor, StatusModel& status) { return std::make_unique<Model>(executor, status, seed); },
        seed);
  };
  switch (kind) {
  case Kind::Multimeter:
    return make(std::type_identity<Multimeter>());
  case Kind::PowerSupply:
    return make(std::type_identity<PowerSupply>());
  case Kind::Oscilloscope:
    return make(std::type_identity<Oscilloscope>());
  }
  return nullptr;
}

Device::Device(const ModelMaker& makeModel, std::uint64_t seed)
    : Instrument(seed), m_model(makeModel(m_executor, m_status)), m_common(*m_model, m_executor, m_status) {
  m_common.AddTo(m_tree);
  m_system.AddTo(m_tree);
  m_model->AddTo(m_tree);
}

} // namespace portico::simulator
