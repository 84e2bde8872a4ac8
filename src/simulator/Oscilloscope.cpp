#include "simulator/Oscilloscope.h"

#include "simulator/ScpiError.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace portico::simulator {
namespace {

constexpr Limits kVoltsPerDivision{0.001, 10, 0.5, Quantity::Voltage};
constexpr Limits kOffsetVolts{-40, 40, 0, Quantity::Voltage};
constexpr Limits kSecondsPerDivision{1E-9, 1, 1E-3, Quantity::Time};
constexpr double kDivisionsAcross = 10;
constexpr std::int64_t kDefaultAverages = 8;
constexpr std::int64_t kMostAverages = 1024;
constexpr std::size_t kDefaultPoints = 1000;
constexpr std::int64_t kMostPoints = 1'000'000;

/// The signal at an input.
struct Signal {
  double amplitude; ///< volts
  double frequency; ///< hertz
};
constexpr std::array<Signal, 4> kSignals{{{1, 1000}, {0.5, 2000}, {2, 500}, {0.25, 10000}}};

} // namespace

Oscilloscope::Oscilloscope(Executor& executor, StatusModel& /*status*/, std::uint64_t seed)
    : m_executor(executor), m_random(seed) {
  Reset();
}

void Oscilloscope::AddTo(CommandTree& tree) {
  using Self = Oscilloscope;
  static constexpr Command<Self> kTable[] = {
      {"CHANnel<1-4>:SCALe", &Self::SetScale, 1, 1},
      {"CHANnel<1-4>:SCALe?", &Self::Scale, 0, 1},
      {"CHANnel<1-4>:OFFSet", &Self::SetOffset, 1, 1},
      {"CHANnel<1-4>:OFFSet?", &Self::Offset, 0, 1},
      {"CHANnel<1-4>:DISPlay", &Self::SetShown, 1, 1},
      {"CHANnel<1-4>:DISPlay?", &Self::Shown},
      {"TIMebase:SCALe", &Self::SetTimeScale, 1, 1},
      {"TIMebase:SCALe?", &Self::TimeScale, 0, 1},
      {"ACQuire:TYPE", &Self::SetAcquisition, 1, 1},
      {"ACQuire:TYPE?", &Self::Acquisition},
      {"ACQuire:COUNt", &Self::SetAverages, 1, 1},
      {"ACQuire:COUNt?", &Self::Averages},
      {"SINGle", &Self::Single},
      {"STOP", &Self::Stop},
      {"WAVeform:SOURce", &Self::SetSource, 1, 1},
      {"WAVeform:SOURce?", &Self::Source},
      {"WAVeform:POINts", &Self::SetPoints, 1, 1},
      {"WAVeform:POINts?", &Self::Points},
      {"WAVeform:DATA?", &Self::Data},
      {"WAVeform:PREamble?", &Self::Preamble},
      {"MEASure:VPP?", &Self::PeakToPeak, 1, 1},
      {"MEASure:FREQuency?", &Self::Frequency, 1, 1},
  };
  tree.Add(kTable, *this);
}

void Oscilloscope::Reset() {
  m_channels.fill({kVoltsPerDivision.standard, kOffsetVolts.standard, false});
  m_channels.front().shown = true;
  m_records = {};
  m_timeScale = kSecondsPerDivision.standard;
  m_averaging = false;
  m_averages = kDefaultAverages;
  m_source = 0;
  m_points = kDefaultPoints;
}

void Oscilloscope::SetScale(const Call& call) { Of(call).scale = call.Number(0, kVoltsPerDivision); }

void Oscilloscope::Scale(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).scale, kVoltsPerDivision)));
}

void Oscilloscope::SetOffset(const Call& call) { Of(call).offset = call.Number(0, kOffsetVolts); }

void Oscilloscope::Offset(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).offset, kOffsetVolts)));
}

void Oscilloscope::SetShown(const Call& call) { Of(call).shown = call.Boolean(0); }

void Oscilloscope::Shown(const Call& call) { m_executor.Respond(FormatBoolean(Of(call).shown)); }

void Oscilloscope::SetTimeScale(const Call& call) { m_timeScale = call.Number(0, kSecondsPerDivision); }

