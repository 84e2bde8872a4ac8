#pragma once

#include "completion/KnownCommand.h"
#include "scpi/Mnemonic.h"
#include "scpi/UnitParser.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace portico::completion {

/// The commands that are known, from several sources, as a tree of their headers' nodes.
class CommandTree {
public:
  static constexpr std::size_t MostNodes = 100'000; ///< what does not fit is left out
  /// A rank that no source has.
  static constexpr std::size_t NoRank = std::numeric_limits<std::size_t>::max();

  /// What ends at a node. The rank is that of the first source that told of it; 0 is the source that was added first.
  struct Leaf {
    std::size_t Rank = NoRank;
  };
  struct Node {
    std::size_t Number = 0; ///< in the order in which they came
    scpi::PatternNode Pattern;
    scpi::Mnemonic Keyword{""};
    std::size_t Below = NoRank; ///< the lowest rank of what ends below it
    Leaf Command;
    Leaf Query;
    /// The nodes below, by their short and their long form.
    std::map<std::string, std::vector<Node*>, std::less<>> ByName;
    std::vector<Node*> Optional; ///< those of them that may be left out
  };
  /// Where one may stand after some nodes of a header: behind each of these, those that may be left out included.
  using Places = std::vector<const Node*>;

  CommandTree() = default;
  CommandTree(const CommandTree&) = delete;
  CommandTree& operator=(const CommandTree&) = delete;

  /// Adds a source. Those that were added before are preferred: a header that they have, written with all its nodes and
  /// with as few as may be, is not taken again, but gets the parameters if they told none.
  void Add(std::span<const KnownCommand> source);

  Places Root() const { return Behind(m_nodes.front()); }
  /// Where one stands right behind a node, or nodes.
  static Places Behind(const Node& node);
  /// Where one stands behind a further node, as it was typed; nowhere if there is none like it.
  static Places Behind(const Places& places, const scpi::HeaderNode& typed);
  /// What is known of the parameters of a leaf of this tree.
  const std::vector<Choices>& ParametersOf(const Leaf& leaf) const;

private:
  void Add(const KnownCommand& command, std::size_t rank);
  void Enter(const scpi::HeaderPattern& header, Leaf Node::*leaf, std::size_t rank);
  Places Find(const scpi::HeaderPattern& header, bool shortest) const;
  Node* Child(Node& parent, const scpi::PatternNode& pattern);

  std::deque<Node> m_nodes{1}; ///< the first is the root
  std::unordered_map<const Leaf*, std::vector<Choices>> m_parameters;
  std::size_t m_sources = 0;
};

} // namespace portico::completion
