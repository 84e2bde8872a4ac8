#pragma once

#include "framework/containers/SumTree.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace portico {

/// Items of a sequence that stand together, with their lengths, and whose they are.
template <class T, class Owner = void>
struct Chunk final : SumTree::Node {
  static constexpr std::size_t Capacity = 32; // an item is sought in its chunk from the first on

  explicit Chunk(Owner* owner) : OwnedBy(owner) {}

  Owner* OwnedBy;
  std::vector<T> Items;
  std::vector<std::int32_t> Lengths;
};

/// The chunks of a long sequence, split when they are full and joined when they are sparse.
template <class T, class Owner>
class Chunks {
public:
  using Measure = SumTree::Measure;
  using Home = Chunk<T, Owner>;

  explicit Chunks(Owner* owner) : m_owner(owner) {}

  /// Where an item stands.
  struct Place {
    typename Chunks::Home* Home;
    std::size_t Offset;
  };

  std::int64_t Total(Measure measure) const { return m_tree.Total(measure); }
  std::int64_t SumBefore(Measure measure, const Home& chunk) const { return m_tree.SumBefore(measure, chunk); }
  /// The first chunk at which the running total exceeds `rest`, which is below the total and loses what is in front.
  Home* Find(Measure measure, std::int64_t& rest) const { return static_cast<Home*>(m_tree.Find(measure, rest)); }
  /// Of the item at a position below the count.
  Place Locate(std::size_t at) const {
    auto rest = static_cast<std::int64_t>(at);
    auto* home = Find(Measure::Count, rest);
    return {home, static_cast<std::size_t>(rest)};
  }

  /// Takes note of what has come into a chunk or left it.
  void Add(const Home& chunk, std::int64_t count, std::int64_t length) { m_tree.Add(chunk, count, length); }
  void Clear() { m_tree.Clear(); }

  /// Where an item can be put in at a position, which is at most the count.
  Place MakeRoom(std::size_t at) {
    if (static_cast<std::int64_t>(at) == Total(Measure::Count)) {
      auto* last = static_cast<Home*>(m_tree.Last());
      if (last == nullptr || last->Items.size() == Home::Capacity) last = NewBehind(last);
      return {last, last->Items.size()};
    }
    const Place place = Locate(at);
    if (place.Home->Items.size() < Home::Capacity) return place;
    constexpr std::size_t half = Home::Capacity / 2;
    Home* tail = NewBehind(place.Home);
    MoveTail(*place.Home, half, *tail);
    return place.Offset < half ? place : Place{tail, place.Offset - half};
  }

  /// After a removal: an empty chunk goes, a sparse one takes in the next if the two fill no more than half of one.
  void Tidy(Home& chunk) {
    if (chunk.Items.empty()) {
      m_tree.Erase(chunk);
      return;
    }
    if (chunk.Items.size() >= Home::Capacity / 4) return;
    auto* next = static_cast<Home*>(SumTree::Neighbour(chunk));
    if (next == nullptr || chunk.Items.size() + next->Items.size() > Home::Capacity / 2) return;
    MoveTail(*next, 0, chunk);
    m_tree.Erase(*next);
  }

  /// Tells an item where it comes to rest, if it wants to know.
  static void SettleIn(T& item, Home* chunk) {
    if constexpr (requires { SetHome(item, chunk); }) SetHome(item, chunk);
  }

private:
  Home* NewBehind(const Home* previous) {
    auto chunk = std::make_unique<Home>(m_owner);
    Home* made = chunk.get();
    m_tree.InsertBehind(previous, std::move(chunk));
    return made;
  }

  void MoveTail(Home& from, std::size_t first, Home& to) {
    std::int64_t length = 0;
    for (std::size_t i = first; i < from.Items.size(); ++i) {
      SettleIn(from.Items[i], &to);
      to.Items.push_back(std::move(from.Items[i]));
      to.Lengths.push_back(from.Lengths[i]);
      length += from.Lengths[i];
    }
    const auto count = static_cast<std::int64_t>(from.Items.size() - first);
    from.Items.erase(from.Items.begin() + static_cast<std::ptrdiff_t>(first), from.Items.end());
    from.Lengths.resize(first);
    m_tree.Add(from, -count, -length);
    m_tree.Add(to, count, length);
  }

  Owner* m_owner;
  SumTree m_tree; // its leaves are chunks
};

} // namespace portico
