#include "logtool/CommandOutput.h"

#include <algorithm>

namespace portico::logtool {
namespace {

/// A command file would refuse the line, pass over it, or take it for a remark.
bool IsCommand(StringView line) {
  const StringView command = TrimLeft(line);
  if (command.find_first_of(StringView(u"\0\r", 2)) != StringView::npos || FindOutsideCodePage(command)) return false;
  if (command.empty()) return false;
  constexpr StringView markers = u"\u00AE\u00A9\u001A";
  return markers.find(command.front()) == StringView::npos && command.substr(0, 4) != u"REM ";
}

} // namespace

std::string CommandOutput::Add(const LogEntry& entry) {
  if (entry.Kind != "Instruction") return {};
  const auto lines = Lines(entry.Text);
  const bool fits = !lines.empty() && std::all_of(lines.begin(), lines.end(), IsCommand);
  if (!fits) return "the instruction of " + entry.Stamp + " cannot stand in a command file";
  for (const StringView line : lines) m_out << ToUtf8(line) << '\n';
  return {};
}

} // namespace portico::logtool
