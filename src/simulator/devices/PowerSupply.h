#pragma once

#include "simulator/devices/InstrumentModel.h"
#include "simulator/status/Executor.h"
#include "simulator/status/Random.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace portico::simulator {

/// What can be set on the supply, with its defaults.
struct PowerSupplySettings {
  struct Protection {
    double Level; ///< volts or amperes, above which it trips
    bool On = true;
  };
  struct Output {
    double Volts = 0;
    double Amperes = 1; ///< the limit
    bool On = false;
    std::array<Protection, 2> Protections{{{33}, {5.5}}}; ///< of voltage and current
  };

  std::array<Output, 2> Outputs;
  std::size_t Selected = 0;
};

/// The device "psu": a supply of two outputs, each with a resistor across it. A header without a channel suffix means
/// the output that `INSTrument` chose.
class PowerSupply final : public ModelWithSettings<PowerSupplySettings> {
public:
  PowerSupply(Executor& executor, StatusModel& status, std::uint64_t seed)
      : m_executor(executor), m_status(status), m_random(seed) {}

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-PSU,SIM0002,1.0"; }
  void Reset() override;
  void AddTo(CommandTree& tree) override;

private:
  using Output = Settings::Output;
  enum Kind : std::size_t { OfVoltage, OfCurrent, KindCount };

  void SetVoltage(const Call& call);
  void Voltage(const Call& call);
  void SetCurrent(const Call& call);
  void Current(const Call& call);
  void Apply(const Call& call);
  void Applied(const Call& call);
  void SetState(const Call& call);
  void State(const Call& call);
  void MeasureVoltage(const Call& call);
  void MeasureCurrent(const Call& call);
  void SelectNumber(const Call& call);
  void SelectedNumber(const Call& call);
  void Select(const Call& call);
  void Selected(const Call& call);
  template <Kind kind>
  void SetProtection(const Call& call);
  template <Kind kind>
  void Protection(const Call& call);
  template <Kind kind>
  void SetProtectionState(const Call& call);
  template <Kind kind>
  void ProtectionState(const Call& call);
  template <Kind kind>
  void Tripped(const Call& call);
  template <Kind kind>
  void ClearTrip(const Call& call);

  void Recalled() override { Settle(); }
  std::size_t IndexOf(const Call& call) const;
  Output& Of(const Call& call) { return m_settings.Outputs[IndexOf(call)]; }
  void Settle();
  void Protect(std::size_t index);
  void ShowTrips();
  double MeasuredVolts(const Output& output);

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
  std::array<std::array<bool, KindCount>, 2> m_tripped{}; ///< of each output, by voltage and by current
};

} // namespace portico::simulator
