#pragma once

#include "simulator/Executor.h"
#include "simulator/InstrumentModel.h"
#include "simulator/Random.h"
#include "simulator/WaveformRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace portico::simulator {

/// The device "scope": four channels, each with a sine of its own frequency, and records of one byte a point.
class Oscilloscope final : public InstrumentModel {
public:
  Oscilloscope(Executor& executor, StatusModel& status, std::uint64_t seed);

  std::string_view Identification() const override { return "TOLVANE INSTRUMENTS,SIM-SCOPE,SIM0003,1.0"; }
  void Reset() override;
  void AddTo(CommandTree& tree) override;

private:
  struct Channel {
    double scale; ///< volts per division
    double offset;
    bool shown;
  };
  using Records = std::array<std::optional<WaveformRecord>, 4>;

  void SetScale(const Call& call);
  void Scale(const Call& call);
  void SetOffset(const Call& call);
  void Offset(const Call& call);
  void SetShown(const Call& call);
  void Shown(const Call& call);
  void SetTimeScale(const Call& call);
  void TimeScale(const Call& call);
  void SetAcquisition(const Call& call);
  void Acquisition(const Call& call);
  void SetAverages(const Call& call);
  void Averages(const Call& call);
  void Single(const Call& call);
  void Stop(const Call& call);
  void SetSource(const Call& call);
  void Source(const Call& call);
  void SetPoints(const Call& call);
  void Points(const Call& call);
  void Data(const Call& call);
  void Preamble(const Call& call);
  void PeakToPeak(const Call& call);
  void Frequency(const Call& call);

  Channel& Of(const Call& call) { return m_channels[call.Suffix(0) - 1]; }
  static std::size_t ChannelNamed(const Call& call);
  WaveformScale ScaleOf(std::size_t channel) const;
  WaveformRecord MakeRecord(std::size_t channel);
  Records TakeRecords();

  Executor& m_executor;
  Random m_random;
  std::array<Channel, 4> m_channels{};
  Records m_records;
  double m_timeScale = 0; ///< seconds per division
  bool m_averaging = false;
  std::int64_t m_averages = 0;
  std::size_t m_source = 0;
  std::size_t m_points = 0;
};

} // namespace portico::simulator
