#pragma once

#include "simulator/Executor.h"
#include "simulator/InstrumentModel.h"
#include "simulator/Random.h"
#include "simulator/StatusModel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace portico::simulator {

/// The device "dmm": a bench multimeter that measures a steady source with noise, in the time that its integration
/// over power line cycles of 50 Hz takes.
class Multimeter final : public InstrumentModel {
public:
  Multimeter(Executor& executor, StatusModel& status, std::uint64_t seed);

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"; }
  void Reset() override;
  void AddTo(CommandTree& tree) override;

private:
  enum Function : std::size_t { DcVoltage, AcVoltage, DcCurrent, AcCurrent, Resistance, FunctionCount };

  /// What `CONFigure` and `SENSe` set for one function.
  struct Setup {
    double range;
    bool autoRange;
    double cycles; ///< of the power line, for which a reading is integrated
  };

  template <Function function>
  void Configure(const Call& call);
  template <Function function>
  void Measure(const Call& call);
  template <Function function>
  void SetRange(const Call& call);
  template <Function function>
  void Range(const Call& call);
  template <Function function>
  void SetAutoRange(const Call& call);
  template <Function function>
  void AutoRange(const Call& call);
  template <Function function>
  void SetCycles(const Call& call);
  template <Function function>
  void Cycles(const Call& call);

  void Configuration(const Call& call);
  void SetFunction(const Call& call);
  void SenseFunction(const Call& call);
  void Initiate(const Call& call);
  void Abort(const Call& call);
  void Fetch(const Call& call);
  void Read(const Call& call);
  void SetSamples(const Call& call);
  void Samples(const Call& call);
  void SetTriggers(const Call& call);
  void Triggers(const Call& call);
  void Terminals(const Call& call);
  void SetDisplay(const Call& call);
  void Display(const Call& call);
  void SetText(const Call& call);
  void Text(const Call& call);
  void ClearText(const Call& call);
  void SetPoints(const Call& call);
  void Points(const Call& call);
  void SetTrace(const Call& call);
  void Trace(const Call& call);

  static Setup SetupFrom(Function function, const Call& call);
  void ConfigureTo(Function function, const Setup& setup);
  void StartMeasurement();
  void MeasureAndRespond();
  double Reading();
  void RespondReadings();
  std::string MakeTrace(std::size_t points);

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;

  Function m_function = DcVoltage;
  std::array<Setup, FunctionCount> m_setups{};
  std::int64_t m_samples = 1;
  std::int64_t m_triggers = 1;
  std::vector<double> m_readings;
  bool m_displayOn = true;
  std::string m_text;
  std::string m_trace;
};

} // namespace portico::simulator
