#pragma once

#include "document/entities/CDataEntity.h"
#include "document/entities/CDataSelection.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/Event.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace portico::test {

/// What `CDataFIFO` must do, by walks over a plain list that ask one entity after the other.
class NaiveFIFO final : public IIteratableObject,
                        public ISelectableObject,
                        public std::enable_shared_from_this<NaiveFIFO> {
public:
  using EntityEvent = Event<const Ref<IDataEntity>&, std::int64_t>;
  EntityEvent MaximumCountExceded;
  EntityEvent OnAdd;
  EntityEvent OnRemove;

  StringView ClassName() const override { return u"NaiveFIFO"; }

  std::int32_t MaximumCount() const { return m_maximumCount; }
  void MaximumCount(std::int32_t newValue) { m_maximumCount = newValue; }
  void Initialize(std::int32_t MaxCount) {
    if (MaxCount < 0) Fail(5);
    m_maximumCount = MaxCount;
    m_items.clear();
    Select(End(), End());
  }
  void Enqueue(const Ref<IDataEntity>& DataEntity) {
    if (!DataEntity) return;
    AddItem(m_items.size(), DataEntity);
    OnAdd(DataEntity, DataIndexOfEntity(DataEntity));
    if (m_maximumCount == 0) return;
    while (Count() > m_maximumCount) MaximumCountExceded(RemoveEntityAtIndex(1, false), 0);
  }
  Ref<IDataEntity> Dequeue() { return RemoveEntityAtIndex(1, true); }
  Ref<IDataEntity> Peek() const { return At(1); }
  void SelectAllData() { Select(StartOfObject(), EndOfObject()); }
  void SelectData(const Ref<IPosition>& Start, const Ref<IPosition>& EndPosition) {
    if (!IsPositionInFIFO(Start) || !IsPositionInFIFO(EndPosition)) Fail(5);
    if (ComparePositions(Start, EndPosition) == 2) Fail(5);
    Select(Start, EndPosition);
  }
  Ref<NaiveFIFO> CopyData(const Ref<IIterator>& Iterator);
  void MergeData(const Ref<IIterator>& Iterator);
  Ref<IDataEntity> EntityAtDataIndex(std::int64_t Index) const;
  void DeleteData();
  void Clear() {
    while (Count() > 0) Dequeue();
  }

  Ref<IPosition> NextPosition(const Ref<IPosition>& Index) const override {
    const std::int64_t i = IndexOfPosition(Index);
    if (i >= Count()) return End();
    return At(i + 1)->Position();
  }
  Value Item(const Ref<IPosition>& Index) const override {
    if (!IsPositionInFIFO(Index)) Fail(5);
    const auto position = Cast<CDataPosition>(Index);
    if (position->IsLast() && Count() > 0) Fail(91);
    return position->DataEntity();
  }
  Ref<IPosition> StartOfObject() const override { return Count() == 0 ? Ref<IPosition>(End()) : At(1)->Position(); }
  Ref<IPosition> EndOfObject() const override { return End(); }
  Ref<IPosition> StartOfSelection() const override { return m_selection->StartingPosition(); }
  Ref<IPosition> EndOfSelection() const override { return m_selection->EndingPosition(); }
  bool IsSelectionEmpty() const override { return m_selection->IsEmpty(); }

private:
  std::int32_t IIteratableObject_Count() const override { return static_cast<std::int32_t>(m_items.size()); }
  std::int32_t IIteratableObject_ComparePositions(const Ref<IPosition>& Position1,
                                                  const Ref<IPosition>& Position2) const override;

  struct Keyed {
    Ref<IDataEntity> Entity;
    String Key;
  };

  [[noreturn]] static void Fail(std::int32_t number) { HuntERR::RaiseStandard(number); }
  static Ref<CDataPosition> End() {
    auto position = New<CDataPosition>();
    position->Initialize({}, {});
    return position;
  }
  void Select(const Ref<IPosition>& start, const Ref<IPosition>& end) {
    m_selection = New<CDataSelection>();
    m_selection->Initialize(Cast<CDataPosition>(start), Cast<CDataPosition>(end));
  }
  Ref<IDataEntity> At(std::int64_t index) const {
    if (index < 1 || index > Count()) Fail(5);
    return m_items[static_cast<std::size_t>(index - 1)].Entity;
  }
  void AddItem(std::size_t at, const Ref<IDataEntity>& entity);
  std::int64_t IndexOf(const Ref<IDataEntity>& entity) const {
    for (std::int64_t i = 1; i <= Count(); ++i) {
      const auto held = At(i);
      if (held->CompareToMe(entity) == 0) return i;
    }
    return 0;
  }
  std::int64_t IndexOfPosition(const Ref<IPosition>& Position) const {
    const auto position = Cast<CDataPosition>(Position);
    return position->IsLast() ? Count() + 1 : IndexOf(position->DataEntity());
  }
  bool IsPositionInFIFO(const Ref<IPosition>& Position) const {
    const auto position = Cast<CDataPosition>(Position);
    return position->IsLast() || IndexOf(position->DataEntity()) != 0;
  }
  std::int64_t DataIndexOfEntity(const Ref<IDataEntity>& entity) const;
  Ref<IDataEntity> RemoveEntityAtIndex(std::int64_t index, bool raiseEvent);
  void InsertDataEntity(const Ref<IDataEntity>& source);

  std::int32_t m_maximumCount = -1;
  std::vector<Keyed> m_items;
  Ref<CDataSelection> m_selection;
};

} // namespace portico::test
