#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace portico {

/// When the turns of a repeated run begin: one each interval, start to start. A turn whose time has passed before the
/// one in front of it is over is skipped, which is counted, and does not count as one of them.
class TurnSchedule {
public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// The first turn begins at `start`. Without `turns` there is no last one. With an interval of 0 each begins as soon
  /// as the one in front of it is over.
  TurnSchedule(std::optional<std::uint64_t> turns, std::chrono::milliseconds interval, TimePoint start)
      : m_turns(turns), m_interval(interval), m_begin(start) {}

  /// Of the turn that goes on, or was the last to begin; the first is 1.
  std::uint64_t Turn() const { return m_turn; }
  std::optional<std::uint64_t> Turns() const { return m_turns; }
  std::uint64_t Skipped() const { return m_skipped; }

  /// When the next turn begins, for one that is over `now`; none behind the last. Skips those that are too late.
  std::optional<TimePoint> Next(TimePoint now);
  /// It begins.
  void Begin() { ++m_turn; }

private:
  std::optional<std::uint64_t> m_turns;
  std::chrono::milliseconds m_interval;
  TimePoint m_begin; // of the turn, as it was due
  std::uint64_t m_turn = 1;
  std::uint64_t m_skipped = 0;
};

} // namespace portico
