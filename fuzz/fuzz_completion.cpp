// Completes any line over any list of commands. The input is the list, an empty line, and the line that is typed; a
// text without an empty line is typed over a list of its own. What is offered must fit: it keeps what was typed, and
// completing it again finds it again.

#include "completion/CommandList.h"
#include "completion/Completion.h"
#include "completion/SentCommands.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

using portico::String;
using portico::completion::Candidate;
using portico::completion::CommandTree;
using portico::completion::Completion;
using portico::completion::SentCommands;

namespace {

constexpr std::string_view Own =
    "[SENSe<1-2>:]VOLTage[:DC]:RANGe[:UPPer] <v>|MINimum|MAXimum\n"
    "CHANnel<1-4>:SCALe?\nOUTPut<n>[:STATe] ON|OFF\n*IDN?\nTEST2:X/nquery/\nSYSTem:ERRor[:NEXT]?\n";

bool Has(const Completion& completion, const String& text) {
  return std::any_of(completion.Candidates.begin(), completion.Candidates.end(),
                     [&text](const Candidate& candidate) { return candidate.Text == text; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = input.find("\n\n");
  const std::string_view list = end == std::string_view::npos ? Own : input.substr(0, end);
  const std::string_view typed = end == std::string_view::npos ? input : input.substr(end + 2);
  String line;
  for (const char byte : typed) line += static_cast<char16_t>(static_cast<unsigned char>(byte));
  SentCommands sent;
  sent.Take(line);
  CommandTree tree;
  tree.Add(portico::completion::ReadCommandList(list).Commands);
  tree.Add(sent.All());

  const Completion completion = portico::completion::Complete(line, tree);
  if (completion.Begin > line.size() || completion.Candidates.size() > Completion::Most) std::abort();
  const String kept = line.substr(completion.Begin);
  for (const Candidate& candidate : completion.Candidates) {
    if (!candidate.Text.starts_with(kept) || candidate.Text.empty() || candidate.Shown.empty()) std::abort();
    // A header that goes on, or is a query, is complete there; any other word is offered again.
    if (candidate.Text.ends_with(u':') || candidate.Text.ends_with(u'?')) continue;
    const Completion again = portico::completion::Complete(line.substr(0, completion.Begin) + candidate.Text, tree);
    if (!Has(again, candidate.Text)) std::abort();
  }
  return 0;
}
