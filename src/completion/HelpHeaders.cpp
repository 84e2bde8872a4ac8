#include "completion/HelpHeaders.h"

#include "completion/LineReading.h"
#include "scpi/Block.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <utility>

namespace portico::completion {
namespace {

bool IsOneWord(std::string_view line) {
  const auto begin = std::find_if_not(line.begin(), line.end(), scpi::IsWhiteSpace);
  const auto end = std::find_if(begin, line.end(), scpi::IsWhiteSpace);
  return std::all_of(end, line.end(), scpi::IsWhiteSpace);
}

} // namespace

HelpHeaders ReadHelpHeaders(std::string_view answer) {
  HelpHeaders headers;
  bool torn = false;
  if (const auto block = scpi::TakeBlock(answer)) {
    answer = block->Bytes;
    // What begins in front of the break may be another header than it looks.
    torn = !block->Whole && !answer.empty() && answer.back() != '\n';
    if (torn) answer = answer.substr(0, answer.rfind('\n') + 1);
  }
  headers.NotUnderstood = torn ? 1 : 0;
  ForEachLine(answer, [&headers](std::string_view line, std::size_t /*number*/) {
    auto command = ReadCommand(line);
    // An instrument tells no parameters: what has a blank in it is prose.
    if (command && IsOneWord(line) && headers.Commands.size() < KnownCommand::Most) {
      headers.Commands.push_back(std::move(*command));
    } else {
      ++headers.NotUnderstood;
    }
  });
  return headers;
}

} // namespace portico::completion
