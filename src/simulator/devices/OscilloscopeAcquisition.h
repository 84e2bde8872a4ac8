#pragma once

#include "simulator/devices/OscilloscopeSettings.h"
#include "simulator/status/Executor.h"
#include "simulator/status/Random.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace portico::simulator {

/// What an oscilloscope does with its settings: it sweeps, once or again and again, and keeps the records of the last
/// sweep. While it runs, they are made when somebody looks.
class OscilloscopeAcquisition {
public:
  using Settings = OscilloscopeSettings;

  /// The signal at an input.
  struct Signal {
    double Amplitude; ///< volts
    double Frequency; ///< hertz
    double Bias;      ///< volts
  };

  /// All three must outlive it.
  OscilloscopeAcquisition(const Settings& settings, Executor& executor, StatusModel& status, std::uint64_t seed)
      : m_settings(settings), m_executor(executor), m_status(status), m_random(seed) {}

  void Run();
  void Single();
  void Stop();
  /// Throws ScpiError if nothing waits for a trigger.
  void Trigger();
  /// Stops, without records.
  void Reset();

  /// Makes the record of what is over by now. To be called before a setting on which records depend changes.
  void CatchUp();
  /// All settings have become others: a run goes on with a sweep of its own.
  void BeginAnew() { BeginRun(m_running); }
  /// Some have, or will at once: the sweeps so far are not theirs.
  void ForgetSweeps();
  /// A sweep that waits for a trigger may begin now.
  void TriggerChanged();

  /// Calls `then` when what was asked for is recorded; while the instrument runs, when there is a sweep of the present
  /// settings.
  void WhenRecorded(std::function<void()> then);
  /// None if the channel was not shown, or nothing has been recorded yet.
  const std::optional<WaveformRecord>& Record(std::size_t channel) const { return m_records[channel]; }
  /// Of a record that the settings would give.
  WaveformScale ScaleOf(std::size_t channel) const;
  /// What the channel makes of the signal at its input.
  Signal Seen(std::size_t channel) const;

private:
  using Records = std::array<std::optional<WaveformRecord>, Settings::ChannelCount>;

  /// Where in the trigger source's period the trigger is, in seconds; none if the signal does not cross the level.
  std::optional<double> Crossing() const;
  bool Sweeps() const { return m_settings.Trigger.Automatic || Crossing(); }
  Executor::Duration SweepTime() const;
  void StartSweep();
  void BeginRun(bool running);
  WaveformRecord MakeRecord(std::size_t channel);
  Records TakeRecords();

  const Settings& m_settings;
  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
  Records m_records;
  bool m_running = false;
  TimePoint m_runBegan{};
  std::int64_t m_sweeps = 0; ///< of the run, that are over
};

} // namespace portico::simulator
