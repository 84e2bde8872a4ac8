#include "document/entities/CDataFIFO.h"

#include "document/entities/CDataEntity.h"
#include "document/entities/EntitySequence.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {
namespace {

/// Null for the end marker.
const Ref<IDataEntity>& EntityOf(const Ref<IPosition>& position) {
  static const Ref<IDataEntity> nothing;
  const auto at = Cast<CDataPosition>(position);
  return at->IsLast() ? nothing : at->DataEntity();
}

} // namespace

CDataFIFO::CDataFIFO() = default;
CDataFIFO::~CDataFIFO() = default;

std::int32_t CDataFIFO::MaximumCount() const { return m_maximumCount; }
void CDataFIFO::MaximumCount(std::int32_t newValue) { m_maximumCount = newValue; }

void CDataFIFO::Initialize(std::int32_t MaxCount) try {
  HuntERR::Check(MaxCount >= 0, ErrorNumber::InvalidArgument, u"Max count cannot be less than zero.");
  m_maximumCount = MaxCount;
  auto entities = m_entities ? m_entities : std::make_shared<EntitySequence>();
  HuntERR::Check(bool(entities), ErrorNumber::CannotCreate, u"Initialize could not create data entity collection.");
  entities->Clear();
  ResetSelection();
  m_entities = entities;
} catch (...) {
  PassOn(u"CDataFIFO.Initialize(MaxCount)", {MaxCount});
}

void CDataFIFO::Enqueue(const Ref<IDataEntity>& DataEntity) try {
  if (!DataEntity) return;
  CheckAccess();
  const auto self = weak_from_this().lock(); // a handler may let the FIFO go
  m_entities->Add(DataEntity);
  OnAdd(DataEntity, DataIndexOfEntity(DataEntity));
  EnforceMaximumCount();
} catch (...) {
  PassOn(u"CDataFIFO.Enqueue(DataEntity)", {DataEntity});
}

Ref<IDataEntity> CDataFIFO::Dequeue() try {
  CheckAccess();
  return RemoveEntityAtIndex(1, true);
} catch (...) {
  PassOn(u"CDataFIFO.Dequeue()");
}

Ref<IDataEntity> CDataFIFO::Peek() const try {
  CheckAccess();
  return m_entities->Item(1);
} catch (...) {
  PassOn(u"CDataFIFO.Peek()");
}

Ref<CDataFIFO> CDataFIFO::CopyData(const Ref<IIterator>& Iterator) const try {
  CheckAccess();
  HuntERR::Check(bool(Iterator), ErrorNumber::InvalidArgument, u"Iterator cannot be nothing.");
  auto copy = New<CDataFIFO>();
  copy->Initialize(0);
  Iterator->Attach(Ref<IIteratableObject>(std::const_pointer_cast<CDataFIFO>(shared_from_this())));
  for (Value item = Iterator->FirstItem(); !Iterator->IsDone(); item = Iterator->NextItem()) {
    copy->Enqueue(item.ToObject<IDataEntity>());
  }
  return copy;
} catch (...) {
  PassOn(u"CDataFIFO.CopyData(Iterator)", {Iterator});
}

void CDataFIFO::MergeData(const Ref<IIterator>& Iterator) try {
  CheckAccess();
  const auto self = weak_from_this().lock();
  DeleteData();
  for (Value item = Iterator->FirstItem(); !Iterator->IsDone(); item = Iterator->NextItem()) {
    InsertDataEntity(item.ToObject<IDataEntity>());
  }
} catch (...) {
  PassOn(u"CDataFIFO.MergeData(Iterator)", {Iterator});
}

Ref<IDataEntity> CDataFIFO::EntityAtDataIndex(std::int64_t Index) const try {
  CheckAccess();
  return m_entities->AtDataIndex(Index);
} catch (...) {
  PassOn(u"CDataFIFO.EntityAtDataIndex(Index)", {static_cast<double>(Index)});
}

void CDataFIFO::Clear() try {
  CheckAccess();
  const auto self = weak_from_this().lock();
  while (m_entities->Count() > 0) Dequeue();
} catch (...) {
  PassOn(u"CDataFIFO.Clear()");
}

// Its error reports bear a label with an argument that it does not have.
std::int32_t CDataFIFO::Count() const try {
  CheckAccess();
  return static_cast<std::int32_t>(m_entities->Count());
} catch (...) {
  PassOn(u"CDataFIFO.Count(DataEntity)");
}

void CDataFIFO::ForEach(const std::function<void(const IDataEntity&)>& visit) const try {
  CheckAccess();
  for (std::int64_t position = 1; position <= m_entities->Count(); ++position) {
    const Ref<IDataEntity> entity = m_entities->Item(position); // stays, whatever the visitor does
    visit(*entity);
  }
} catch (...) {
  PassOn(u"CDataFIFO.ForEach(visit)");
}

