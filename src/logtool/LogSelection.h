#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace portico::logtool {

/// A part of a log.
struct LogSelection {
  std::optional<std::size_t> Session = {}; ///< the one of each file that is wanted, from 1
  /// The first and the last time that is wanted, as stamps begin, `2004-11-01T16:42`: whatever begins with the last
  /// time is wanted, too. Empty for no limit.
  std::string From = {};
  std::string To = {};

  bool HasTimes() const { return !From.empty() || !To.empty(); }
  bool HasStamp(std::string_view stamp) const {
    return (From.empty() || stamp >= From) && (To.empty() || stamp.substr(0, To.size()) <= To);
  }
};

/// Whether a text is the beginning of a stamp: a date, and as much of a time as is wanted.
bool IsTime(std::string_view text);

} // namespace portico::logtool
