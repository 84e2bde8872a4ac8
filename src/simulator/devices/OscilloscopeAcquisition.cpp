#include "simulator/devices/Oscilloscope.h"

#include "simulator/language/ScpiError.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace portico::simulator {
namespace {

constexpr double DivisionsAcross = 10;
constexpr double DivisionsUsed = 6; ///< of the height, by `AUToscale`
constexpr double PeriodsShown = 2;  ///< likewise

/// The smallest of 1, 2 and 5 times a power of ten that is not below the value.
double RoundUp(double value) {
  value *= 1 - 1E-9; // what is one of them but for rounding stays
  const double decade = std::pow(10, std::floor(std::log10(value)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * decade >= value) return step * decade;
  }
  return 10 * decade;
}

double Sine(double turns) { return std::sin(2 * std::numbers::pi * turns); }

} // namespace

void Oscilloscope::Reset() {
  m_settings = {};
  m_records = {};
  BeginRun(false);
}

/// What the channel makes of the signal at its input.
Oscilloscope::Signal Oscilloscope::Seen(std::size_t channel) const {
  static constexpr std::array<Signal, Settings::ChannelCount> signals{
      {{1, 1000, 0}, {0.5, 2000, 0.25}, {2, 500, 0}, {0.25, 10000, 0}}};
  Signal signal = signals[channel];
  const Settings::Coupling coupling = m_settings.channels[channel].coupling;
  if (coupling != Settings::Coupling::Dc) signal.bias = 0;
  if (coupling == Settings::Coupling::Ground) signal.amplitude = 0;
  return signal;
}

std::optional<double> Oscilloscope::Crossing() const {
  const Settings::Trigger& trigger = m_settings.trigger;
  if (trigger.source == Settings::External) return std::nullopt;
  const Signal signal = Seen(trigger.source);
  const double height = trigger.level - signal.bias;
  if (std::abs(height) >= signal.amplitude) return std::nullopt;
  const double rising = std::asin(height / signal.amplitude) / (2 * std::numbers::pi); // turns
  return (trigger.falling ? 0.5 - rising : rising) / signal.frequency;
}

// Acquisition.

/// A sweep records as long as it lasts.
Executor::Duration Oscilloscope::SweepTime() const {
  const double sweeps = m_settings.averaging ? static_cast<double>(m_settings.averages) : 1;
  return std::chrono::round<Executor::Duration>(
      std::chrono::duration<double>(m_settings.timeScale * DivisionsAcross * sweeps));
}

void Oscilloscope::StartSweep() {
  m_executor.StartOperation(SweepTime(), m_running ? std::uint16_t{0} : OperationBit::Sweeping,
                            [this, taken = TakeRecords()]() mutable { m_records = std::move(taken); });
}

void Oscilloscope::Single(const Call& /*call*/) {
  CatchUp();
  BeginRun(false);
  if (Sweeps()) {
    StartSweep();
  } else {
    m_executor.StartOperation(Executor::Forever, OperationBit::WaitingForTrigger);
  }
}

/// A run is no operation: nothing waits for its end.
void Oscilloscope::Run(const Call& /*call*/) {
  m_executor.CancelOperation();
  CatchUp();
  BeginRun(true);
}

void Oscilloscope::Stop(const Call& /*call*/) {
  m_executor.CancelOperation();
  CatchUp();
  BeginRun(false);
}

void Oscilloscope::BeginRun(bool running) {
  m_running = running;
  m_runBegan = m_executor.Now();
  m_sweeps = 0;
  if (running) {
    m_status.Operation().Set(OperationBit::Sweeping);
  } else {
    m_status.Operation().Clear(OperationBit::Sweeping);
  }
}

/// While the instrument runs, its records are made when somebody looks.
void Oscilloscope::CatchUp() {
  if (!m_running || !Sweeps()) return;
  const std::int64_t over = (m_executor.Now() - m_runBegan) / SweepTime();
  if (over > std::exchange(m_sweeps, over)) m_records = TakeRecords();
}

void Oscilloscope::TriggerChanged() {
  if (Armed() && Sweeps()) StartSweep();
}

void Oscilloscope::Trigger() {
  if (!Armed() && (!m_running || Sweeps())) throw ScpiError(ErrorCode::TriggerIgnored);
  StartSweep();
}

void Oscilloscope::ForceTrigger(const Call& /*call*/) { Trigger(); }

void Oscilloscope::AutoScale(const Call& call) {
  Settings& settings = Change();
  Settings::Channel channel;
  channel.shown = true;
  settings.channels.fill(channel);
  settings.trigger = {};
  settings.averaging = false;
  for (std::size_t i = 0; i < Settings::ChannelCount; ++i) {
    const Signal signal = Seen(i);
    settings.channels[i].scale = RoundUp(2 * (signal.amplitude + signal.bias) / DivisionsUsed);
  }
  settings.timeScale = RoundUp(PeriodsShown / Seen(0).frequency / DivisionsAcross);
  Run(call);
}

// Records.

WaveformScale Oscilloscope::ScaleOf(std::size_t channel) const {
  const auto points = static_cast<std::size_t>(m_settings.points);
  const double step = m_settings.timeScale * DivisionsAcross / static_cast<double>(points);
  return {points, step, m_settings.channels[channel].scale, m_settings.channels[channel].offset};
}

WaveformRecord Oscilloscope::MakeRecord(std::size_t channel) {
  const Signal signal = Seen(channel);
  const double noise = m_settings.averaging ? 1 / std::sqrt(static_cast<double>(m_settings.averages)) : 1;
  WaveformRecord record{ScaleOf(channel), {}};
  record.codes.resize(record.scale.points);
  double time = Crossing().value_or(0);
  for (char& point : record.codes) {
    const double volts = signal.bias + signal.amplitude * Sine(signal.frequency * time);
    const double divisions = (volts - record.scale.centreVolts) / record.scale.voltsPerDivision;
    const double code =
        WaveformScale::CentreCode + divisions * WaveformScale::CodesPerDivision + noise * m_random.Noise();
    point = static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0.0, 255.0)));
    time += record.scale.secondsPerPoint;
  }
  return record;
}

Oscilloscope::Records Oscilloscope::TakeRecords() {
  Records records;
  for (std::size_t i = 0; i < Settings::ChannelCount; ++i) {
    if (m_settings.channels[i].shown) records[i] = MakeRecord(i);
  }
  return records;
}

/// While the instrument runs, waits for a sweep of the present settings.
void Oscilloscope::WhenRecorded(std::function<void()> then) {
  m_executor.WhenIdle([this, then = std::move(then)]() mutable {
    CatchUp();
    if (m_running && m_sweeps == 0 && Sweeps()) {
      m_executor.StartOperation(m_runBegan + SweepTime() - m_executor.Now(), 0);
      WhenRecorded(std::move(then));
    } else {
      then();
    }
  });
}

void Oscilloscope::Data(const Call& /*call*/) {
  WhenRecorded([this] {
    const auto& record = m_records[m_settings.source];
    if (!record) throw ScpiError(ErrorCode::DataCorruptOrStale);
    m_executor.Respond(record->Data(m_settings.format));
  });
}

/// Of the record; without one, of that which the settings would give.
void Oscilloscope::Preamble(const Call& /*call*/) {
  WhenRecorded([this] {
    const auto& record = m_records[m_settings.source];
    m_executor.Respond((record ? record->scale : ScaleOf(m_settings.source)).Preamble(m_settings.format));
  });
}

} // namespace portico::simulator
