#pragma once

#include "document/log/LogElement.h"
#include "framework/text/text.h"

#include <optional>
#include <string>
#include <variant>

namespace portico {

/// A session's opening tag. Texts are UTF-8.
struct LogSession {
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

LogSession ReadLogSession(const LogElement& element);

/// The entity, or what is wrong with its payload.
std::variant<LogEntry, std::string> ReadLogEntry(const LogElement& element);

} // namespace portico
