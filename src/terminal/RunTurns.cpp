#include "terminal/RunTurns.h"

#include "platform/IEventLoop.h"

#include <algorithm>
#include <utility>

namespace portico::terminal {
namespace {

constexpr RepeatOptions Once = {1, std::chrono::milliseconds(0)};

} // namespace

RunTurns::RunTurns(const std::optional<RepeatOptions>& options, const Interrupts& interrupts, Clock now)
    : m_isRepeated(options.has_value()),
      m_interrupts(interrupts),
      m_now(std::move(now)),
      m_schedule(options.value_or(Once).Turns, options.value_or(Once).Every, m_now()) {}

bool RunTurns::WaitForNext() {
  const auto next = m_schedule.Next(m_now());
  if (!next || !WaitUntil(*next)) return false;
  m_schedule.Begin();
  return true;
}

bool RunTurns::WaitUntil(TimePoint moment) {
  if (m_now() < moment) Waits(moment);
  const auto timer = gEventLoop->MakeTimer();
  while (!m_interrupts.Requested()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - m_now()).count();
    if (left <= 0) return true;
    timer->Interval(static_cast<std::int32_t>(std::min<std::int64_t>(left, LongestInterval)));
    timer->Enabled(true);
    gEventLoop->WaitForEvent();
  }
  return false;
}

std::string RunTurns::Mark() const {
  return m_isRepeated ? " (turn " + std::to_string(m_schedule.Turn()) + ")" : std::string();
}

std::string RunTurns::Heading(std::uint64_t ahead) const {
  if (!m_isRepeated) return {};
  std::string heading = "turn " + std::to_string(m_schedule.Turn() + ahead);
  if (m_schedule.Turns()) heading += " of " + std::to_string(*m_schedule.Turns());
  if (Skipped() > 0) heading += ", " + std::to_string(Skipped()) + " skipped";
  return heading + ": ";
}

} // namespace portico::terminal
