#pragma once

#include "framework/containers/Chunks.h"

#include <algorithm>
#include <concepts>
#include <numeric>

namespace portico {

/// An ordered sequence whose items have lengths, found by position or by the sum of the lengths in front of them.
/// Positions count from 0. Every operation costs the logarithm of the count, or less. A length is less than 2 to the
/// 31st; their sums need not be.
///
/// An item that wants to be found from itself keeps its chunk: whenever it comes to rest in one, `SetHome(T&,
/// Chunk<T, Owner>*)` is called if it exists. The chunk knows the owner, if one is given.
template <class T, class Owner = void>
class SummedSequence {
public:
  using Home = Chunk<T, Owner>;

  explicit SummedSequence(Owner* owner = nullptr) : m_chunks(owner) {}

  std::size_t Count() const { return static_cast<std::size_t>(m_chunks.Total(Measure::Count)); }
  std::int64_t Total() const { return m_chunks.Total(Measure::Length); }

  void Clear() { m_chunks.Clear(); }

  T& operator[](std::size_t at) {
    const Place place = m_chunks.Locate(at);
    return place.Home->Items[place.Offset];
  }
  const T& operator[](std::size_t at) const {
    const Place place = m_chunks.Locate(at);
    return place.Home->Items[place.Offset];
  }
  std::int64_t LengthAt(std::size_t at) const {
    const Place place = m_chunks.Locate(at);
    return place.Home->Lengths[place.Offset];
  }

  void SetLength(std::size_t at, std::int64_t length) {
    const Place place = m_chunks.Locate(at);
    std::int32_t& held = place.Home->Lengths[place.Offset];
    m_chunks.Add(*place.Home, 0, length - std::exchange(held, static_cast<std::int32_t>(length)));
  }

  /// `at` is at most `Count()`.
  void Insert(std::size_t at, T item, std::int64_t length) {
    const Place place = m_chunks.MakeRoom(at);
    Chunks<T, Owner>::SettleIn(item, place.Home);
    const auto offset = static_cast<std::ptrdiff_t>(place.Offset);
    place.Home->Items.insert(place.Home->Items.begin() + offset, std::move(item));
    place.Home->Lengths.insert(place.Home->Lengths.begin() + offset, static_cast<std::int32_t>(length));
    m_chunks.Add(*place.Home, 1, length);
  }

  T Remove(std::size_t at) {
    const Place place = m_chunks.Locate(at);
    Home& chunk = *place.Home;
    T item = std::move(chunk.Items[place.Offset]);
    const auto offset = static_cast<std::ptrdiff_t>(place.Offset);
    m_chunks.Add(chunk, -1, -chunk.Lengths[place.Offset]);
    chunk.Items.erase(chunk.Items.begin() + offset);
    chunk.Lengths.erase(chunk.Lengths.begin() + offset);
    m_chunks.Tidy(chunk);
    return item;
  }

  /// The lengths of all items in front of a position, which is at most `Count()`.
  std::int64_t SumBefore(std::size_t at) const {
    if (at == Count()) return Total();
    const Place place = m_chunks.Locate(at);
    std::int64_t sum = m_chunks.SumBefore(Measure::Length, *place.Home);
    for (std::size_t i = 0; i < place.Offset; ++i) sum += place.Home->Lengths[i];
    return sum;
  }

  /// The first item at which the running total exceeds `sum`, which is not negative; `Count()` if there is none.
  std::size_t FindSum(std::int64_t sum) const {
    if (sum >= Total()) return Count();
    const Home* home = m_chunks.Find(Measure::Length, sum);
    std::size_t at = FirstOf(*home);
    for (const std::int64_t length : home->Lengths) {
      if (length > sum) break;
      sum -= length;
      ++at;
    }
    return at;
  }

  // An item that knows its chunk is found there by `is`, a predicate that holds for it alone.

  template <std::predicate<const T&> Predicate>
  std::size_t PositionIn(const Home& home, Predicate is) const {
    return FirstOf(home) + OffsetIn(home, is);
  }

  /// The lengths of all items in front of it.
  template <std::predicate<const T&> Predicate>
  std::int64_t SumBefore(const Home& home, Predicate is) const {
    const auto lengths = home.Lengths.begin();
    return std::accumulate(lengths, lengths + static_cast<std::ptrdiff_t>(OffsetIn(home, is)),
                           m_chunks.SumBefore(Measure::Length, home));
  }

  /// The item behind it, or null.
  template <std::predicate<const T&> Predicate>
  const T* Next(const Home& home, Predicate is) const {
    const std::size_t next = OffsetIn(home, is) + 1;
    if (next < home.Items.size()) return &home.Items[next];
    const std::size_t at = FirstOf(home) + next;
    return at < Count() ? &(*this)[at] : nullptr;
  }

  /// The one item stands before the other one.
  template <std::predicate<const T&> Predicate>
  static bool IsBefore(const Home& home, Predicate is, const Home& otherHome, Predicate isOther) {
    if (&home == &otherHome) return OffsetIn(home, is) < OffsetIn(home, isOther);
    return SumTree::IsBefore(home, otherHome);
  }

private:
  using Measure = SumTree::Measure;
  using Place = typename Chunks<T, Owner>::Place;

  template <std::predicate<const T&> Predicate>
  static std::size_t OffsetIn(const Home& home, Predicate is) {
    return static_cast<std::size_t>(std::find_if(home.Items.begin(), home.Items.end(), is) - home.Items.begin());
  }

  std::size_t FirstOf(const Home& chunk) const {
    return static_cast<std::size_t>(m_chunks.SumBefore(Measure::Count, chunk));
  }

  Chunks<T, Owner> m_chunks;
};

} // namespace portico
