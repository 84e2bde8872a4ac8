#pragma once

#include "document/entities/EntityIndex.h"

#include <cstdint>
#include <memory>

namespace portico {

class CDataEntity;

/// The entities of a FIFO in their order; positions count from 1. Each is kept under a key, the stamp that it had when
/// it came; keys are unique without regard to case. A position outside the sequence raises `InvalidArgument`,
/// a key that is already present `DuplicateKey`.
///
/// Entities are found by `CompareToMe` of those that are held, from the first on: the first that answers 0 is meant.
/// An index of the current stamps tells which can answer so. It is left aside, and everybody asked in turn, as soon as
/// an entity takes part that is not a `CDataEntity`, not initialised, or has renamed attributes.
class EntitySequence final : private IEntityHolder {
public:
  EntitySequence() = default;
  ~EntitySequence() { Clear(); }
  EntitySequence(const EntitySequence&) = delete;
  EntitySequence& operator=(const EntitySequence&) = delete;

  std::int64_t Count() const { return static_cast<std::int64_t>(m_slots.Count()); }
  const Ref<IDataEntity>& Item(std::int64_t position) const;
  void Add(const Ref<IDataEntity>& entity);
  void InsertBefore(std::int64_t position, const Ref<IDataEntity>& entity);
  Ref<IDataEntity> Remove(std::int64_t position);
  void Clear();

  /// 0 for an absent entity.
  std::int64_t PositionOf(const Ref<IDataEntity>& entity) const;
  bool Contains(const Ref<IDataEntity>& entity) const;

  struct Found {
    std::int64_t DataIndex; // of the entity, or of the end if it is absent
    bool IsPresent;
  };
  Found FindData(const Ref<IDataEntity>& entity) const;

  /// The slot that answers for an entity, or null if nobody does; no answer at all where everybody has to be asked.
  std::optional<const EntitySlot*> LookUp(const Ref<IDataEntity>& entity) const;
  /// Null stands for the end.
  static bool IsBefore(const EntitySlot* slot, const EntitySlot* other);
  /// Null at the end.
  const EntitySlot* Next(const EntitySlot& slot) const;

  /// The first entity at which the running total of the lengths exceeds the index, or null.
  Ref<IDataEntity> AtDataIndex(std::int64_t index) const;

private:
  using Slots = SummedSequence<std::unique_ptr<EntitySlot>, IEntityHolder>;

  void AttributesChanged(EntitySlot& slot) noexcept override;
  void DataChanged(EntitySlot& slot) override;

  std::size_t Checked(std::int64_t position) const;
  void Insert(std::size_t at, const Ref<IDataEntity>& entity, PackedText key);
  /// All of the search may use the index.
  bool IsIndexed(const Ref<IDataEntity>& entity) const;
  const EntitySlot* FindSlot(const Ref<IDataEntity>& entity) const;
  std::size_t PlaceOf(const EntitySlot& slot) const;
  std::int64_t ScanPosition(const Ref<IDataEntity>& entity) const;

  Slots m_slots{this}; // with the lengths of data; 0 for an entity that has to be asked
  EntityKeys m_keys;
  StrayStamps m_strays;
  std::size_t m_asked = 0; // slots found by asking
};

} // namespace portico
