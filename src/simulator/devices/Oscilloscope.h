#pragma once

#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/OscilloscopeAcquisition.h"
#include "simulator/status/Executor.h"

#include <cstdint>
#include <string_view>

namespace portico::simulator {

/// The device "scope": four channels, each with a sine of its own frequency, and records of one byte a point.
class Oscilloscope final : public ModelWithSettings<OscilloscopeSettings> {
public:
  Oscilloscope(Executor& executor, StatusModel& status, std::uint64_t seed)
      : m_executor(executor), m_acquisition(m_settings, executor, status, seed) {}

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-SCOPE,SIM0003,1.0"; }
  void Reset() override;
  void Trigger() override { m_acquisition.Trigger(); }
  void AddTo(CommandTree& tree) override;

private:
  // Settings.
  void SetScale(const Call& call);
  void Scale(const Call& call);
  void SetOffset(const Call& call);
  void Offset(const Call& call);
  void SetShown(const Call& call);
  void Shown(const Call& call);
  void SetCoupling(const Call& call);
  void Coupling(const Call& call);
  void SetTimeScale(const Call& call);
  void TimeScale(const Call& call);
  void SetAcquisition(const Call& call);
  void Acquisition(const Call& call);
  void SetAverages(const Call& call);
  void Averages(const Call& call);
  void SetSweep(const Call& call);
  void Sweep(const Call& call);
  void SetTriggerSource(const Call& call);
  void TriggerSource(const Call& call);
  void SetTriggerLevel(const Call& call);
  void TriggerLevel(const Call& call);
  void SetSlope(const Call& call);
  void Slope(const Call& call);
  void SetSource(const Call& call);
  void Source(const Call& call);
  void SetPoints(const Call& call);
  void Points(const Call& call);
  void SetFormat(const Call& call);
  void Format(const Call& call);
  void AutoScale(const Call& call);

  // Acquisition and what comes of it.
  void Run(const Call& /*call*/) { m_acquisition.Run(); }
  void Single(const Call& /*call*/) { m_acquisition.Single(); }
  void Stop(const Call& /*call*/) { m_acquisition.Stop(); }
  void ForceTrigger(const Call& /*call*/) { m_acquisition.Trigger(); }
  void Data(const Call& call);
  void Preamble(const Call& call);
  void Picture(const Call& call);
  void PeakToPeak(const Call& call);
  void Frequency(const Call& call);

  void Recalling() override { m_acquisition.CatchUp(); }
  void Recalled() override { m_acquisition.BeginAnew(); }
  /// For all that an acquisition depends on.
  Settings& Change();
  Settings::Channel& ChangeOf(const Call& call) { return Change().Channels[call.Suffix(0) - 1]; }
  const Settings::Channel& Of(const Call& call) const { return m_settings.Channels[call.Suffix(0) - 1]; }

  Executor& m_executor;
  OscilloscopeAcquisition m_acquisition;
};

} // namespace portico::simulator
