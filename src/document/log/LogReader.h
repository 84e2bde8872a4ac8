#pragma once

#include "document/log/ILogDisk.h"
#include "document/log/LogElement.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
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

  LogFault Fault() const;
  bool IsOurs() const { return Fault() == LogFault::None; }
};

namespace LogReader {

/// The fault of a log with so many headers, the first of which names that application.
LogFault FaultOf(std::size_t headers, std::string_view applicationName);

/// Fills the buffer as far as there is something, and returns how many bytes it gave; none at the end.
using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Reads a log from its first byte to its last, or to where it is broken. Memory goes with the longest entity, not
/// with the log. A document type is refused, and with it every expansion of entities.
LogReading Read(const Source& source, ILogVisitor& visitor);

/// The same of bytes in memory, and of an open file.
LogReading Read(std::string_view bytes, ILogVisitor& visitor);
LogReading Read(const ILogFile& file, ILogVisitor& visitor);
/// The file as it is now: what a writer adds meanwhile is not read.
Source SourceOf(const ILogFile& file);
/// The file up to that position, and that text behind it.
Source SourceOf(const ILogFile& file, std::uint64_t end, std::string tail);
/// The same, with blanks in the room of each torn close stamp.
Source MendedSourceOf(const ILogFile& file, const LogReading& reading);

} // namespace LogReader
} // namespace portico
