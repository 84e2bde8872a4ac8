#include "document/EntitySequence.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"

#include <algorithm>

namespace portico {

std::size_t EntitySequence::Checked(std::int64_t position) const {
  if (position < 1 || position > Count()) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
  return static_cast<std::size_t>(position - 1);
}

const Ref<IDataEntity>& EntitySequence::Item(std::int64_t position) const { return m_slots[Checked(position)].Entity; }

void EntitySequence::Add(const Ref<IDataEntity>& entity, const String& key) { Insert(m_slots.size(), entity, key); }

void EntitySequence::InsertBefore(std::int64_t position, const Ref<IDataEntity>& entity, const String& key) {
  Insert(Checked(position), entity, key);
}

void EntitySequence::Insert(std::size_t at, const Ref<IDataEntity>& entity, const String& key) {
  const bool present =
      std::any_of(m_slots.begin(), m_slots.end(), [&key](const Slot& slot) { return EqualNoCase(slot.Key, key); });
  if (present) HuntERR::RaiseStandard(ErrorNumber::DuplicateKey);
  m_slots.insert(m_slots.begin() + static_cast<std::ptrdiff_t>(at), Slot{entity, key});
}

Ref<IDataEntity> EntitySequence::Remove(std::int64_t position) {
  const auto slot = m_slots.begin() + static_cast<std::ptrdiff_t>(Checked(position));
  Ref<IDataEntity> entity = slot->Entity;
  m_slots.erase(slot);
  return entity;
}

std::int64_t EntitySequence::PositionOf(const Ref<IDataEntity>& entity) const {
  for (std::int64_t position = 1; position <= Count(); ++position) {
    const Ref<IDataEntity> held = Item(position);
    if (held->CompareToMe(entity) == 0) return position;
  }
  return 0;
}

EntitySequence::Found EntitySequence::FindData(const Ref<IDataEntity>& entity) const {
  std::int64_t sum = 0;
  for (std::int64_t position = 1; position <= Count(); ++position) {
    const Ref<IDataEntity> held = Item(position);
    if (held->CompareToMe(entity) == 0) return {sum, true};
    sum += held->DataLength();
  }
  return {sum, false};
}

Ref<IDataEntity> EntitySequence::AtDataIndex(std::int64_t index) const {
  std::int64_t sum = 0;
  for (std::int64_t position = 1; position <= Count(); ++position) {
    const Ref<IDataEntity> held = Item(position);
    sum += held->DataLength();
    if (sum > index) return held;
  }
  return {};
}

} // namespace portico
