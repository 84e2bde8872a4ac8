#include "terminal/console/Progress.h"

#include <cmath>
#include <cstdio>
#include <utility>

namespace portico::terminal {
namespace {

constexpr std::chrono::milliseconds ShortestPause{100};

std::string Clock(double seconds) {
  const auto whole = static_cast<long long>(std::ceil(seconds));
  char text[32];
  if (whole < 3600) {
    std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
  } else {
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
  }
  return text;
}

} // namespace

Progress::Progress(std::ostream& out, std::function<TimePoint()> now, std::optional<std::size_t> total, Unit unit)
    : m_out(out), m_now(std::move(now)), m_total(total), m_unit(std::move(unit)), m_start(m_now()) {}

void Progress::Begin(std::string heading) {
  m_heading = std::move(heading);
  m_start = m_now();
}

void Progress::Show(std::size_t done) {
  const TimePoint now = m_now();
  if (m_shown && now - *m_shown < ShortestPause) return;
  Write(m_heading + Line(done, now), now);
}

void Progress::ShowWait(const std::string& heading, TimePoint until) {
  const TimePoint now = m_now();
  if (until - now >= ShortestPause) Write(heading + "waiting", now);
}

void Progress::Write(const std::string& line, TimePoint now) {
  m_shown = now;
  m_standing = true;
  m_out << "\r" << line << "\x1B[K" << std::flush;
}

void Progress::Erase() {
  if (!m_standing) return;
  m_standing = false;
  m_shown.reset();
  m_out << "\r\x1B[K" << std::flush;
}

std::string Progress::Line(std::size_t done, TimePoint now) const {
  std::string line = std::to_string(done);
  if (m_total) line += " of " + std::to_string(*m_total);
  line += " " + (done == 1 && !m_total ? m_unit.One : m_unit.Several);
  const double seconds = std::chrono::duration<double>(now - m_start).count();
  if (seconds <= 0) return line;
  const double rate = static_cast<double>(done) / seconds;
  char text[32];
  std::snprintf(text, sizeof text, rate < 10 ? ", %.1f/s" : ", %.0f/s", rate);
  line += text;
  if (m_total && *m_total >= done) {
    line += ", " + Clock(static_cast<double>(*m_total - done) / rate) + " left";
  }
  return line;
}

} // namespace portico::terminal
