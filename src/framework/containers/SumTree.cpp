#include "framework/containers/SumTree.h"

#include <numeric>

namespace portico {

void SumTree::Add(const Node& leaf, std::int64_t count, std::int64_t length) {
  const Node* node = &leaf;
  for (Branch* branch = node->m_parent; branch != nullptr; branch = node->m_parent) {
    const std::size_t place = branch->PlaceOf(*node);
    branch->Sums[0][place] += count;
    branch->Sums[1][place] += length;
    node = branch;
  }
  m_totals[0] += count;
  m_totals[1] += length;
}

void SumTree::InsertBehind(const Node* previous, std::unique_ptr<Node> leaf) {
  Branch* branch = previous == nullptr ? &m_root : previous->m_parent;
  InsertInto(branch, previous == nullptr ? 0 : branch->PlaceOf(*previous) + 1, std::move(leaf));
}

void SumTree::Erase(const Node& leaf) {
  const Node* node = &leaf;
  Branch* branch = nullptr;
  do {
    branch = node->m_parent;
    const auto place = static_cast<std::ptrdiff_t>(branch->PlaceOf(*node));
    branch->Children.erase(branch->Children.begin() + place);
    for (auto& sums : branch->Sums) sums.erase(sums.begin() + place);
    node = branch;
  } while (branch != &m_root && branch->Children.empty());
  Shrink();
}

void SumTree::Clear() {
  m_root.Children.clear();
  for (auto& sums : m_root.Sums) sums.clear();
  m_levels = 1;
  m_totals = {};
}

void SumTree::InsertInto(Branch* branch, std::size_t place, std::unique_ptr<Node> child) {
  if (branch->Children.size() == Fan) {
    if (branch == &m_root) {
      Grow();
      branch = static_cast<Branch*>(m_root.Children.front().get());
    }
    const std::size_t first = place == Fan ? Fan : Fan / 2; // what is only appended to leaves full branches behind
    Branch* next = Split(*branch, first);
    if (place >= first) {
      branch = next;
      place -= first;
    }
  }
  const auto offset = static_cast<std::ptrdiff_t>(place);
  child->m_parent = branch;
  branch->Children.insert(branch->Children.begin() + offset, std::move(child));
  for (auto& sums : branch->Sums) sums.insert(sums.begin() + offset, 0);
}

void SumTree::Grow() {
  auto below = std::make_unique<Branch>();
  MoveTail(m_root, 0, *below);
  below->m_parent = &m_root;
  m_root.Children.push_back(std::move(below));
  for (std::size_t measure = 0; measure < m_totals.size(); ++measure) {
    m_root.Sums[measure].push_back(m_totals[measure]);
  }
  ++m_levels;
}

void SumTree::Shrink() {
  if (m_root.Children.empty()) m_levels = 1;
  while (m_levels > 1 && m_root.Children.size() == 1) {
    const std::unique_ptr<Node> only = std::move(m_root.Children.front());
    m_root.Children.clear();
    for (auto& sums : m_root.Sums) sums.clear();
    MoveTail(static_cast<Branch&>(*only), 0, m_root);
    --m_levels;
  }
}

SumTree::Branch* SumTree::Split(Branch& branch, std::size_t first) {
  auto sibling = std::make_unique<Branch>();
  Branch* moved = sibling.get();
  MoveTail(branch, first, *moved);
  const auto sum = [moved](std::size_t measure) {
    return std::accumulate(moved->Sums[measure].begin(), moved->Sums[measure].end(), std::int64_t{0});
  };
  const std::int64_t count = sum(0);
  const std::int64_t length = sum(1);
  Add(branch, -count, -length);
  InsertInto(branch.m_parent, branch.m_parent->PlaceOf(branch) + 1, std::move(sibling));
  Add(*moved, count, length);
  return moved;
}

void SumTree::MoveTail(Branch& from, std::size_t first, Branch& to) {
  for (std::size_t place = first; place < from.Children.size(); ++place) {
    from.Children[place]->m_parent = &to;
    to.Children.push_back(std::move(from.Children[place]));
    for (std::size_t measure = 0; measure < to.Sums.size(); ++measure) {
      to.Sums[measure].push_back(from.Sums[measure][place]);
    }
  }
  from.Children.resize(first);
  for (auto& sums : from.Sums) sums.resize(first);
}

} // namespace portico
