#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace portico {

/// Leaves in an order, each with a count and a length, and the running totals of both: a tree whose branches keep the
/// sums of what is below them. It owns its leaves. Every operation costs the logarithm of their number.
class SumTree {
  struct Branch;

public:
  enum class Measure : std::size_t { Count, Length };

  /// What stands below a branch: another branch, or a leaf, which is derived from it.
  struct Node {
    Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;

  private:
    friend class SumTree;
    Branch* m_parent = nullptr;
  };

  std::int64_t Total(Measure measure) const { return m_totals[static_cast<std::size_t>(measure)]; }

  /// The last leaf, or null in an empty tree.
  Node* Last() const {
    const Branch* branch = &m_root;
    if (branch->Children.empty()) return nullptr;
    for (std::size_t level = 1; level < m_levels; ++level) {
      branch = static_cast<const Branch*>(branch->Children.back().get());
    }
    return branch->Children.back().get();
  }

  /// The first leaf at which the running total exceeds `rest`, which is below the total and loses the sum in front of
  /// that leaf.
  Node* Find(Measure measure, std::int64_t& rest) const {
    const Branch* branch = &m_root;
    for (std::size_t level = 1;; ++level) {
      const std::vector<std::int64_t>& sums = branch->Sums[static_cast<std::size_t>(measure)];
      std::size_t place = 0;
      while (sums[place] <= rest) rest -= sums[place++];
      Node* child = branch->Children[place].get();
      if (level == m_levels) return child;
      branch = static_cast<const Branch*>(child);
    }
  }

  std::int64_t SumBefore(Measure measure, const Node& leaf) const {
    std::int64_t sum = 0;
    const Node* node = &leaf;
    for (const Branch* branch = node->m_parent; branch != nullptr; branch = node->m_parent) {
      const std::vector<std::int64_t>& sums = branch->Sums[static_cast<std::size_t>(measure)];
      for (std::size_t place = 0; branch->Children[place].get() != node; ++place) sum += sums[place];
      node = branch;
    }
    return sum;
  }

  /// Neither is meant twice.
  static bool IsBefore(const Node& leaf, const Node& other) {
    const Node* a = &leaf;
    const Node* b = &other;
    while (a->m_parent != b->m_parent) { // all leaves are on one level
      a = a->m_parent;
      b = b->m_parent;
    }
    for (const auto& child : a->m_parent->Children) {
      if (child.get() == a) return true;
      if (child.get() == b) return false;
    }
    return false;
  }

  /// The next leaf below the same branch, or null.
  static Node* Neighbour(const Node& leaf) {
    const Branch& branch = *leaf.m_parent;
    const std::size_t next = branch.PlaceOf(leaf) + 1;
    return next < branch.Children.size() ? branch.Children[next].get() : nullptr;
  }

  /// A leaf's count and length have changed by that much.
  void Add(const Node& leaf, std::int64_t count, std::int64_t length);
  /// A leaf without count and length; `previous` is null in an empty tree, and only there.
  void InsertBehind(const Node* previous, std::unique_ptr<Node> leaf);
  /// A leaf whose count and length are 0 by now.
  void Erase(const Node& leaf);
  void Clear();

private:
  static constexpr std::size_t Fan = 64;

  struct Branch final : Node {
    std::size_t PlaceOf(const Node& child) const {
      std::size_t place = 0;
      while (Children[place].get() != &child) ++place;
      return place;
    }
    std::vector<std::unique_ptr<Node>> Children;
    std::array<std::vector<std::int64_t>, 2> Sums; // by measure, one for each child
  };

  void InsertInto(Branch* branch, std::size_t place, std::unique_ptr<Node> child);
  void Grow();
  void Shrink();
  /// Moves the children from a place on to a new branch behind this one.
  Branch* Split(Branch& branch, std::size_t first);
  static void MoveTail(Branch& from, std::size_t first, Branch& to);

  Branch m_root;
  std::size_t m_levels = 1; // of branches
  std::array<std::int64_t, 2> m_totals{};
};

} // namespace portico
