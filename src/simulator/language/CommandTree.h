#pragma once

#include "scpi/HeaderPattern.h"
#include "scpi/Mnemonic.h"
#include "simulator/language/Call.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace portico::simulator {

/// One row of a table of commands: what it is called, who carries it out, and how many parameters it takes.
///
/// The pattern is written as HeaderPattern reads it, with a question mark behind that of a query.
template <class Owner>
struct Command {
  std::string_view Pattern;
  void (Owner::*Handler)(const Call&);
  std::size_t MinimumParameters = 0;
  std::size_t MaximumParameters = 0;
};

/// The commands of an instrument, found by their headers.
class CommandTree {
public:
  /// Adds a table whose handlers are members of `owner`, which must outlive the tree's use.
  template <class Owner, std::size_t Size>
  void Add(const Command<Owner> (&table)[Size], Owner& owner) {
    for (const Command<Owner>& command : table) {
      Insert(command.Pattern, {[&owner, handler = command.Handler](const Call& call) { (owner.*handler)(call); },
                               command.MinimumParameters, command.MaximumParameters});
    }
  }

  /// Finds the unit's command, checks its suffixes and the number of its parameters, and calls its handler.
  /// Throws ScpiError.
  void Invoke(const scpi::Unit& unit) const;

  /// All headers as `SYSTem:HELP:HEADers?` tells them: each on a line that ends in a line feed, from the root in the
  /// standard's notation, with `/nquery/` behind what is a command alone and `?/qonly/` behind what is a query alone.
  std::string Headers() const;

private:
  struct Handler {
    std::function<void(const Call&)> Function;
    std::size_t MinimumParameters;
    std::size_t MaximumParameters;
  };
  /// A node of a header as a command has it.
  struct LeafNode {
    scpi::SuffixRange Suffixes;
    std::optional<std::size_t> Slot; ///< which of the call's suffixes this node's is
  };
  struct Leaf {
    const Handler* Target = nullptr;
    std::vector<LeafNode> Nodes;
  };
  struct Node {
    explicit Node(std::string_view pattern) : Keyword(pattern) {}
    scpi::Mnemonic Keyword;
    std::vector<std::unique_ptr<Node>> Children;
    Leaf Command;
    Leaf Query;
  };

  void Insert(std::string_view pattern, Handler handler);
  void InsertVariants(std::span<const scpi::PatternNode> pattern, Node& node, std::vector<LeafNode>& chosen,
                      std::size_t slot, bool query);
  static Node& Child(Node& parent, std::string_view mnemonic);
  static Suffixes CheckedSuffixes(const scpi::Unit& unit, const Leaf& leaf);
  const Leaf& Find(const scpi::Unit& unit) const;

  /// What a header is good for.
  struct Uses {
    bool Command = false;
    bool Query = false;
  };

  std::deque<Handler> m_handlers;
  std::map<std::string, Uses> m_headers; ///< by their notation
  Node m_root{""};
};

} // namespace portico::simulator
