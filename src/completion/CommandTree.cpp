#include "completion/CommandTree.h"

#include <algorithm>

namespace portico::completion {
namespace {

using Leaf = CommandTree::Leaf;
using Node = CommandTree::Node;
using Places = CommandTree::Places;

/// Adds the node, and those below it that are reached by leaving nodes out.
void Stand(const Node& node, Places& places) {
  places.push_back(&node);
  for (const Node* child : node.Optional) Stand(*child, places);
}

bool IsKnown(const Leaf& leaf) { return leaf.Rank != CommandTree::NoRank; }

bool Has(const Places& places, Leaf Node::*leaf) {
  return std::any_of(places.begin(), places.end(), [leaf](const Node* place) { return IsKnown(place->*leaf); });
}

} // namespace

void CommandTree::Add(std::span<const KnownCommand> source) {
  const std::size_t rank = m_sources++;
  for (const KnownCommand& command : source) Add(command, rank);
}

void CommandTree::Add(const KnownCommand& command, std::size_t rank) {
  const auto add = [this, &command, rank](Leaf Node::*leaf, bool hasParameters) {
    if (!Has(Find(command.Header, false), leaf) || !Has(Find(command.Header, true), leaf)) {
      Enter(command.Header, leaf, rank);
    }
    if (!hasParameters || command.Parameters.empty()) return;
    for (const Node* place : Find(command.Header, false)) {
      if (IsKnown(place->*leaf)) m_parameters.try_emplace(&(place->*leaf), command.Parameters);
    }
  };
  if (command.Command) add(&Node::Command, true);
  if (command.Query) add(&Node::Query, !command.Command);
}

void CommandTree::Enter(const scpi::HeaderPattern& header, Leaf Node::*leaf, std::size_t rank) {
  std::vector<Node*> way;
  Node* node = &m_nodes.front();
  for (const scpi::PatternNode& pattern : header.Nodes()) {
    way.push_back(node);
    node = Child(*node, pattern);
    if (node == nullptr) return;
  }
  (node->*leaf).Rank = rank; // none has told of it before
  for (Node* each : way) each->Below = std::min(each->Below, rank);
}

/// The node below that was written like this, which is made if there is none; a null pointer if there is no room for
/// it.
Node* CommandTree::Child(Node& parent, const scpi::PatternNode& pattern) {
  const scpi::Mnemonic keyword(pattern.Name);
  std::vector<Node*>& alike = parent.ByName[keyword.Long()];
  const auto found =
      std::find_if(alike.begin(), alike.end(), [&](const Node* each) { return each->Pattern == pattern; });
  if (found != alike.end()) return *found;
  if (m_nodes.size() > MostNodes) return nullptr;
  Node& node = m_nodes.emplace_back();
  node.Number = m_nodes.size() - 1;
  node.Pattern = pattern;
  node.Keyword = keyword;
  alike.push_back(&node);
  if (keyword.Short() != keyword.Long()) parent.ByName[keyword.Short()].push_back(&node);
  if (pattern.Optional) parent.Optional.push_back(&node);
  return &node;
}

Places CommandTree::Behind(const Node& node) {
  Places places;
  Stand(node, places);
  return places;
}

Places CommandTree::Behind(const Places& places, const scpi::HeaderNode& typed) {
  const std::string name = scpi::Mnemonic(typed.Name).Long();
  const std::uint32_t suffix = typed.Suffix.value_or(1);
  Places behind;
  for (const Node* place : places) {
    const auto found = place->ByName.find(name);
    if (found == place->ByName.end()) continue;
    for (const Node* child : found->second) {
      if (child->Pattern.Suffixes.Has(suffix)) Stand(*child, behind);
    }
  }
  // A node that may be left out may be reached in several ways.
  const auto byNumber = [](const Node* a, const Node* b) { return a->Number < b->Number; };
  std::sort(behind.begin(), behind.end(), byNumber);
  behind.erase(std::unique(behind.begin(), behind.end()), behind.end());
  return behind;
}

/// Where a header leads that is written with all its nodes, or with as few as may be.
Places CommandTree::Find(const scpi::HeaderPattern& header, bool shortest) const {
  Places places = Root();
  for (const scpi::PatternNode& node : header.Nodes()) {
    if (!shortest || !node.Optional) places = Behind(places, {node.Name, node.Suffixes.First});
  }
  return places;
}

const std::vector<Choices>& CommandTree::ParametersOf(const Leaf& leaf) const {
  static const std::vector<Choices> none;
  const auto found = m_parameters.find(&leaf);
  return found == m_parameters.end() ? none : found->second;
}

} // namespace portico::completion
