#pragma once

#include "document/log/LogElement.h"
#include "framework/text/text.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace portico::logtool {

/// A session's opening tag. Texts are UTF-8.
struct Session {
  std::string OpenStamp;
  /// None for a session that was never closed.
  std::optional<std::string> CloseStamp;
};

/// One entity of a log.
struct LogEntry {
  /// Its data type, such as "Instruction".
  std::string Kind;
  std::string Stamp;
  String Text;
};

Session ReadSession(const LogElement& element);

/// The entity, or what is wrong with its payload.
std::variant<LogEntry, std::string> ReadEntry(const LogElement& element);

/// The lines of a text, without their line ends; a line end behind the last makes no further line.
std::vector<StringView> Lines(StringView text);

/// The text without the line end behind it.
StringView WithoutLineEnd(StringView text);

} // namespace portico::logtool