std::int32_t CDataFIFO::IIteratableObject_Count() const try { return Count(); } catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_Count");
}

std::int32_t CDataFIFO::ComparePositions(const Ref<IPosition>& Position1, const Ref<IPosition>& Position2) const try {
  CheckInitialized(bool(m_entities));
  HuntERR::Check(bool(Position1), ErrorNumber::InvalidArgument, u"Position1 cannot be nothing.");
  HuntERR::Check(bool(Position2), ErrorNumber::InvalidArgument, u"Position2 cannot be nothing.");
  const Ref<IDataEntity>& entity1 = EntityOf(Position1);
  const auto slot1 = m_entities->LookUp(entity1);
  HuntERR::Check(slot1 ? !entity1 || *slot1 != nullptr : IsPositionInFIFO(Position1), ErrorNumber::InvalidArgument,
                 u"Position1 is not in FIFO.");
  const Ref<IDataEntity>& entity2 = EntityOf(Position2);
  const auto slot2 = m_entities->LookUp(entity2);
  HuntERR::Check(slot2 ? !entity2 || *slot2 != nullptr : IsPositionInFIFO(Position2), ErrorNumber::InvalidArgument,
                 u"Position2 is not in FIFO.");
  if (slot1 && slot2) { // nobody was asked, so the slots are still there
    if (*slot1 == *slot2) return 0;
    return EntitySequence::IsBefore(*slot1, *slot2) ? 1 : 2;
  }
  const std::int64_t first = IndexOfPosition(Position1);
  const std::int64_t second = IndexOfPosition(Position2);
  if (first == second) return 0;
  return first < second ? 1 : 2;
} catch (...) {
  PassOn(u"CDataFIFO.ComparePositions(Position1,Position2)", {Position1, Position2});
}

std::int32_t CDataFIFO::IIteratableObject_ComparePositions(const Ref<IPosition>& Position1,
                                                           const Ref<IPosition>& Position2) const try {
  return ComparePositions(Position1, Position2);
} catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_ComparePositions(Position1,Position2)", {Position1, Position2});
}

Ref<IPosition> CDataFIFO::NextPosition(const Ref<IPosition>& Index) const try {
  CheckAccess();
  if (const auto slot = m_entities->LookUp(EntityOf(Index)); slot && *slot != nullptr) {
    const EntitySlot* next = m_entities->Next(**slot);
    return next == nullptr ? Ref<IPosition>(CreatePosition()) : Ref<IDataEntity>(next->Entity)->Position();
  }
  const std::int64_t index = IndexOfPosition(Index);
  if (index >= m_entities->Count()) return CreatePosition();
  return m_entities->Item(index + 1)->Position();
} catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_NextPosition(Index)", {Index});
}

Value CDataFIFO::Item(const Ref<IPosition>& Index) const try {
  CheckAccess();
  HuntERR::Check(IsPositionInFIFO(Index), ErrorNumber::InvalidArgument, u"Index is not in FIFO.");
  const auto position = Cast<CDataPosition>(Index);
  if (position->IsLast() && m_entities->Count() > 0) RaiseUnsetReference();
  return position->DataEntity();
} catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_Item(Index)", {Index});
}

// The two ends can be asked for before `Initialize`: an iterator attaches to such a container, and fails when it
// begins.
Ref<IPosition> CDataFIFO::StartOfObject() const try {
  if (!m_entities || m_entities->Count() == 0) return CreatePosition();
  return m_entities->Item(1)->Position();
} catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_StartOfObject()");
}

Ref<IPosition> CDataFIFO::EndOfObject() const try { return CreatePosition(); } catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_EndOfObject()");
}

void CDataFIFO::CheckAccess() const { CheckAccessible(bool(m_entities)); }

void CDataFIFO::EnforceMaximumCount() {
  if (m_maximumCount == 0) return;
  while (m_entities->Count() > m_maximumCount) MaximumCountExceded(RemoveEntityAtIndex(1, false), 0);
}

Ref<IDataEntity> CDataFIFO::RemoveEntityAtIndex(std::int64_t Index, bool RaiseEvent) {
  Ref<IDataEntity> entity = m_entities->Item(Index);
  const std::int64_t dataIndex = DataIndexOfEntity(entity);
  m_entities->Remove(Index);
  if (RaiseEvent) OnRemove(entity, dataIndex);
  return entity;
}

std::int64_t CDataFIFO::IndexOfPosition(const Ref<IPosition>& Position) const {
  const auto position = Cast<CDataPosition>(Position);
  if (position->IsLast()) return m_entities->Count() + 1;
  return m_entities->PositionOf(position->DataEntity());
}

