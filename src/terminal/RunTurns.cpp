#include "terminal/RunTurns.h"

#include "views/repeat/TurnWait.h"

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
  return portico::WaitUntil(moment, m_now, [this] { return m_interrupts.Requested(); });
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
