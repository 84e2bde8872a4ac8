#pragma once

#include "simulator/Executor.h"
#include "simulator/InstrumentModel.h"
#include "simulator/Random.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace portico::simulator {

/// The device "psu": a supply of two outputs, each with a resistor across it. A header without a channel suffix means
/// the output that `INSTrument:NSELect` chose.
class PowerSupply final : public InstrumentModel {
public:
  PowerSupply(Executor& executor, StatusModel& status, std::uint64_t seed);

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-PSU,SIM0002,1.0"; }
  void Reset() override;
  void AddTo(CommandTree& tree) override;

private:
  struct Output {
    double volts;
    double amperes; ///< the limit
    bool on;
  };

  void SetVoltage(const Call& call);
  void Voltage(const Call& call);
  void SetCurrent(const Call& call);
  void Current(const Call& call);
  void SetState(const Call& call);
  void State(const Call& call);
  void MeasureVoltage(const Call& call);
  void MeasureCurrent(const Call& call);
  void Select(const Call& call);
  void Selected(const Call& call);

  Output& Of(const Call& call);
  void Settle();
  double MeasuredVolts(const Output& output);

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
  std::array<Output, 2> m_outputs{};
  std::size_t m_selected = 0;
};

} // namespace portico::simulator
