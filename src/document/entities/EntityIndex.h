#pragma once

#include "document/entities/EntitySlot.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace portico {

/// Hash of a stamp without regard to case. Stamps that follow one another within a second stand side by side, so that
/// work in order stays in the cache.
std::uint32_t HashOfStamp(const PackedText& stamp);

/// The slots of a sequence by their keys, which are unique without regard to case. The slots are the links. A few are
/// searched in turn; more have hashes.
class EntityKeys {
public:
  /// By which these slots are told apart; good until the next `Reserve`.
  std::uint32_t HashOf(const PackedText& key) const { return m_buckets.size() > 1 ? HashOfStamp(key) : 0; }
  /// The hash is that of the key.
  EntitySlot* Find(const PackedText& key, std::uint32_t hash) const;
  /// Makes room, so that `Add` cannot fail.
  void Reserve(std::size_t count);
  /// The slot has its key and the key's hash.
  void Add(EntitySlot& slot) noexcept;
  void Remove(const EntitySlot& slot) noexcept;

private:
  EntitySlot*& BucketOf(std::uint32_t hash) { return m_buckets[hash & (m_buckets.size() - 1)]; }

  std::vector<EntitySlot*> m_buckets; // a power of two; one for the few
};

/// The few slots whose entities have another stamp by now than that of their key, by that stamp, or by having none.
class StrayStamps {
public:
  using Stamp = std::optional<PackedText>;

  bool Empty() const { return m_stamps.empty(); }
  void Add(EntitySlot& slot, const Stamp& stamp);
  void Remove(EntitySlot& slot) noexcept;

  template <class Visit>
  void ForEach(const Stamp& stamp, Visit&& visit) const {
    const auto [first, last] = m_slots.equal_range(stamp);
    for (auto at = first; at != last; ++at) visit(*at->second);
  }

private:
  struct Hash {
    std::size_t operator()(const Stamp& stamp) const { return stamp ? HashOfStamp(*stamp) : 0; }
  };
  std::unordered_multimap<Stamp, EntitySlot*, Hash> m_slots;
  std::unordered_map<const EntitySlot*, Stamp> m_stamps;
};

} // namespace portico
