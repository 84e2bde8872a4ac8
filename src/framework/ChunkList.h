#pragma once

#include "framework/SumTree.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

namespace portico {

/// Items of a long sequence that stand together, with their lengths.
template <class T>
struct Chunk {
  static constexpr std::size_t Capacity = 128;

  std::size_t Index = 0; // in its list
  std::vector<T> Items;
  std::vector<std::int64_t> Lengths;
};

template <class T>
void SettleIn(T& item, Chunk<T>* chunk) {
  if constexpr (requires { SetHome(item, chunk); }) SetHome(item, chunk);
}

/// The chunks of a sequence in their order, with the running totals of their counts and lengths.
template <class T>
class ChunkList {
public:
  std::size_t Size() const { return m_chunks.size(); }
  Chunk<T>& operator[](std::size_t index) const { return *m_chunks[index]; }
  /// By counts, and by lengths.
  const SumTree& Counts() const { return m_counts; }
  const SumTree& Sums() const { return m_sums; }

  /// Takes note of what has come into a chunk or left it.
  void Sum(std::size_t index, std::int64_t count, std::int64_t length) {
    m_counts.Add(index, count);
    m_sums.Add(index, length);
  }

  void Append(std::unique_ptr<Chunk<T>> chunk) {
    chunk->Index = m_chunks.size();
    m_counts.Append(static_cast<std::int64_t>(chunk->Items.size()));
    m_sums.Append(std::accumulate(chunk->Lengths.begin(), chunk->Lengths.end(), std::int64_t{0}));
    m_chunks.push_back(std::move(chunk));
  }

  /// Moves the second half of a full chunk to a new one behind it.
  void Split(std::size_t index) {
    auto tail = std::make_unique<Chunk<T>>();
    MoveTail(*m_chunks[index], Chunk<T>::Capacity / 2, *tail);
    m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(tail));
    Rebuild(std::exchange(m_chunks, {}));
  }

  /// Joins neighbours that fill less than half a chunk.
  void Repack() {
    std::vector<std::unique_ptr<Chunk<T>>> packed;
    for (auto& chunk : m_chunks) {
      if (!packed.empty() && packed.back()->Items.size() + chunk->Items.size() <= Chunk<T>::Capacity / 2) {
        MoveTail(*chunk, 0, *packed.back());
      } else {
        packed.push_back(std::move(chunk));
      }
    }
    m_chunks.clear();
    Rebuild(std::move(packed));
  }

private:
  static void MoveTail(Chunk<T>& from, std::size_t first, Chunk<T>& to) {
    for (std::size_t i = first; i < from.Items.size(); ++i) {
      SettleIn(from.Items[i], &to);
      to.Items.push_back(std::move(from.Items[i]));
      to.Lengths.push_back(from.Lengths[i]);
    }
    from.Items.erase(from.Items.begin() + static_cast<std::ptrdiff_t>(first), from.Items.end());
    from.Lengths.resize(first);
  }

  void Rebuild(std::vector<std::unique_ptr<Chunk<T>>> chunks) {
    m_counts.Clear();
    m_sums.Clear();
    for (auto& chunk : chunks) Append(std::move(chunk));
  }

  std::vector<std::unique_ptr<Chunk<T>>> m_chunks;
  SumTree m_counts;
  SumTree m_sums;
};

} // namespace portico
