#pragma once

#include "simulator/devices/FrontPanel.h"
#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/MultimeterSettingCommands.h"
#include "simulator/devices/MultimeterSettings.h"
#include "simulator/status/Executor.h"
#include "simulator/status/Random.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace portico::simulator {

/// The device "dmm": a bench multimeter that measures a steady source with noise, in the time that its integration over
/// power line cycles of 50 Hz takes.
class Multimeter final : public ModelWithSettings<MultimeterSettings> {
public:
  Multimeter(Executor& executor, StatusModel& status, std::uint64_t seed);

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"; }
  void Reset() override;
  void Trigger() override;
  void AddTo(CommandTree& tree) override;

private:
  template <Measurand measurand>
  void Configure(const Call& call);
  template <Measurand measurand>
  void Measure(const Call& call);

  void ConfigureTemperature(const Call& call);
  void MeasureTemperature(const Call& call);
  void Configuration(const Call& call);
  void Initiate(const Call& call);
  void Abort(const Call& call);
  void Fetch(const Call& call);
  void Read(const Call& call);
  void Terminals(const Call& call);
  void SetPoints(const Call& call);
  void Points(const Call& call);
  void SetTrace(const Call& call);
  void Trace(const Call& call);

  void Recalled() override { m_readings.clear(); }
  MeasurandSetup& SetupOf(Measurand measurand) { return m_settings.SetupOf(measurand); }
  void ConfigureTo(Measurand measurand, const MeasurandSetup& setup);
  void ConfigureFor(std::size_t transducer);
  static std::size_t TransducerOf(const Call& call);
  void StartMeasurement();
  void AwaitTrigger();
  void TakeReadings(std::int64_t count);
  void MeasureAndRespond();
  double Reading();
  void RespondReadings();
  std::string MakeTrace(std::size_t points);

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
  MultimeterSettingCommands m_settingCommands{m_executor, m_settings};
  FrontPanel m_panel{m_executor};
  std::vector<double> m_readings;  ///< of the last measurement that is over
  std::vector<double> m_taken;     ///< of the one that is under way
  std::int64_t m_triggersLeft = 0; ///< likewise
  std::string m_trace;
};

} // namespace portico::simulator
