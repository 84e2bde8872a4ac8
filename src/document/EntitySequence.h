#pragma once

#include "document/IDataEntity.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace portico {

/// The entities of a FIFO in their order; positions count from 1. Each is kept under a key that is unique without
/// regard to case and stays what it was when the entity came. An absent position raises 5, a key that is present 457.
///
/// Entities are found by `CompareToMe` of those that are held, from the first on: the first that answers 0 is meant.
class EntitySequence {
public:
  std::int64_t Count() const { return static_cast<std::int64_t>(m_slots.size()); }
  const Ref<IDataEntity>& Item(std::int64_t position) const;
  void Add(const Ref<IDataEntity>& entity, const String& key);
  void InsertBefore(std::int64_t position, const Ref<IDataEntity>& entity, const String& key);
  Ref<IDataEntity> Remove(std::int64_t position);
  void Clear() { m_slots.clear(); }

  /// 0 for an absent entity.
  std::int64_t PositionOf(const Ref<IDataEntity>& entity) const;
  bool Contains(const Ref<IDataEntity>& entity) const { return PositionOf(entity) != 0; }
  /// The length of all data in front of an entity, or of all there is.
  struct Found {
    std::int64_t DataIndex;
    bool Present;
  };
  Found FindData(const Ref<IDataEntity>& entity) const;
  /// The first entity at which the running total of the lengths exceeds the index, or nothing.
  Ref<IDataEntity> AtDataIndex(std::int64_t index) const;

private:
  struct Slot {
    Ref<IDataEntity> Entity;
    String Key;
  };

  std::size_t Checked(std::int64_t position) const;
  void Insert(std::size_t at, const Ref<IDataEntity>& entity, const String& key);

  std::vector<Slot> m_slots;
};

} // namespace portico
