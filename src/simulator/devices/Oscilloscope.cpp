#include "simulator/devices/Oscilloscope.h"

#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"
#include "simulator/devices/ScreenPicture.h"
#include "simulator/language/ResponseFormat.h"

#include <cmath>
#include <limits>
#include <string>

namespace portico::simulator {
namespace {

constexpr Limits VoltsPerDivision{0.001, 10, 0.5, Quantity::Voltage};
constexpr Limits OffsetVolts{-40, 40, 0, Quantity::Voltage};
constexpr Limits SecondsPerDivision{1E-9, 1, 1E-3, Quantity::Time};
constexpr Limits AverageLimits{2, 1024, 8};
constexpr Limits PointLimits{10, 1'000'000, 1000};

constexpr double HeightUsed = 6;   ///< divisions, by `AUToscale`
constexpr double PeriodsShown = 2; ///< likewise

// As they are written; the short form is answered.
constexpr std::string_view Sources[] = {"CHANnel1", "CHANnel2", "CHANnel3", "CHANnel4", "EXTernal"};
constexpr std::string_view Couplings[] = {"DC", "AC", "GND"};
constexpr std::string_view Acquisitions[] = {"NORMal", "AVERage"};
constexpr std::string_view SweepModes[] = {"NORMal", "AUTO"};
constexpr std::string_view Slopes[] = {"POSitive", "NEGative"};
constexpr std::string_view Formats[] = {"BYTE", "WORD", "ASCii"};

/// The smallest of 1, 2 and 5 times a power of ten that is not below the value.
double RoundUp(double value) {
  value *= 1 - 1E-9; // what is one of them but for rounding stays
  const double decade = std::pow(10, std::floor(std::log10(value)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * decade >= value) return step * decade;
  }
  return 10 * decade;
}

std::size_t ChannelNamed(const Call& call) {
  const std::size_t channel = call.Keyword(0, Sources);
  if (channel == OscilloscopeSettings::External) throw scpi::ScpiError(scpi::ErrorCode::IllegalParameterValue);
  return channel;
}

} // namespace

void Oscilloscope::AddTo(CommandTree& tree) {
  using Self = Oscilloscope;
  static constexpr Command<Self> table[] = {
      {"CHANnel<1-4>:SCALe", &Self::SetScale, 1, 1},
      {"CHANnel<1-4>:SCALe?", &Self::Scale, 0, 1},
      {"CHANnel<1-4>:OFFSet", &Self::SetOffset, 1, 1},
      {"CHANnel<1-4>:OFFSet?", &Self::Offset, 0, 1},
      {"CHANnel<1-4>:DISPlay", &Self::SetShown, 1, 1},
      {"CHANnel<1-4>:DISPlay?", &Self::Shown},
      {"CHANnel<1-4>:COUPling", &Self::SetCoupling, 1, 1},
      {"CHANnel<1-4>:COUPling?", &Self::Coupling},
      {"TIMebase:SCALe", &Self::SetTimeScale, 1, 1},
      {"TIMebase:SCALe?", &Self::TimeScale, 0, 1},
      {"ACQuire:TYPE", &Self::SetAcquisition, 1, 1},
      {"ACQuire:TYPE?", &Self::Acquisition},
      {"ACQuire:COUNt", &Self::SetAverages, 1, 1},
      {"ACQuire:COUNt?", &Self::Averages, 0, 1},
      {"TRIGger:SWEep", &Self::SetSweep, 1, 1},
      {"TRIGger:SWEep?", &Self::Sweep},
      {"TRIGger[:EDGE]:SOURce", &Self::SetTriggerSource, 1, 1},
      {"TRIGger[:EDGE]:SOURce?", &Self::TriggerSource},
      {"TRIGger[:EDGE]:LEVel", &Self::SetTriggerLevel, 1, 1},
      {"TRIGger[:EDGE]:LEVel?", &Self::TriggerLevel, 0, 1},
      {"TRIGger[:EDGE]:SLOPe", &Self::SetSlope, 1, 1},
      {"TRIGger[:EDGE]:SLOPe?", &Self::Slope},
      {"TRIGger:FORCe", &Self::ForceTrigger},
      {"AUToscale", &Self::AutoScale},
      {"RUN", &Self::Run},
      {"SINGle", &Self::Single},
      {"STOP", &Self::Stop},
      {"WAVeform:SOURce", &Self::SetSource, 1, 1},
      {"WAVeform:SOURce?", &Self::Source},
      {"WAVeform:POINts", &Self::SetPoints, 1, 1},
      {"WAVeform:POINts?", &Self::Points, 0, 1},
      {"WAVeform:FORMat", &Self::SetFormat, 1, 1},
      {"WAVeform:FORMat?", &Self::Format},
      {"WAVeform:DATA?", &Self::Data},
      {"WAVeform:PREamble?", &Self::Preamble},
      {"HCOPy:SDUMp:DATA?", &Self::Picture},
      {"MEASure:VPP?", &Self::PeakToPeak, 1, 1},
      {"MEASure:FREQuency?", &Self::Frequency, 1, 1},
  };
  tree.Add(table, *this);
}

void Oscilloscope::Reset() {
  m_settings = {};
  m_acquisition.Reset();
}

// Settings.

Oscilloscope::Settings& Oscilloscope::Change() {
  m_acquisition.ForgetSweeps();
  return m_settings;
}

void Oscilloscope::SetScale(const Call& call) { ChangeOf(call).Scale = call.Number(0, VoltsPerDivision); }

void Oscilloscope::Scale(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).Scale, VoltsPerDivision)));
}

void Oscilloscope::SetOffset(const Call& call) { ChangeOf(call).Offset = call.Number(0, OffsetVolts); }

