#pragma once

#include "framework/ChunkList.h"

#include <concepts>

namespace portico {

/// An ordered sequence whose items have lengths, found by position or by the sum of the lengths in front of them.
/// Positions count from 0. Every operation costs the logarithm of the count, or less.
///
/// An item that wants to be found from itself keeps its chunk: whenever it comes to rest in one, `SetHome(T&,
/// Chunk<T>*)` is called if it exists.
template <class T>
class SummedSequence {
public:
  std::size_t Count() const { return m_count; }
  std::int64_t Total() const { return m_total; }

  T& operator[](std::size_t at) {
    const Place place = Locate(at);
    return m_chunks[place.Chunk].Items[place.Offset];
  }
  const T& operator[](std::size_t at) const {
    const Place place = Locate(at);
    return m_chunks[place.Chunk].Items[place.Offset];
  }
  std::int64_t LengthAt(std::size_t at) const {
    const Place place = Locate(at);
    return m_chunks[place.Chunk].Lengths[place.Offset];
  }

  void SetLength(std::size_t at, std::int64_t length) {
    const Place place = Locate(at);
    std::int64_t& held = m_chunks[place.Chunk].Lengths[place.Offset];
    Sum(place.Chunk, 0, length - std::exchange(held, length));
  }

  /// `at` is at most `Count()`.
  void Insert(std::size_t at, T item, std::int64_t length) {
    const Place place = MakeRoom(at);
    Chunk<T>& chunk = m_chunks[place.Chunk];
    SettleIn(item, &chunk);
    const auto offset = static_cast<std::ptrdiff_t>(place.Offset);
    chunk.Items.insert(chunk.Items.begin() + offset, std::move(item));
    chunk.Lengths.insert(chunk.Lengths.begin() + offset, length);
    Sum(place.Chunk, 1, length);
  }

  T Remove(std::size_t at) {
    const Place place = Locate(at);
    Chunk<T>& chunk = m_chunks[place.Chunk];
    T item = std::move(chunk.Items[place.Offset]);
    const std::int64_t length = chunk.Lengths[place.Offset];
    const auto offset = static_cast<std::ptrdiff_t>(place.Offset);
    chunk.Items.erase(chunk.Items.begin() + offset);
    chunk.Lengths.erase(chunk.Lengths.begin() + offset);
    Sum(place.Chunk, -1, -length);
    if (m_chunks.Size() > SparseFrom && m_chunks.Size() * (Chunk<T>::Capacity / 8) > m_count) m_chunks.Repack();
    return item;
  }

  /// The lengths of all items in front of a position, which is at most `Count()`.
  std::int64_t SumBefore(std::size_t at) const {
    if (at == m_count) return m_total;
    const Place place = Locate(at);
    std::int64_t sum = m_chunks.Sums().SumBefore(place.Chunk);
    for (std::size_t i = 0; i < place.Offset; ++i) sum += m_chunks[place.Chunk].Lengths[i];
    return sum;
  }

  /// The first item at which the running total exceeds `sum`, which is not negative; `Count()` if there is none.
  std::size_t FindSum(std::int64_t sum) const {
    if (sum >= m_total) return m_count;
    const std::size_t index = m_chunks.Sums().Find(sum);
    std::size_t at = FirstOf(m_chunks[index]);
    for (const std::int64_t length : m_chunks[index].Lengths) {
      if (length > sum) break;
      sum -= length;
      ++at;
    }
    return at;
  }

  /// The position of the item of a chunk that `is` the one looked for.
  template <std::predicate<const T&> Predicate>
  std::size_t PositionIn(const Chunk<T>& home, Predicate is) const {
    std::size_t at = FirstOf(home);
    for (const T& item : home.Items) {
      if (is(item)) break;
      ++at;
    }
    return at;
  }

private:
  static constexpr std::size_t SparseFrom = 8;

  struct Place {
    std::size_t Chunk;
    std::size_t Offset;
  };

  Place Locate(std::size_t at) const {
    auto rest = static_cast<std::int64_t>(at);
    const std::size_t index = m_chunks.Counts().Find(rest);
    return {index, static_cast<std::size_t>(rest)};
  }

  std::size_t FirstOf(const Chunk<T>& chunk) const {
    return static_cast<std::size_t>(m_chunks.Counts().SumBefore(chunk.Index));
  }

  Place MakeRoom(std::size_t at) {
    if (at == m_count) {
      const std::size_t size = m_chunks.Size();
      if (size == 0 || m_chunks[size - 1].Items.size() == Chunk<T>::Capacity) {
        m_chunks.Append(std::make_unique<Chunk<T>>());
      }
      return {m_chunks.Size() - 1, m_chunks[m_chunks.Size() - 1].Items.size()};
    }
    const Place place = Locate(at);
    if (m_chunks[place.Chunk].Items.size() < Chunk<T>::Capacity) return place;
    m_chunks.Split(place.Chunk);
    return Locate(at);
  }

  void Sum(std::size_t chunk, std::int64_t count, std::int64_t length) {
    m_count += static_cast<std::size_t>(count);
    m_total += length;
    m_chunks.Sum(chunk, count, length);
  }

  ChunkList<T> m_chunks;
  std::size_t m_count = 0;
  std::int64_t m_total = 0;
};

} // namespace portico
