#pragma once

#include "document/log/ILogDisk.h"
#include "document/log/LogElement.h"
#include "document/log/LogReading.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace portico {

namespace LogReader {

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
/// A stream, of which it waits for what comes next, and no longer.
Source SourceOf(std::istream& in);
/// The file up to that position, and that text behind it.
Source SourceOf(const ILogFile& file, std::uint64_t end, std::string tail);
/// The same, with blanks in the room of each torn close stamp.
Source MendedSourceOf(const ILogFile& file, const LogReading& reading);

} // namespace LogReader
} // namespace portico
