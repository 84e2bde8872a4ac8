#include "document/entities/CDataEntity.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/EntitySequence.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

// Its label is the next one's.
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

// Its label is another operation's.
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

} // namespace portico
