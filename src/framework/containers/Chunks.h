#pragma once

#include "framework/containers/SumTree.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace portico {

/// Items of a sequence that stand together, with their lengths.
template <class T>
struct Chunk final : SumTree::Node {
  static constexpr std::size_t Capacity = 32; // an item is sought in its chunk from the first on

  std::vector<T> Items;
  std::vector<std::int64_t> Lengths;
};

/// The chunks of a long sequence, split when they are full and joined when they are sparse.
template <class T>
class Chunks {
public:
  using Measure = SumTree::Measure;

  /// Where an item stands.
  struct Place {
    Chunk<T>* Home;
    std::size_t Offset;
  };

  std::int64_t Total(Measure measure) const { return m_tree.Total(measure); }
  std::int64_t SumBefore(Measure measure, const Chunk<T>& chunk) const { return m_tree.SumBefore(measure, chunk); }
  /// The first chunk at which the running total exceeds `rest`, which is below the total and loses what is in front.
  Chunk<T>* Find(Measure measure, std::int64_t& rest) const {
    return static_cast<Chunk<T>*>(m_tree.Find(measure, rest));
  }
  /// Of the item at a position below the count.
  Place Locate(std::size_t at) const {
    auto rest = static_cast<std::int64_t>(at);
    auto* home = Find(Measure::Count, rest);
    return {home, static_cast<std::size_t>(rest)};
  }

  /// Takes note of what has come into a chunk or left it.
  void Add(const Chunk<T>& chunk, std::int64_t count, std::int64_t length) { m_tree.Add(chunk, count, length); }
  void Clear() { m_tree.Clear(); }

  /// Where an item can be put in at a position, which is at most the count.
  Place MakeRoom(std::size_t at) {
    if (static_cast<std::int64_t>(at) == Total(Measure::Count)) {
      auto* last = static_cast<Chunk<T>*>(m_tree.Last());
      if (last == nullptr || last->Items.size() == Chunk<T>::Capacity) last = NewBehind(last);
      return {last, last->Items.size()};
    }
    const Place place = Locate(at);
    if (place.Home->Items.size() < Chunk<T>::Capacity) return place;
    constexpr std::size_t half = Chunk<T>::Capacity / 2;
    Chunk<T>* tail = NewBehind(place.Home);
    MoveTail(*place.Home, half, *tail);
    return place.Offset < half ? place : Place{tail, place.Offset - half};
  }

  /// After a removal: an empty chunk goes, a sparse one takes in the next if the two fill no more than half of one.
  void Tidy(Chunk<T>& chunk) {
    if (chunk.Items.empty()) {
      m_tree.Erase(chunk);
      return;
    }
    if (chunk.Items.size() >= Chunk<T>::Capacity / 4) return;
    auto* next = static_cast<Chunk<T>*>(SumTree::Neighbour(chunk));
    if (next == nullptr || chunk.Items.size() + next->Items.size() > Chunk<T>::Capacity / 2) return;
    MoveTail(*next, 0, chunk);
    m_tree.Erase(*next);
  }

  /// Tells an item where it comes to rest, if it wants to know.
  static void SettleIn(T& item, Chunk<T>* chunk) {
    if constexpr (requires { SetHome(item, chunk); }) SetHome(item, chunk);
  }

private:
  Chunk<T>* NewBehind(const Chunk<T>* previous) {
    auto chunk = std::make_unique<Chunk<T>>();
    Chunk<T>* made = chunk.get();
    m_tree.InsertBehind(previous, std::move(chunk));
    return made;
  }

  void MoveTail(Chunk<T>& from, std::size_t first, Chunk<T>& to) {
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

  SumTree m_tree; // its leaves are chunks
};

} // namespace portico
