#pragma once

#include "simulator/devices/InstrumentModel.h"
#include "simulator/devices/OscilloscopeSettings.h"
#include "simulator/devices/Random.h"
#include "simulator/status/Executor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace portico::simulator {

/// The device "scope": four channels, each with a sine of its own frequency, and records of one byte a point.
class Oscilloscope final : public ModelWithSettings<OscilloscopeSettings> {
public:
  Oscilloscope(Executor& executor, StatusModel& status, std::uint64_t seed)
      : m_executor(executor), m_status(status), m_random(seed) {}

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-SCOPE,SIM0003,1.0"; }
  void Reset() override;
  void Trigger() override;
  void AddTo(CommandTree& tree) override;

private:
  /// The signal at an input.
  struct Signal {
    double amplitude; ///< volts
    double frequency; ///< hertz
    double bias;      ///< volts
  };
  using Records = std::array<std::optional<WaveformRecord>, Settings::ChannelCount>;

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
  void Run(const Call& call);
  void Single(const Call& call);
  void Stop(const Call& call);
  void ForceTrigger(const Call& call);
  void Data(const Call& call);
  void Preamble(const Call& call);
  void PeakToPeak(const Call& call);
  void Frequency(const Call& call);

  void Recalling() override { CatchUp(); }
  void Recalled() override { BeginRun(m_running); }
  /// For all that an acquisition depends on: the sweeps so far are those of the old settings.
  Settings& Change();
  Settings::Channel& ChangeOf(const Call& call) { return Change().channels[call.Suffix(0) - 1]; }
  const Settings::Channel& Of(const Call& call) const { return m_settings.channels[call.Suffix(0) - 1]; }
  Signal Seen(std::size_t channel) const;
  /// Where in the trigger source's period the trigger is, in seconds; none if the signal does not cross the level.
  std::optional<double> Crossing() const;
  bool Sweeps() const { return m_settings.trigger.automatic || Crossing(); }
  bool Armed() const { return m_executor.OperationPending() && !m_executor.OperationEnd(); }
  void TriggerChanged();
  Executor::Duration SweepTime() const;
  void StartSweep();
  void BeginRun(bool running);
  void CatchUp();
  void WhenRecorded(std::function<void()> then);
  WaveformScale ScaleOf(std::size_t channel) const;
  WaveformRecord MakeRecord(std::size_t channel);
  Records TakeRecords();

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
  Records m_records;
  bool m_running = false;
  TimePoint m_runBegan{};
  std::int64_t m_sweeps = 0; ///< of the run, that are over
};

} // namespace portico::simulator
