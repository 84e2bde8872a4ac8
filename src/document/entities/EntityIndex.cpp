#include "document/entities/EntityIndex.h"

#include <algorithm>

namespace portico {

std::uint32_t HashOfStamp(const PackedText& stamp) {
  constexpr std::size_t sequenceDigits = 6; // at least; other runs of digits are shorter
  constexpr std::uint32_t odd = 0x9E3779B1; // spreads neighbours far apart
  std::uint32_t rest = 0;
  std::uint32_t sequence = 0;
  std::uint32_t run = 0;
  std::size_t runLength = 0;
  const auto endRun = [&] {
    if (runLength >= sequenceDigits) {
      sequence += run;
    } else {
      rest = rest * 31 + run;
    }
    run = 0;
    runLength = 0;
  };
  stamp.ForEach([&](char16_t unit) {
    if (unit >= u'0' && unit <= u'9') {
      run = run * 10 + (unit - u'0');
      ++runLength;
    } else {
      endRun();
      rest = rest * 31 + FoldCase(unit);
    }
  });
  endRun();
  return rest * odd + sequence;
}

EntitySlot* EntityKeys::Find(const PackedText& key, std::uint32_t hash) const {
  if (m_buckets.empty()) return nullptr;
  EntitySlot* slot = m_buckets[hash & (m_buckets.size() - 1)];
  while (slot != nullptr && !(slot->KeyHash == hash && EqualNoCase(slot->Key, key))) slot = slot->NextInBucket;
  return slot;
}

void EntityKeys::Reserve(std::size_t count) {
  if (count <= m_buckets.size()) return;
  constexpr std::size_t fewest = 8;
  std::vector<EntitySlot*> buckets(std::max(fewest, m_buckets.size() * 2), nullptr);
  buckets.swap(m_buckets);
  for (EntitySlot* slot : buckets) {
    while (slot != nullptr) {
      EntitySlot* next = slot->NextInBucket;
      EntitySlot*& bucket = BucketOf(slot->KeyHash);
      slot->NextInBucket = std::exchange(bucket, slot);
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