bool CDataFIFO::IsPositionInFIFO(const Ref<IPosition>& Position) const {
  const auto position = Cast<CDataPosition>(Position);
  if (position->IsLast()) return position->DataOffset() == DATA_firstIndex;
  return m_entities->Contains(position->DataEntity());
}

std::int64_t CDataFIFO::DataIndexOfEntity(const Ref<IDataEntity>& DataEntity) const {
  const EntitySequence::Found found = m_entities->FindData(DataEntity);
  if (DataEntity) {
    HuntERR::Check(found.IsPresent, ErrorNumber::InternalState, u"Cannot find a data entity in this container.");
  } else {
    HuntERR::Check(!found.IsPresent, ErrorNumber::InternalState,
                   u"End of container marker was found in this container.");
  }
  return found.DataIndex;
}

// Its error reports bear the label of `SelectData`.
void CDataFIFO::SelectAllData() try {
  CheckAccess();
  Select(StartOfObject(), EndOfObject());
} catch (...) {
  PassOn(u"CDataFIFO.SelectData()");
}

void CDataFIFO::SelectData(const Ref<IPosition>& Start, const Ref<IPosition>& End) try {
  CheckAccess();
  HuntERR::Check(IsPositionInFIFO(Start), ErrorNumber::InvalidArgument, u"Starting position is invalid.");
  HuntERR::Check(IsPositionInFIFO(End), ErrorNumber::InvalidArgument, u"Ending position is invalid.");
  const std::int32_t order = ComparePositions(Start, End);
  HuntERR::Check(order == 0 || order == 1, ErrorNumber::InvalidArgument,
                 u"Starting position cannot be after ending position.");
  Select(Start, End);
} catch (...) {
  PassOn(u"CDataFIFO.SelectData(Start,End)", {Start, End});
}

void CDataFIFO::DeleteData() try {
  CheckAccess();
  if (m_selection->IsEmpty()) return;
  const auto self = weak_from_this().lock();
  const Ref<CDataPosition> end = m_selection->EndingPosition();
  const std::int64_t index = IndexOfPosition(m_selection->StartingPosition());
  bool more = true;
  while (more) {
    RemoveEntityAtIndex(index, true);
    more = end->IsLast() ? index <= m_entities->Count() : IndexOfPosition(end) != index;
  }
  Select(end, end);
} catch (...) {
  PassOn(u"CDataFIFO.DeleteData()");
}

void CDataFIFO::InsertDataEntity(const Ref<IDataEntity>& DataEntity) {
  HuntERR::Check(bool(DataEntity), ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
  const auto entity = modDataDocument::CreateADataEntity(DataEntity->ReadData(), DataEntity->DataType(), {});
  const Ref<CDataPosition> end = m_selection->EndingPosition();
  if (end->IsLast()) {
    m_entities->Add(entity);
  } else {
    m_entities->InsertBefore(IndexOfPosition(end), entity);
  }
  if (m_selection->IsEmpty()) SelectData(entity->Position(), end);
  OnAdd(entity, DataIndexOfEntity(entity));
}

Ref<IPosition> CDataFIFO::StartOfSelection() const try {
  CheckAccess();
  return m_selection->StartingPosition();
} catch (...) {
  PassOn(u"CDataFIFO.ISelectableObject_StartOfSelection");
}

Ref<IPosition> CDataFIFO::EndOfSelection() const try {
  CheckAccess();
  return m_selection->EndingPosition();
} catch (...) {
  PassOn(u"Get CDataFIFO.ISelectableObject_EndOfSelection");
}

// Its error reports bear the label of `Item`.
bool CDataFIFO::IsSelectionEmpty() const try {
  CheckAccess();
  return m_selection->IsEmpty();
} catch (...) {
  PassOn(u"CDataFIFO.IIteratableObject_Item()");
}

void CDataFIFO::ResetSelection() { Select(CreatePosition(), CreatePosition()); }

void CDataFIFO::Select(const Ref<IPosition>& Start, const Ref<IPosition>& End) {
  auto selection = New<CDataSelection>();
  selection->Initialize(Cast<CDataPosition>(Start), Cast<CDataPosition>(End));
  m_selection = selection;
}

Ref<CDataPosition> CDataFIFO::CreatePosition() {
  auto position = New<CDataPosition>();
  position->Initialize({}, {});
  return position;
}

namespace {

Ref<IObject> MakeDataFIFO(const Params& parameters) {
  auto fifo = New<CDataFIFO>();
  fifo->Initialize(parameters[0].ToLong());
  return fifo;
}

} // namespace

const CreatorRow CtorDataFIFO = {
    .Name = u"CtorDataFIFO",
    .Specification = Class::DataContainer,
    .ParamCount = Class::DataContainer.ParamCount,
    .Make = MakeDataFIFO,
};

} // namespace portico
