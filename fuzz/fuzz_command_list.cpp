#include "completion/CommandList.h"

#include <cstdlib>
#include <string>

using portico::completion::CommandList;
using portico::completion::KnownCommand;
using portico::completion::ReadCommand;
using portico::completion::ReadCommandList;
using portico::completion::TextOf;

// Whatever a file holds, what was taken of it makes a list without a fault that reads back as the same; and what was
// not taken is told.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CommandList list = ReadCommandList({reinterpret_cast<const char*>(data), size});
  std::string lines;
  for (const KnownCommand& command : list.Commands) {
    if (!command.Command && !command.Query) std::abort();
    const std::string line = TextOf(command);
    if (line.size() > KnownCommand::LongestLine) return 0; // it was written shorter
    lines += line + '\n';
  }
  const CommandList again = ReadCommandList(lines);
  if (!again.Complaint.empty() || again.Commands != list.Commands) std::abort();
  if (list.Complaint.find(u'\n') != portico::String::npos) std::abort();
  return 0;
}
