#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace portico {

/// What keeps a well-formed document from being a log of this application.
enum class LogFault {
  None,
  NoHeader, ///< or it is no log at all
  SecondHeader,
  OtherApplication,
};

/// What a reading has found out about a whole log.
struct LogReading {
  enum class End {
    Complete, ///< well-formed
    Torn,     ///< a log whose last write was cut short; all that was read is sound
    Broken,   ///< anything else
  };

  End Ending = End::Broken;
  /// Why the log is not complete, and where the reader noticed.
  std::string Reason;
  std::uint64_t Line = 0;

  /// The root is that of a log.
  bool IsLog = false;
  std::size_t Headers = 0;
  /// Of the first header.
  std::string ApplicationName;

  /// Bytes in all, and bytes up to the end of the last thing that is whole. Behind it stand closing tags, white space,
  /// and what is torn.
  std::uint64_t Size = 0;
  std::uint64_t SoundEnd = 0;
  /// `SoundEnd` lies in a session.
  bool InSession = false;
  /// Sessions whose opening tag is whole, and the opening stamp of the last.
  std::size_t Sessions = 0;
  std::string LastOpenStamp;
  /// The bytes are UTF-8, so that they can be added to.
  bool IsUtf8 = true;
  /// Comments or instructions stand behind the root.
  bool HasEpilogue = false;
  /// Where the room for a close stamp begins that holds a piece of one.
  std::vector<std::uint64_t> TornCloseStamps;

  /// The fault of a log with so many headers, the first of which names that application.
  static LogFault FaultOf(std::size_t headers, std::string_view applicationName);
  LogFault Fault() const;
  bool IsOurs() const { return Fault() == LogFault::None; }
};

} // namespace portico