void Oscilloscope::TimeScale(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_timeScale, kSecondsPerDivision)));
}

void Oscilloscope::SetAcquisition(const Call& call) { m_averaging = call.Keyword(0, {"NORMal", "AVERage"}) == 1; }

void Oscilloscope::Acquisition(const Call& /*call*/) { m_executor.Respond(m_averaging ? "AVER" : "NORM"); }

void Oscilloscope::SetAverages(const Call& call) { m_averages = call.Integer(0, 2, kMostAverages); }

void Oscilloscope::Averages(const Call& /*call*/) { m_executor.Respond(std::to_string(m_averages)); }

/// An acquisition lasts as long as what it records, which is of the settings at its start.
void Oscilloscope::Single(const Call& /*call*/) {
  const std::chrono::duration<double> sweep(m_timeScale * kDivisionsAcross);
  const double sweeps = m_averaging ? static_cast<double>(m_averages) : 1;
  m_executor.StartOperation(std::chrono::round<Executor::Duration>(sweep * sweeps), operation::kSweeping,
                            [this, taken = TakeRecords()]() mutable { m_records = std::move(taken); });
}

void Oscilloscope::Stop(const Call& /*call*/) { m_executor.CancelOperation(); }

WaveformScale Oscilloscope::ScaleOf(std::size_t channel) const {
  const double step = m_timeScale * kDivisionsAcross / static_cast<double>(m_points);
  return {m_points, step, m_channels[channel].scale, m_channels[channel].offset};
}

WaveformRecord Oscilloscope::MakeRecord(std::size_t channel) {
  const Signal& signal = kSignals[channel];
  const double noise = m_averaging ? 1 / std::sqrt(static_cast<double>(m_averages)) : 1;
  WaveformRecord record{ScaleOf(channel), {}};
  record.codes.resize(record.scale.points);
  double time = 0;
  for (char& point : record.codes) {
    const double volts = signal.amplitude * std::sin(2 * std::numbers::pi * signal.frequency * time);
    const double divisions = (volts - record.scale.centreVolts) / record.scale.voltsPerDivision;
    const double code =
        WaveformScale::kCentreCode + divisions * WaveformScale::kCodesPerDivision + noise * m_random.Noise();
    point = static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0.0, 255.0)));
    time += record.scale.secondsPerPoint;
  }
  return record;
}

Oscilloscope::Records Oscilloscope::TakeRecords() {
  Records records;
  for (std::size_t i = 0; i < m_channels.size(); ++i) {
    if (m_channels[i].shown) records[i] = MakeRecord(i);
  }
  return records;
}

std::size_t Oscilloscope::ChannelNamed(const Call& call) {
  return call.Keyword(0, {"CHANnel1", "CHANnel2", "CHANnel3", "CHANnel4"});
}

void Oscilloscope::SetSource(const Call& call) { m_source = ChannelNamed(call); }

void Oscilloscope::Source(const Call& /*call*/) { m_executor.Respond("CHAN" + std::to_string(m_source + 1)); }

void Oscilloscope::SetPoints(const Call& call) {
  m_points = static_cast<std::size_t>(call.Integer(0, 10, kMostPoints));
}

void Oscilloscope::Points(const Call& /*call*/) { m_executor.Respond(std::to_string(m_points)); }

void Oscilloscope::Data(const Call& /*call*/) {
  m_executor.WhenIdle([this] {
    const auto& record = m_records[m_source];
    if (!record) throw ScpiError(ErrorCode::DataCorruptOrStale);
    m_executor.Respond(record->Data());
  });
}

/// Of the record; without one, of that which the settings would give.
void Oscilloscope::Preamble(const Call& /*call*/) {
  m_executor.WhenIdle([this] {
    const auto& record = m_records[m_source];
    m_executor.Respond((record ? record->scale : ScaleOf(m_source)).Preamble());
  });
}

void Oscilloscope::PeakToPeak(const Call& call) {
  m_executor.Respond(FormatReal(2 * kSignals[ChannelNamed(call)].amplitude));
}

void Oscilloscope::Frequency(const Call& call) {
  m_executor.Respond(FormatReal(kSignals[ChannelNamed(call)].frequency));
}

} // namespace portico::simulator
