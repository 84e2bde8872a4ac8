#pragma once

#include "views/RunFrame.h"
#include "views/repeat/RepeatedLines.h"
#include "views/repeat/TurnSchedule.h"

#include <chrono>
#include <functional>
#include <optional>

namespace portico {

/// How often lines are run, and when.
struct RepeatPlan {
  std::optional<std::uint64_t> Turns; ///< without them until Stop
  std::chrono::milliseconds Every{};  ///< from start to start; 0 for at once
};

/// Runs a copy of lines again and again, in one frame: to all others it is one run, and Stop ends it also between two
/// turns. Needs what the runners need.
class RepeatedRun final : public IObject {
public:
  using Clock = std::function<TurnSchedule::TimePoint()>;

  /// The frame must outlive the object. `now` is the time of the event loop.
  explicit RepeatedRun(RunFrame& frame, Clock now = std::chrono::steady_clock::now);
  StringView ClassName() const override { return u"RepeatedRun"; }

  struct Outcome {
    std::uint64_t Begun = 1; ///< turns, a stopped one included
    std::uint64_t Skipped = 0;
    bool IsStopped = false; ///< by Stop, or by what ends a run in its place
  };
  Outcome Run(const Ref<RepeatedLines>& lines, const RepeatPlan& plan);
  /// Whether such a run goes on.
  bool GoesOn() const { return m_goesOn; }

  /// What it was asked to do last.
  const RepeatPlan& Plan() const { return m_plan; }

  /// An instruction of the first turn is about to be sent; the other turns send the same.
  Event<const String&> Sending;

private:
  RunFrame& m_frame;
  const Clock m_now;
  RepeatPlan m_plan{.Turns = 10, .Every = std::chrono::seconds(1)};
  bool m_goesOn = false;
};

} // namespace portico
