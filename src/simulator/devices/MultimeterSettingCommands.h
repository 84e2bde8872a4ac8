#pragma once

#include "simulator/devices/MultimeterSettings.h"
#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"

namespace portico::simulator {

/// The subsystems SENSe, UNIT, SAMPle and TRIGger of the multimeter: what it measures next, how, how often and when.
class MultimeterSettingCommands {
public:
  /// Both must outlive it.
  MultimeterSettingCommands(Executor& executor, MultimeterSettings& settings)
      : m_executor(executor), m_settings(settings) {}

  void AddTo(CommandTree& tree);

private:
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

  void SetFunction(const Call& call);
  void SenseFunction(const Call& call);
  void SetAperture(const Call& call);
  void Aperture(const Call& call);
  void SetTransducer(const Call& call);
  void Transducer(const Call& call);
  void SetTemperatureUnit(const Call& call);
  void TemperatureUnit(const Call& call);
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

  Executor& m_executor;
  MultimeterSettings& m_settings;
};

} // namespace portico::simulator
