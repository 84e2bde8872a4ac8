#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

namespace portico::terminal {

/// One line that tells how far a run has come: lines done, their rate, and the time left where the total is known. It
/// stands on a terminal and is written anew over itself, ten times a second at most.
class Progress final {
public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// The stream must outlive it. `now` is asked once for each `Show`.
  Progress(std::ostream& out, std::function<TimePoint()> now, std::optional<std::size_t> total);

  /// `done` lines of the total.
  void Show(std::size_t done);
  /// Takes the line away, so that something else can be written; the next `Show` brings it back.
  void Erase();

private:
  std::string Line(std::size_t done, TimePoint now) const;

  std::ostream& m_out;
  std::function<TimePoint()> m_now;
  std::optional<std::size_t> m_total;
  TimePoint m_start;
  std::optional<TimePoint> m_shown;
  bool m_standing = false;
};

} // namespace portico::terminal
