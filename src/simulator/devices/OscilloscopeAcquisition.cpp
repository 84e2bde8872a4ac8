#include "simulator/devices/OscilloscopeAcquisition.h"

#include "scpi/ScpiError.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace portico::simulator {
namespace {

double Sine(double turns) { return std::sin(2 * std::numbers::pi * turns); }

} // namespace

void OscilloscopeAcquisition::Reset() {
  m_records = {};
  BeginRun(false);
}

OscilloscopeAcquisition::Signal OscilloscopeAcquisition::Seen(std::size_t channel) const {
  static constexpr std::array<Signal, Settings::ChannelCount> signals{
      {{1, 1000, 0}, {0.5, 2000, 0.25}, {2, 500, 0}, {0.25, 10000, 0}}};
  Signal signal = signals[channel];
  const Settings::InputCoupling coupling = m_settings.Channels[channel].Coupling;
  if (coupling != Settings::InputCoupling::Dc) signal.Bias = 0;
  if (coupling == Settings::InputCoupling::Ground) signal.Amplitude = 0;
  return signal;
}

std::optional<double> OscilloscopeAcquisition::Crossing() const {
  const Settings::TriggerSetup& trigger = m_settings.Trigger;
  if (trigger.Source == Settings::External) return std::nullopt;
  const Signal signal = Seen(trigger.Source);
  const double height = trigger.Level - signal.Bias;
  if (std::abs(height) >= signal.Amplitude) return std::nullopt;
  const double rising = std::asin(height / signal.Amplitude) / (2 * std::numbers::pi); // turns
  return (trigger.Falling ? 0.5 - rising : rising) / signal.Frequency;
}

// Acquisition.

/// A sweep records as long as it lasts.
Executor::Duration OscilloscopeAcquisition::SweepTime() const {
  const double sweeps = m_settings.Averaging ? static_cast<double>(m_settings.Averages) : 1;
  return std::chrono::round<Executor::Duration>(
      std::chrono::duration<double>(m_settings.TimeScale * Settings::DivisionsAcross * sweeps));
}

void OscilloscopeAcquisition::StartSweep() {
  m_executor.StartOperation(SweepTime(), m_running ? std::uint16_t{0} : OperationBit::Sweeping,
                            [this, taken = TakeRecords()]() mutable { m_records = std::move(taken); });
}

void OscilloscopeAcquisition::Single() {
  CatchUp();
  BeginRun(false);
  if (Sweeps()) {
    StartSweep();
  } else {
    m_executor.StartOperation(Executor::Forever, OperationBit::WaitingForTrigger);
  }
}

/// A run is no operation: nothing waits for its end.
void OscilloscopeAcquisition::Run() {
  m_executor.CancelOperation();
  CatchUp();
  BeginRun(true);
}

void OscilloscopeAcquisition::Stop() {
  m_executor.CancelOperation();
  CatchUp();
  BeginRun(false);
}

void OscilloscopeAcquisition::BeginRun(bool running) {
  m_running = running;
  m_runBegan = m_executor.Now();
  m_sweeps = 0;
  if (running) {
    m_status.Operation().Set(OperationBit::Sweeping);
  } else {
    m_status.Operation().Clear(OperationBit::Sweeping);
  }
}

void OscilloscopeAcquisition::CatchUp() {
  if (!m_running || !Sweeps()) return;
  const std::int64_t over = (m_executor.Now() - m_runBegan) / SweepTime();
  if (over > std::exchange(m_sweeps, over)) m_records = TakeRecords();
}

void OscilloscopeAcquisition::TriggerChanged() {
  if (m_executor.OperationIsOpen() && Sweeps()) StartSweep();
}

void OscilloscopeAcquisition::Trigger() {
  if (!m_executor.OperationIsOpen() && (!m_running || Sweeps())) throw scpi::ScpiError(scpi::ErrorCode::TriggerIgnored);
  StartSweep();
}

void OscilloscopeAcquisition::ForgetSweeps() {
  CatchUp();
  m_runBegan = m_executor.Now();
  m_sweeps = 0;
}

// Records.

WaveformScale OscilloscopeAcquisition::ScaleOf(std::size_t channel) const {
  const auto points = static_cast<std::size_t>(m_settings.Points);
  const double step = m_settings.TimeScale * Settings::DivisionsAcross / static_cast<double>(points);
  return {points, step, m_settings.Channels[channel].Scale, m_settings.Channels[channel].Offset};
}

WaveformRecord OscilloscopeAcquisition::MakeRecord(std::size_t channel) {
  const Signal signal = Seen(channel);
  const double noise = m_settings.Averaging ? 1 / std::sqrt(static_cast<double>(m_settings.Averages)) : 1;
  WaveformRecord record{ScaleOf(channel), {}};
  record.Codes.resize(record.Scale.Points);
  double time = Crossing().value_or(0);
  for (char& point : record.Codes) {
    const double volts = signal.Bias + signal.Amplitude * Sine(signal.Frequency * time);
    const double divisions = (volts - record.Scale.CentreVolts) / record.Scale.VoltsPerDivision;
    const double code =
        WaveformScale::CentreCode + divisions * WaveformScale::CodesPerDivision + noise * m_random.Noise();
    point = static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0.0, 255.0)));
    time += record.Scale.SecondsPerPoint;
  }
  return record;
}

OscilloscopeAcquisition::Records OscilloscopeAcquisition::TakeRecords() {
  Records records;
  for (std::size_t i = 0; i < Settings::ChannelCount; ++i) {
    if (m_settings.Channels[i].Shown) records[i] = MakeRecord(i);
  }
  return records;
}

void OscilloscopeAcquisition::WhenRecorded(std::function<void()> then) {
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

} // namespace portico::simulator
