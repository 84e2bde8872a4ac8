#pragma once

#include "completion/CommandTree.h"
#include "completion/Completion.h"

#include <string>
#include <string_view>
#include <vector>

namespace portico::test {

using Lines = std::vector<std::string_view>;

/// The commands that the lines of a list are.
inline std::vector<completion::KnownCommand> Commands(const Lines& lines) {
  std::vector<completion::KnownCommand> commands;
  for (const std::string_view line : lines) commands.push_back(completion::ReadCommand(line).value());
  return commands;
}

/// What fits a line, one blank between, each as the whole line that it makes.
inline std::string Offered(StringView line, const completion::CommandTree& tree) {
  const completion::Completion completion = completion::Complete(line, tree);
  std::string offered;
  for (const completion::Candidate& candidate : completion.Candidates) {
    if (!offered.empty()) offered += ' ';
    offered += ToUtf8(String(line.substr(0, completion.Begin)) + candidate.Text);
  }
  return offered;
}

/// The same where one source tells of these commands.
inline std::string Offered(StringView line, const Lines& lines) {
  completion::CommandTree tree;
  tree.Add(Commands(lines));
  return Offered(line, tree);
}

} // namespace portico::test
