#pragma once

#include "framework/objects/Event.h"
#include "terminal/RunOptions.h"
#include "terminal/console/Interrupts.h"
#include "views/repeat/TurnSchedule.h"

#include <functional>
#include <string>

namespace portico::terminal {

/// The turns of a run: one, unless the user wants it repeated. The first begins with the object.
class RunTurns {
public:
  using TimePoint = TurnSchedule::TimePoint;
  /// The time that the event loop runs on.
  using Clock = std::function<TimePoint()>;

  /// Interrupts must wake the event loop, and outlive the object.
  RunTurns(const std::optional<RepeatOptions>& options, const Interrupts& interrupts, Clock now);

  /// Waits on the event loop until the next turn begins; false if there is none, or once the user has interrupted.
  bool WaitForNext();
  /// In front of a wait, with the moment at which it ends.
  Event<TimePoint> Waits;

  std::uint64_t Skipped() const { return m_schedule.Skipped(); }
  /// What stands behind a place in a message: " (turn 2)"; empty where nothing is repeated.
  std::string Mark() const;
  /// What progress begins with: "turn 2 of 10, 1 skipped: "; empty where nothing is repeated. `ahead` turns later.
  std::string Heading(std::uint64_t ahead = 0) const;

private:
  bool WaitUntil(TimePoint moment);

  const bool m_isRepeated;
  const Interrupts& m_interrupts;
  const Clock m_now;
  TurnSchedule m_schedule;
};

} // namespace portico::terminal
