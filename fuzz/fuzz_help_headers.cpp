#include "completion/HelpHeaders.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

using portico::completion::HelpHeaders;
using portico::completion::KnownCommand;
using portico::completion::ReadHelpHeaders;
using portico::completion::TextOf;

// Whatever an instrument answers, no line of it is counted twice, and what was understood is told again, as lines and
// as a block, with the same outcome.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view answer(reinterpret_cast<const char*>(data), size);
  const HelpHeaders headers = ReadHelpHeaders(answer);
  const auto lines = static_cast<std::size_t>(std::count(answer.begin(), answer.end(), '\n')) + 1;
  if (headers.Commands.size() + headers.NotUnderstood > lines) std::abort();
  std::string told;
  for (const KnownCommand& command : headers.Commands) {
    const std::string line = TextOf(command);
    if (line.size() > KnownCommand::LongestLine) return 0; // it was written shorter
    told += line + '\n';
  }
  const std::string length = std::to_string(told.size());
  for (const std::string& form : {told, '#' + std::to_string(length.size()) + length + told}) {
    const HelpHeaders again = ReadHelpHeaders(form);
    if (again.NotUnderstood != 0 || again.Commands != headers.Commands) std::abort();
  }
  return 0;
}
