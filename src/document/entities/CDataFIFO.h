#pragma once

#include "document/entities/CDataSelection.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "framework/objects/Event.h"

#include <functional>
#include <memory>

namespace portico {

class EntitySequence;

/// The document behind the text windows: an ordered container of data entities, keyed by their stamps, with one
/// selection. Readable as a queue, as a sequence with positions, and as a stream of bytes.
///
/// Entities are found by content, never by reference. Every member but `MaximumCount` and `Initialize` raises
/// `NotInitialized` before `Initialize`. An entity whose stamp is already present raises `DuplicateKey`, a position
/// that is not in the container `InvalidArgument`.
///
/// Of the contract alone, asked for by nothing in the program: `MaximumCount`, `SelectAllData`, `CopyData`,
/// `EntityAtDataIndex` and `IsSelectionEmpty`.
class CDataFIFO final : public IIteratableObject,
                        public ISelectableObject,
                        public std::enable_shared_from_this<CDataFIFO> {
public:
  CDataFIFO();
  ~CDataFIFO() override;
  StringView ClassName() const override { return u"CDataFIFO"; }

  /// The entity, and a count of bytes from the start of all data.
  using EntityEvent = Event<const Ref<IDataEntity>&, std::int64_t>;
  /// An entity has been thrown out by the limit; the index is always 0.
  EntityEvent MaximumCountExceded;
  EntityEvent OnAdd;
  EntityEvent OnRemove;

  /// 0 is without limit. A new value acts at the next `Enqueue`.
  std::int32_t MaximumCount() const;
  void MaximumCount(std::int32_t newValue);
  /// A negative count raises `InvalidArgument`.
  void Initialize(std::int32_t MaxCount);
  /// A null entity is ignored, also before `Initialize`.
  void Enqueue(const Ref<IDataEntity>& DataEntity);
  Ref<IDataEntity> Dequeue();
  Ref<IDataEntity> Peek() const;
  void SelectAllData();
  void SelectData(const Ref<IPosition>& Start, const Ref<IPosition>& End);
  /// A new container that shares the entities that the iterator yields.
  Ref<CDataFIFO> CopyData(const Ref<IIterator>& Iterator) const;
  /// Replaces the selection by copies, with new stamps, of what the attached iterator yields.
  void MergeData(const Ref<IIterator>& Iterator);
  /// The entity that holds that byte; null behind the last.
  Ref<IDataEntity> EntityAtDataIndex(std::int64_t Index) const;
  void DeleteData();
  std::int32_t Count() const;
  void Clear();
  std::int32_t ComparePositions(const Ref<IPosition>& Position1, const Ref<IPosition>& Position2) const;
  /// Visits all entities in their order, for who wants no positions, which an iterator makes of each.
  void ForEach(const std::function<void(const IDataEntity&)>& visit) const;

  Ref<IPosition> NextPosition(const Ref<IPosition>& Index) const override;
  Value Item(const Ref<IPosition>& Index) const override;
  Ref<IPosition> StartOfObject() const override;
  Ref<IPosition> EndOfObject() const override;
  Ref<IPosition> StartOfSelection() const override;
  Ref<IPosition> EndOfSelection() const override;
  bool IsSelectionEmpty() const override;

private:
  std::int32_t IIteratableObject_ComparePositions(const Ref<IPosition>& Position1,
                                                  const Ref<IPosition>& Position2) const override;
  std::int32_t IIteratableObject_Count() const override;

  void CheckAccess() const;
  Ref<IDataEntity> RemoveEntityAtIndex(std::int64_t Index, bool RaiseEvent);
  void InsertDataEntity(const Ref<IDataEntity>& DataEntity);
  void EnforceMaximumCount();
  void ResetSelection();
  void Select(const Ref<IPosition>& Start, const Ref<IPosition>& End);
  /// 1-based; behind the last for the end marker, 0 for an absent entity.
  std::int64_t IndexOfPosition(const Ref<IPosition>& Position) const;
  bool IsPositionInFIFO(const Ref<IPosition>& Position) const;
  /// An end marker.
  static Ref<CDataPosition> CreatePosition();
  std::int64_t DataIndexOfEntity(const Ref<IDataEntity>& DataEntity) const;

  std::int32_t m_maximumCount = -1;
  std::shared_ptr<EntitySequence> m_entities; // none until `Initialize`
  Ref<CDataSelection> m_selection;
};

namespace Class {

/// The maximum count.
inline constexpr ClassKey<CDataFIFO, std::int32_t> DataContainer{u"DataContainer"};

} // namespace Class

extern const CreatorRow CtorDataFIFO;

} // namespace portico
