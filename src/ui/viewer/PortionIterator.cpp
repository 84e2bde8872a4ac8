#include "ui/viewer/PortionIterator.h"

#include "document/entities/IDataEntity.h"

namespace portico {
namespace {

// A few milliseconds of showing, so that windows go on answering.
constexpr std::int64_t MostEntities = 500;
constexpr std::int64_t MostBytes = std::int64_t{256} * 1024;

} // namespace

void PortionIterator::Attach(const Ref<IIteratableObject>& Object) {
  m_all->Attach(Object);
  m_object = Object;
  m_yielded = 0;
}

Value PortionIterator::FirstItem() {
  m_entities = 0;
  m_bytes = 0;
  m_isFull = false;
  return Take(m_yielded == 0 ? m_all->FirstItem() : m_all->CurrentItem());
}

Value PortionIterator::CurrentItem() const { return IsDone() ? Value(Ref<IDataEntity>()) : m_all->CurrentItem(); }

Value PortionIterator::NextItem() {
  Value next = m_all->NextItem();
  m_isFull = m_entities >= MostEntities || m_bytes >= MostBytes;
  return IsDone() ? CurrentItem() : Take(std::move(next));
}

double PortionIterator::Share() const {
  return IsLast() ? 1 : static_cast<double>(m_yielded) / static_cast<double>(m_object->Count());
}

Value PortionIterator::Take(Value item) {
  if (const auto entity = item.ToObject<IDataEntity>()) {
    ++m_yielded;
    ++m_entities;
    m_bytes += entity->DataLength();
  }
  return item;
}

} // namespace portico
