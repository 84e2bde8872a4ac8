#include "document/entities/NaiveFIFO.h"

namespace portico::test {

Ref<NaiveFIFO> NaiveFIFO::CopyData(const Ref<IIterator>& Iterator) {
  if (!Iterator) Fail(5);
  auto copy = New<NaiveFIFO>();
  copy->Initialize(0);
  Iterator->Attach(Ref<IIteratableObject>(shared_from_this()));
  for (Value item = Iterator->FirstItem(); !Iterator->IsDone(); item = Iterator->NextItem()) {
    copy->Enqueue(item.ToObject<IDataEntity>());
  }
  return copy;
}

void NaiveFIFO::MergeData(const Ref<IIterator>& Iterator) {
  DeleteData();
  for (Value item = Iterator->FirstItem(); !Iterator->IsDone(); item = Iterator->NextItem()) {
    InsertDataEntity(item.ToObject<IDataEntity>());
  }
}

Ref<IDataEntity> NaiveFIFO::EntityAtDataIndex(std::int64_t Index) const {
  std::int64_t total = 0;
  for (std::size_t i = 1; i <= m_items.size(); ++i) {
    const auto entity = At(static_cast<std::int64_t>(i));
    total += entity->DataLength();
    if (total > Index) return entity;
  }
  return {};
}

void NaiveFIFO::DeleteData() {
  if (m_selection->IsEmpty()) return;
  const auto end = m_selection->EndingPosition();
  const std::int64_t i = IndexOfPosition(m_selection->StartingPosition());
  if (end->IsLast()) {
    do {
      RemoveEntityAtIndex(i, true);
    } while (i <= Count());
  } else {
    do {
      RemoveEntityAtIndex(i, true);
    } while (IndexOfPosition(end) != i);
  }
  Select(end, end);
}

std::int32_t NaiveFIFO::IIteratableObject_ComparePositions(const Ref<IPosition>& Position1,
                                                           const Ref<IPosition>& Position2) const {
  if (!Position1 || !Position2) Fail(5);
  if (!IsPositionInFIFO(Position1) || !IsPositionInFIFO(Position2)) Fail(5);
  const std::int64_t first = IndexOfPosition(Position1);
  const std::int64_t second = IndexOfPosition(Position2);
  return first == second ? 0 : first < second ? 1 : 2;
}

void NaiveFIFO::AddItem(std::size_t at, const Ref<IDataEntity>& entity) {
  const String key = entity->TimeStamp();
  if (at > m_items.size()) Fail(5);
  if (std::any_of(m_items.begin(), m_items.end(), [&](const Keyed& item) { return EqualNoCase(item.Key, key); })) {
    Fail(457);
  }
  m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(at), {entity, key});
}

std::int64_t NaiveFIFO::DataIndexOfEntity(const Ref<IDataEntity>& entity) const {
  std::int64_t total = 0;
  for (std::int64_t i = 1; i <= Count(); ++i) {
    const auto held = At(i);
    if (held->CompareToMe(entity) == 0) return total;
    total += held->DataLength();
  }
  if (entity) Fail(51);
  return total;
}

Ref<IDataEntity> NaiveFIFO::RemoveEntityAtIndex(std::int64_t index, bool raiseEvent) {
  const auto entity = At(index);
  const std::int64_t dataIndex = DataIndexOfEntity(entity);
  At(index); // an entity that is asked may have taken it away
  m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(index - 1));
  if (raiseEvent) OnRemove(entity, dataIndex);
  return entity;
}

void NaiveFIFO::InsertDataEntity(const Ref<IDataEntity>& source) {
  if (!source) Fail(5);
  const auto entity = modDataDocument::CreateADataEntity(source->ReadData(), source->DataType(), {});
  const auto end = m_selection->EndingPosition();
  if (end->IsLast()) {
    AddItem(m_items.size(), entity);
  } else {
    AddItem(static_cast<std::size_t>(IndexOfPosition(end) - 1), entity);
  }
  if (m_selection->IsEmpty()) SelectData(entity->Position(), end);
  OnAdd(entity, DataIndexOfEntity(entity));
}

} // namespace portico::test
