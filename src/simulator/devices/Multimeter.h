#pragma once

#include "simulator/devices/FrontPanel.h"
#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/MultimeterFunctions.h"
#include "simulator/devices/Random.h"
#include "simulator/status/Executor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace portico::simulator {

/// What can be set on the multimeter, with its defaults.
struct MultimeterSettings {
  enum class TriggerSource : std::size_t { Immediate, Bus, External };

  /// How often and when a measurement takes its readings.
  struct Trigger {
    TriggerSource source = TriggerSource::Immediate;
    std::int64_t count = 1;
    std::int64_t samples = 1; ///< for each trigger
    double delay = 0;         ///< seconds before each reading
    bool autoDelay = true;    ///< none is needed
  };

  MultimeterSettings();

  Measurand measurand = Measurand::DcVoltage;
  std::array<MeasurandSetup, MeasurandCount> setups;
  Trigger trigger;
  std::size_t transducer = 0;
  std::size_t temperatureUnit = 0;
};

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
  template <Measurand measurand>
  void SetRange(const Call& call);
  template <Measurand measurand>
  void Range(const Call& call);
  template <Measurand measurand>
  void SetAutoRange(const Call& call);
  template <Measurand measurand>
  void AutoRange(const Call& call);
  template <Measurand measurand>
  void SetCycles(const Call& call);
  template <Measurand measurand>
  void Cycles(const Call& call);

  void AddSettingsTo(CommandTree& tree);
  void ConfigureTemperature(const Call& call);
  void MeasureTemperature(const Call& call);
  void SetAperture(const Call& call);
  void Aperture(const Call& call);
  void SetTransducer(const Call& call);
  void Transducer(const Call& call);
  void SetTemperatureUnit(const Call& call);
  void TemperatureUnit(const Call& call);
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
  void SetTriggerSource(const Call& call);
  void TriggerSource(const Call& call);
  void SetDelay(const Call& call);
  void Delay(const Call& call);
  void SetAutoDelay(const Call& call);
  void AutoDelay(const Call& call);
  void Terminals(const Call& call);
  void SetPoints(const Call& call);
  void Points(const Call& call);
  void SetTrace(const Call& call);
  void Trace(const Call& call);

  void Recalled() override { m_readings.clear(); }
  MeasurandSetup& SetupOf(Measurand measurand) { return m_settings.setups[static_cast<std::size_t>(measurand)]; }
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
  FrontPanel m_panel{m_executor};
  std::vector<double> m_readings;  ///< of the last measurement that is over
  std::vector<double> m_taken;     ///< of the one that is under way
  std::int64_t m_triggersLeft = 0; ///< likewise
  std::string m_trace;
};

} // namespace portico::simulator