void Oscilloscope::Offset(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).Offset, OffsetVolts)));
}

void Oscilloscope::SetShown(const Call& call) { ChangeOf(call).Shown = call.Boolean(0); }

void Oscilloscope::Shown(const Call& call) { m_executor.Respond(FormatBoolean(Of(call).Shown)); }

void Oscilloscope::SetCoupling(const Call& call) {
  ChangeOf(call).Coupling = static_cast<Settings::InputCoupling>(call.Keyword(0, Couplings));
  m_acquisition.TriggerChanged();
}

void Oscilloscope::Coupling(const Call& call) {
  m_executor.Respond(scpi::ShortOf(Couplings, static_cast<std::size_t>(Of(call).Coupling)));
}

void Oscilloscope::SetTimeScale(const Call& call) { Change().TimeScale = call.Number(0, SecondsPerDivision); }

void Oscilloscope::TimeScale(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_settings.TimeScale, SecondsPerDivision)));
}

void Oscilloscope::SetAcquisition(const Call& call) { Change().Averaging = call.Keyword(0, Acquisitions) == 1; }

void Oscilloscope::Acquisition(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(Acquisitions, m_settings.Averaging ? 1 : 0));
}

void Oscilloscope::SetAverages(const Call& call) { Change().Averages = call.Whole(0, AverageLimits); }

void Oscilloscope::Averages(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.Averages, AverageLimits)));
}

void Oscilloscope::SetSweep(const Call& call) {
  Change().Trigger.Automatic = call.Keyword(0, SweepModes) == 1;
  m_acquisition.TriggerChanged();
}

void Oscilloscope::Sweep(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(SweepModes, m_settings.Trigger.Automatic ? 1 : 0));
}

void Oscilloscope::SetTriggerSource(const Call& call) {
  Change().Trigger.Source = call.Keyword(0, Sources);
  m_acquisition.TriggerChanged();
}

void Oscilloscope::TriggerSource(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(Sources, m_settings.Trigger.Source));
}

void Oscilloscope::SetTriggerLevel(const Call& call) {
  Change().Trigger.Level = call.Number(0, OffsetVolts);
  m_acquisition.TriggerChanged();
}

void Oscilloscope::TriggerLevel(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_settings.Trigger.Level, OffsetVolts)));
}

void Oscilloscope::SetSlope(const Call& call) { Change().Trigger.Falling = call.Keyword(0, Slopes) == 1; }

void Oscilloscope::Slope(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(Slopes, m_settings.Trigger.Falling ? 1 : 0));
}

void Oscilloscope::SetSource(const Call& call) { m_settings.Source = ChannelNamed(call); }

void Oscilloscope::Source(const Call& /*call*/) { m_executor.Respond(scpi::ShortOf(Sources, m_settings.Source)); }

void Oscilloscope::SetPoints(const Call& call) { Change().Points = call.Whole(0, PointLimits); }

void Oscilloscope::Points(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.Points, PointLimits)));
}

void Oscilloscope::SetFormat(const Call& call) {
  m_settings.Format = static_cast<WaveformFormat>(call.Keyword(0, Formats));
}

void Oscilloscope::Format(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(Formats, static_cast<std::size_t>(m_settings.Format)));
}

void Oscilloscope::AutoScale(const Call& /*call*/) {
  Settings& settings = Change();
  Settings::Channel channel;
  channel.Shown = true;
  settings.Channels.fill(channel);
  settings.Trigger = {};
  settings.Averaging = false;
  for (std::size_t i = 0; i < Settings::ChannelCount; ++i) {
    const auto signal = m_acquisition.Seen(i);
    settings.Channels[i].Scale = RoundUp(2 * (signal.Amplitude + signal.Bias) / HeightUsed);
  }
  settings.TimeScale = RoundUp(PeriodsShown / m_acquisition.Seen(0).Frequency / Settings::DivisionsAcross);
  m_acquisition.Run();
}

// Records and measurements.

void Oscilloscope::Data(const Call& /*call*/) {
  m_acquisition.WhenRecorded([this] {
    const auto& record = m_acquisition.Record(m_settings.Source);
    if (!record) throw scpi::ScpiError(scpi::ErrorCode::DataCorruptOrStale);
    m_executor.Respond(record->Data(m_settings.Format));
  });
}

void Oscilloscope::Picture(const Call& /*call*/) {
  m_acquisition.WhenRecorded([this] {
    ScreenPicture screen;
    for (std::size_t channel = 0; channel < Settings::ChannelCount; ++channel) {
      if (const auto& record = m_acquisition.Record(channel)) screen.Trace(channel, record->Codes);
    }
    m_executor.Respond(FormatBlock(screen.Bmp()));
  });
}

/// Of the record; without one, of that which the settings would give.
void Oscilloscope::Preamble(const Call& /*call*/) {
  m_acquisition.WhenRecorded([this] {
    const auto& record = m_acquisition.Record(m_settings.Source);
    const WaveformScale scale = record ? record->Scale : m_acquisition.ScaleOf(m_settings.Source);
    m_executor.Respond(scale.Preamble(m_settings.Format));
  });
}

void Oscilloscope::PeakToPeak(const Call& call) {
  m_executor.Respond(FormatReal(2 * m_acquisition.Seen(ChannelNamed(call)).Amplitude));
}

void Oscilloscope::Frequency(const Call& call) {
  const auto signal = m_acquisition.Seen(ChannelNamed(call));
  m_executor.Respond(FormatReal(signal.Amplitude > 0 ? signal.Frequency : std::numeric_limits<double>::quiet_NaN()));
}

} // namespace portico::simulator
