#include "simulator/language/CommandTree.h"

#include "scpi/ScpiError.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {

void CommandTree::Invoke(const scpi::Unit& unit) const {
  const Leaf& leaf = Find(unit);
  const Suffixes suffixes = CheckedSuffixes(unit, leaf);
  if (unit.Parameters.size() < leaf.Target->MinimumParameters) throw scpi::ScpiError(scpi::ErrorCode::MissingParameter);
  if (unit.Parameters.size() > leaf.Target->MaximumParameters) {
    throw scpi::ScpiError(scpi::ErrorCode::ParameterNotAllowed);
  }
  leaf.Target->Function(Call(unit, suffixes));
}

const CommandTree::Leaf& CommandTree::Find(const scpi::Unit& unit) const {
  const Node* node = &m_root;
  for (const scpi::HeaderNode& part : unit.Header) {
    const auto child = std::find_if(node->Children.begin(), node->Children.end(),
                                    [&part](const auto& each) { return each->Keyword.Matches(part.Name); });
    if (child == node->Children.end()) throw scpi::ScpiError(scpi::ErrorCode::UndefinedHeader);
    node = child->get();
  }
  const Leaf& leaf = unit.Query ? node->Query : node->Command;
  if (leaf.Target == nullptr) throw scpi::ScpiError(scpi::ErrorCode::UndefinedHeader);
  return leaf;
}

Suffixes CommandTree::CheckedSuffixes(const scpi::Unit& unit, const Leaf& leaf) {
  Suffixes suffixes{};
  for (std::size_t i = 0; i < leaf.Nodes.size(); ++i) {
    const auto given = unit.Header[i].Suffix;
    if (!given) continue;
    if (!leaf.Nodes[i].Suffixes.Has(*given)) throw scpi::ScpiError(scpi::ErrorCode::HeaderSuffixOutOfRange);
    if (leaf.Nodes[i].Slot) suffixes[*leaf.Nodes[i].Slot] = *given;
  }
  return suffixes;
}

void CommandTree::Insert(std::string_view pattern, Handler handler) {
  m_handlers.push_back(std::move(handler));
  const bool query = pattern.ends_with('?');
  if (query) pattern.remove_suffix(1);
  const auto header = scpi::HeaderPattern::Parse(pattern).value();
  std::vector<LeafNode> chosen;
  InsertVariants(header.Nodes(), m_root, chosen, 0, query);
  Uses& uses = m_headers[header.Text()];
  (query ? uses.Query : uses.Command) = true;
}

/// Enters the rest of a pattern below a node, once for each choice of the nodes that may be left out.
void CommandTree::InsertVariants(std::span<const scpi::PatternNode> pattern, Node& node, std::vector<LeafNode>& chosen,
                                 std::size_t slot, bool query) {
  if (pattern.empty()) {
    (query ? node.Query : node.Command) = {&m_handlers.back(), chosen};
    return;
  }
  const scpi::PatternNode& first = pattern.front();
  const std::size_t nextSlot = slot + (first.Suffixed ? 1 : 0);
  if (first.Optional) InsertVariants(pattern.subspan(1), node, chosen, nextSlot, query);
  chosen.push_back({first.Suffixes, first.Suffixed ? std::optional(slot) : std::nullopt});
  InsertVariants(pattern.subspan(1), Child(node, first.Name), chosen, nextSlot, query);
  chosen.pop_back();
}

std::string CommandTree::Headers() const {
  std::string text;
  for (const auto& [header, uses] : m_headers) {
    text += header;
    if (!uses.Command) text += "?/qonly/";
    if (!uses.Query) text += "/nquery/";
    text += '\n';
  }
  return text;
}

CommandTree::Node& CommandTree::Child(Node& parent, std::string_view mnemonic) {
  const scpi::Mnemonic wanted(mnemonic);
  const auto found = std::find_if(parent.Children.begin(), parent.Children.end(),
                                  [&wanted](const auto& child) { return child->Keyword.Long() == wanted.Long(); });
  if (found != parent.Children.end()) return **found;
  return *parent.Children.emplace_back(std::make_unique<Node>(mnemonic));
}

} // namespace portico::simulator
