#include "simulator/language/CommandTree.h"

#include "simulator/language/ScpiError.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace portico::simulator {

void CommandTree::Invoke(const Unit& unit) const {
  const Leaf& leaf = Find(unit);
  const Suffixes suffixes = CheckedSuffixes(unit, leaf);
  if (unit.parameters.size() < leaf.handler->minimumParameters) throw ScpiError(ErrorCode::MissingParameter);
  if (unit.parameters.size() > leaf.handler->maximumParameters) throw ScpiError(ErrorCode::ParameterNotAllowed);
  leaf.handler->function(Call(unit, suffixes));
}

const CommandTree::Leaf& CommandTree::Find(const Unit& unit) const {
  const Node* node = &m_root;
  for (const HeaderNode& part : unit.header) {
    const auto child = std::find_if(node->children.begin(), node->children.end(),
                                    [&part](const auto& each) { return each->mnemonic.Matches(part.name); });
    if (child == node->children.end()) throw ScpiError(ErrorCode::UndefinedHeader);
    node = child->get();
  }
  const Leaf& leaf = unit.query ? node->query : node->command;
  if (leaf.handler == nullptr) throw ScpiError(ErrorCode::UndefinedHeader);
  return leaf;
}

Suffixes CommandTree::CheckedSuffixes(const Unit& unit, const Leaf& leaf) {
  Suffixes suffixes{};
  for (std::size_t i = 0; i < leaf.nodes.size(); ++i) {
    const auto given = unit.header[i].suffix;
    if (!given) continue;
    if (*given < 1 || *given > leaf.nodes[i].largestSuffix) throw ScpiError(ErrorCode::HeaderSuffixOutOfRange);
    if (leaf.nodes[i].slot) suffixes[*leaf.nodes[i].slot] = *given;
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
      std::from_chars(pattern.data() + last, pattern.data() + end, nodes.back().largestSuffix);
      nodes.back().slot = slots++;
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
    for (const PatternNode& each : chosen) node = &Child(*node, each.mnemonic);
    (query ? node->query : node->command) = {&m_handlers.back(), chosen};
    return;
  }
  const std::vector<PatternNode> rest(pattern.begin() + 1, pattern.end());
  if (pattern.front().optional) InsertVariants(rest, chosen, query);
  chosen.push_back(pattern.front());
  InsertVariants(rest, chosen, query);
  chosen.pop_back();
}

CommandTree::Node& CommandTree::Child(Node& parent, std::string_view mnemonic) {
  const Mnemonic wanted(mnemonic);
  const auto found = std::find_if(parent.children.begin(), parent.children.end(),
                                  [&wanted](const auto& child) { return child->mnemonic.Long() == wanted.Long(); });
  if (found != parent.children.end()) return **found;
  return *parent.children.emplace_back(std::make_unique<Node>(mnemonic));
}

} // namespace portico::simulator
