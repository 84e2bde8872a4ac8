#include "logtool/ILogOutput.h"

namespace portico::logtool {

std::string ILogOutput::Take(const LogElement& element) {
  const auto entry = ReadLogEntry(element);
  if (const auto* complaint = std::get_if<std::string>(&entry)) return *complaint;
  return Add(std::get<LogEntry>(entry));
}

} // namespace portico::logtool
