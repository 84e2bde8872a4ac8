#include "simulator/language/CommandTree.h"

#include "simulator/language/ScpiError.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace portico::simulator {

void CommandTree::Invoke(const Unit& unit) const {
  const Leaf& leaf = Find(unit);
  const Suffixes suffixes = CheckedSuffixes(unit, leaf);
  if (unit.Parameters.size() < leaf.Target->MinimumParameters) throw ScpiError(ErrorCode::MissingParameter);
  if (unit.Parameters.size() > leaf.Target->MaximumParameters) throw ScpiError(ErrorCode::ParameterNotAllowed);
  leaf.Target->Function(Call(unit, suffixes));
}

const CommandTree::Leaf& CommandTree::Find(const Unit& unit) const {
  const Node* node = &m_root;
  for (const HeaderNode& part : unit.Header) {
    const auto child = std::find_if(node->Children.begin(), node->Children.end(),
                                    [&part](const auto& each) { return each->Keyword.Matches(part.Name); });
    if (child == node->Children.end()) throw ScpiError(ErrorCode::UndefinedHeader);
    node = child->get();
  }
  const Leaf& leaf = unit.Query ? node->Query : node->Command;
  if (leaf.Target == nullptr) throw ScpiError(ErrorCode::UndefinedHeader);
  return leaf;
}

Suffixes CommandTree::CheckedSuffixes(const Unit& unit, const Leaf& leaf) {
  Suffixes suffixes{};
  for (std::size_t i = 0; i < leaf.Nodes.size(); ++i) {
    const auto given = unit.Header[i].Suffix;
    if (!given) continue;
    if (*given < 1 || *given > leaf.Nodes[i].LargestSuffix) throw ScpiError(ErrorCode::HeaderSuffixOutOfRange);
    if (leaf.Nodes[i].Slot) suffixes[*leaf.Nodes[i].Slot] = *given;
  }
  return suffixes;
}

void CommandTree::Insert(std::string_view pattern, Handler handler) {
  m_handlers.push_back(std::move(handler));
  const bool query = pattern.ends_with('?');
  if (query) pattern.remove_suffix(1);
  std::vector<PatternNode> chosen;
  InsertVariants(ParsePattern(pattern), chosen, query);
}

std::vector<CommandTree::PatternNode> CommandTree::ParsePattern(std::string_view pattern) {
  std::vector<PatternNode> nodes;
  std::size_t slots = 0;
  bool optional = false;
  while (!pattern.empty()) {
    const std::size_t length = std::min(pattern.find_first_of("[]:<"), pattern.size());
    if (length > 0) {
      nodes.push_back({pattern.substr(0, length), optional, 1, std::nullopt});
      pattern.remove_prefix(length);
    } else if (pattern.front() == '<') {
      const std::size_t end = pattern.find('>');
      const std::size_t last = pattern.find('-') + 1;
      std::from_chars(pattern.data() + last, pattern.data() + end, nodes.back().LargestSuffix);
      nodes.back().Slot = slots++;
      pattern.remove_prefix(end + 1);
    } else {
      if (pattern.front() != ':') optional = pattern.front() == '[';
      pattern.remove_prefix(1);
    }
  }
  return nodes;
}

/// Enters the pattern once for each choice of the nodes that may be left out.
void CommandTree::InsertVariants(const std::vector<PatternNode>& pattern, std::vector<PatternNode>& chosen,
                                 bool query) {
  if (pattern.empty()) {
    Node* node = &m_root;
    for (const PatternNode& each : chosen) node = &Child(*node, each.Mnemonic);
    (query ? node->Query : node->Command) = {&m_handlers.back(), chosen};
    return;
  }
  const std::vector<PatternNode> rest(pattern.begin() + 1, pattern.end());
  if (pattern.front().Optional) InsertVariants(rest, chosen, query);
  chosen.push_back(pattern.front());
  InsertVariants(rest, chosen, query);
  chosen.pop_back();
}

CommandTree::Node& CommandTree::Child(Node& parent, std::string_view mnemonic) {
  const Mnemonic wanted(mnemonic);
  const auto found = std::find_if(parent.Children.begin(), parent.Children.end(),
                                  [&wanted](const auto& child) { return child->Keyword.Long() == wanted.Long(); });
  if (found != parent.Children.end()) return **found;
  return *parent.Children.emplace_back(std::make_unique<Node>(mnemonic));
}

} // namespace portico::simulator
