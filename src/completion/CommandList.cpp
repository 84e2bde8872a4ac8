#include "completion/CommandList.h"

#include "completion/LineReading.h"

#include <algorithm>
#include <utility>

namespace portico::completion {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool IsTextByte(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= ' ' || byte == '\t' || byte == '\n' || byte == '\r' || byte == '\f';
}

String Numbered(StringView before, std::size_t number, StringView after) {
  return String(before) + ToText(static_cast<std::int64_t>(number)) + String(after);
}

bool IsRemark(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" \t");
  return begin != std::string_view::npos && line[begin] == '#';
}

} // namespace

CommandList ReadCommandList(std::string_view bytes) {
  CommandList list;
  if (bytes.size() > CommandList::MostBytes) {
    list.Complaint = Numbered(u"The list is longer than ", CommandList::MostBytes >> 20U, u" MB.");
    return list;
  }
  const auto foreign = std::find_if_not(bytes.begin(), bytes.end(), IsTextByte);
  if (foreign != bytes.end()) {
    const auto line = static_cast<std::size_t>(1 + std::count(bytes.begin(), foreign, '\n'));
    list.Complaint = Numbered(u"Line ", line, u" is no text.");
    return list;
  }
  if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
  std::size_t firstBad = 0;
  std::size_t bad = 0;
  std::size_t beyond = 0;
  ForEachLine(bytes, [&](std::string_view line, std::size_t number) {
    if (IsRemark(line) || beyond > 0) return;
    auto command = ReadCommand(line);
    if (!command) {
      if (++bad == 1) firstBad = number;
    } else if (list.Commands.size() == KnownCommand::Most) {
      beyond = number;
    } else {
      list.Commands.push_back(std::move(*command));
    }
  });
  if (beyond > 0) {
    list.Complaint = Numbered(u"A list has ", KnownCommand::Most, u" commands at most, and line ");
    list.Complaint += Numbered(u"", beyond, u" is one more.");
  } else if (bad > 0) {
    list.Complaint = Numbered(u"Line ", firstBad, u" is no command");
    if (bad > 1) list.Complaint += Numbered(u", and ", bad - 1, bad == 2 ? u" other is none" : u" others are none");
    list.Complaint += u'.';
  }
  return list;
}

} // namespace portico::completion
