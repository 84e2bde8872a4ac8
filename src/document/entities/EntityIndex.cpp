#include "document/entities/EntityIndex.h"

#include <algorithm>

namespace portico {

namespace {

/// Takes a stamp apart into its runs of digits and the rest.
class StampHash {
public:
  void Add(char16_t unit) {
    const std::uint32_t digit = static_cast<std::uint32_t>(unit) - u'0';
    if (digit <= 9) {
      m_run = m_run * 10 + digit;
      ++m_runLength;
    } else {
      EndRun();
      m_rest = m_rest * 31 + FoldCase(unit);
    }
  }
  std::uint32_t End() {
    constexpr std::uint32_t odd = 0x9E3779B1; // spreads neighbours far apart
    EndRun();
    return m_rest * odd + m_sequence;
  }

private:
  void EndRun() {
    constexpr std::size_t sequenceDigits = 6; // at least; other runs of digits are shorter
    if (m_runLength >= sequenceDigits) {
      m_sequence += m_run;
    } else {
      m_rest = m_rest * 31 + m_run;
    }
    m_run = 0;
    m_runLength = 0;
  }

  std::uint32_t m_rest = 0;
  std::uint32_t m_sequence = 0;
  std::uint32_t m_run = 0;
  std::size_t m_runLength = 0;
};

} // namespace

std::uint32_t HashOfStamp(const PackedText& stamp) {
  StampHash hash;
  stamp.ForEach([&hash](char16_t unit) { hash.Add(unit); });
  return hash.End();
}

EntitySlot* EntityKeys::Find(const PackedText& key, std::uint32_t hash) const {
  if (m_buckets.empty()) return nullptr;
  EntitySlot* slot = m_buckets[hash & (m_buckets.size() - 1)];
  while (slot != nullptr && !(slot->KeyHash == hash && EqualNoCase(slot->Key, key))) slot = slot->NextInBucket;
  return slot;
}

void EntityKeys::Reserve(std::size_t count) {
  constexpr std::size_t few = 8;
  if (count <= std::max(few, m_buckets.size()) && !m_buckets.empty()) return;
  const bool hashed = m_buckets.size() > 1;
  std::vector<EntitySlot*> buckets(count <= few ? 1 : std::max(2 * few, m_buckets.size() * 2), nullptr);
  buckets.swap(m_buckets);
  for (EntitySlot* slot : buckets) {
    while (slot != nullptr) {
      EntitySlot* next = slot->NextInBucket;
      if (!hashed) slot->KeyHash = HashOf(slot->Key);
      Add(*slot);
      slot = next;
    }
  }
}

void EntityKeys::Add(EntitySlot& slot) noexcept { slot.NextInBucket = std::exchange(BucketOf(slot.KeyHash), &slot); }

void EntityKeys::Remove(const EntitySlot& slot) noexcept {
  EntitySlot** link = &BucketOf(slot.KeyHash);
  while (*link != &slot) link = &(*link)->NextInBucket;
  *link = slot.NextInBucket;
}

void StrayStamps::Add(EntitySlot& slot, const Stamp& stamp) {
  m_stamps.emplace(&slot, stamp);
  try {
    m_slots.emplace(stamp, &slot);
  } catch (...) {
    m_stamps.erase(&slot);
    throw;
  }
}

void StrayStamps::Remove(EntitySlot& slot) noexcept {
  const auto stamp = m_stamps.find(&slot);
  auto [at, last] = m_slots.equal_range(stamp->second);
  while (at->second != &slot) ++at;
  m_slots.erase(at);
  m_stamps.erase(stamp);
}

} // namespace portico
