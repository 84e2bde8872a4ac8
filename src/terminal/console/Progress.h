#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

namespace portico::terminal {

/// One line that tells how far a run has come: lines, or whatever else is counted, their rate, and the time left where
/// the total is known. It stands on a terminal and is written anew over itself, ten times a second at most.
class Progress final {
public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// What is counted, of one and of several.
  struct Unit {
    std::string One = "line";
    std::string Several = "lines";
  };

  /// The stream must outlive it. `now` is asked once for each `Show`.
  Progress(std::ostream& out, std::function<TimePoint()> now, std::optional<std::size_t> total)
      : Progress(out, std::move(now), total, Unit()) {}
  Progress(std::ostream& out, std::function<TimePoint()> now, std::optional<std::size_t> total, Unit unit);

  /// What stands in front of the line from now on, such as the turn of a repeated run. Counts, rate and time begin
  /// anew.
  void Begin(std::string heading);
  /// So many are done of the total.
  void Show(std::size_t done);
  /// That it is waited for what the heading names; nothing if that is a matter of less than a tenth of a second.
  void ShowWait(const std::string& heading, TimePoint until);
  /// Takes the line away, so that something else can be written; the next `Show` brings it back.
  void Erase();

private:
  void Write(const std::string& line, TimePoint now);
  std::string Line(std::size_t done, TimePoint now) const;

  std::ostream& m_out;
  std::function<TimePoint()> m_now;
  std::optional<std::size_t> m_total;
  Unit m_unit;
  std::string m_heading;
  TimePoint m_start;
  std::optional<TimePoint> m_shown;
  bool m_standing = false;
};

} // namespace portico::terminal
