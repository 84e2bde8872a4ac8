#pragma once

#include <algorithm>
#include <array>

namespace portico::terminal {

/// How a run ends, as the shell sees it.
enum class ExitStatus : int {
  Success = 0,
  InstrumentError = 1, ///< an answer to the error query reported an error
  Usage = 2,
  NotOpened = 3,
  DriverFailure = 4, ///< a time-out, a lost connection
  Internal = 5,      ///< an internal error, or a log or an output that is incomplete
  Interrupted = 130,
};

/// Ranks what happened: the gravest counts.
class RunStatus {
public:
  void Note(ExitStatus status) {
    const auto rank = [](ExitStatus one) { return std::find(ByRank.begin(), ByRank.end(), one); };
    if (rank(status) < rank(m_gravest)) m_gravest = status;
  }
  ExitStatus Gravest() const { return m_gravest; }

private:
  static constexpr std::array<ExitStatus, 7> ByRank = {
      ExitStatus::Interrupted,   ExitStatus::Usage,           ExitStatus::NotOpened, ExitStatus::Internal,
      ExitStatus::DriverFailure, ExitStatus::InstrumentError, ExitStatus::Success};

  ExitStatus m_gravest = ExitStatus::Success;
};

} // namespace portico::terminal
