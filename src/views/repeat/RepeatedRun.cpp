#include "views/repeat/RepeatedRun.h"

#include "framework/shared/IMainWindow.h"
#include "views/repeat/TurnWait.h"

#include <utility>

namespace portico {
namespace {

/// All turns, each as Run takes the lines of a command window.
class TurnsRunner final : public LineRunner {
public:
  TurnsRunner(const Ref<RepeatedLines>& lines, const RepeatPlan& plan, const RepeatedRun::Clock& now)
      : m_lines(lines), m_now(now), m_schedule(plan.Turns, plan.Every, now()) {
    m_runner.CommandQueue(lines);
    m_runner.Add2History.Connect([this](const String& line) { Add2History(line); });
    m_runner.Sending.Connect([this](const String& line) {
      if (m_schedule.Turn() == 1) Sending(line);
    });
  }

  void Execute() override {
    do {
      m_lines->Restore();
      m_runner.Execute();
    } while (!IsStopped() && BeginNext());
    m_outcome = {.Begun = m_schedule.Turn(), .Skipped = m_schedule.Skipped(), .IsStopped = IsStopped()};
  }
  const RepeatedRun::Outcome& Outcome() const { return m_outcome; }

private:
  static bool IsStopped() { return gMainForm->StopRequested(); }
  bool BeginNext() {
    const auto next = m_schedule.Next(m_now());
    if (!next || !WaitUntil(*next, m_now, IsStopped)) return false;
    m_schedule.Begin();
    return true;
  }

  const Ref<RepeatedLines> m_lines;
  const RepeatedRun::Clock m_now;
  TurnSchedule m_schedule;
  CCommandRunner m_runner;
  RepeatedRun::Outcome m_outcome;
};

/// Set as long as it lives.
class Flag {
public:
  explicit Flag(bool& flag) : m_flag(flag) { m_flag = true; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  ~Flag() { m_flag = false; }

private:
  bool& m_flag;
};

} // namespace

RepeatedRun::RepeatedRun(RunFrame& frame, Clock now) : m_frame(frame), m_now(std::move(now)) {}

RepeatedRun::Outcome RepeatedRun::Run(const Ref<RepeatedLines>& lines, const RepeatPlan& plan) {
  m_plan = plan;
  TurnsRunner runner(lines, plan, m_now);
  runner.Add2History.Connect([this](const String& line) { m_frame.Add2History(line); });
  runner.Sending.Connect([this](const String& line) { Sending(line); });
  const Flag goesOn(m_goesOn);
  m_frame.Surround(runner);
  return runner.Outcome();
}

} // namespace portico
