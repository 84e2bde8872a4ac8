#include "document/entities/EntitySequence.h"

#include "document/entities/CDataEntity.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {
namespace {

auto Is(const EntitySlot& slot) {
  return [&slot](const std::unique_ptr<EntitySlot>& other) { return other.get() == &slot; };
}

/// An entity that has a stamp shares its text.
PackedText KeyOf(const Ref<IDataEntity>& entity) {
  const CDataEntity* known = CDataEntity::From(entity);
  const PackedText* stamp = known == nullptr ? nullptr : known->Stamp();
  return stamp == nullptr ? PackedText(entity->TimeStamp()) : *stamp;
}

} // namespace

std::size_t EntitySequence::Checked(std::int64_t position) const {
  if (position < 1 || position > Count()) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
  return static_cast<std::size_t>(position - 1);
}

const Ref<IDataEntity>& EntitySequence::Item(std::int64_t position) const { return m_slots[Checked(position)]->Entity; }

void EntitySequence::Add(const Ref<IDataEntity>& entity) {
  PackedText key = KeyOf(entity);
  Insert(m_slots.Count(), entity, std::move(key));
}

void EntitySequence::InsertBefore(std::int64_t position, const Ref<IDataEntity>& entity) {
  PackedText key = KeyOf(entity);
  Insert(Checked(position), entity, std::move(key));
}

void EntitySequence::Insert(std::size_t at, const Ref<IDataEntity>& entity, PackedText key) {
  m_keys.Reserve(m_slots.Count() + 1);
  const std::uint32_t hash = m_keys.HashOf(key);
  if (m_keys.Find(key, hash) != nullptr) HuntERR::RaiseStandard(ErrorNumber::DuplicateKey);
  auto made = std::make_unique<EntitySlot>();
  EntitySlot& slot = *made;
  slot.Entity = entity;
  slot.Key = std::move(key);
  slot.KeyHash = hash;
  CDataEntity* known = CDataEntity::From(entity);
  m_slots.Insert(at, std::move(made), known == nullptr ? 0 : known->DataLength());
  m_keys.Add(slot);
  if (known != nullptr && known->IsPlain()) {
    slot.FoundBy = EntitySlot::Kind::ByKey;
  } else {
    slot.FoundBy = EntitySlot::Kind::ByAsking;
    ++m_asked;
  }
  if (known != nullptr) known->Hold(slot);
}

Ref<IDataEntity> EntitySequence::Remove(std::int64_t position) {
  const std::unique_ptr<EntitySlot> slot = m_slots.Remove(Checked(position));
  m_keys.Remove(*slot);
  if (slot->FoundBy == EntitySlot::Kind::ByStamp) m_strays.Remove(*slot);
  if (slot->FoundBy == EntitySlot::Kind::ByAsking) --m_asked;
  if (CDataEntity* known = CDataEntity::From(slot->Entity)) known->Release(*slot);
  return slot->Entity;
}

void EntitySequence::Clear() {
  while (Count() > 0) Remove(Count());
}

void EntitySequence::AttributesChanged(EntitySlot& slot) noexcept {
  using Kind = EntitySlot::Kind;
  const CDataEntity* entity = CDataEntity::From(slot.Entity);
  const PackedText* stamp = entity->Stamp();
  Kind kind = Kind::ByStamp;
  if (!entity->IsPlain()) {
    kind = Kind::ByAsking;
  } else if (stamp != nullptr && *stamp == slot.Key) {
    kind = Kind::ByKey;
  }
  if (kind == Kind::ByKey && slot.FoundBy == Kind::ByKey) return;
  if (slot.FoundBy == Kind::ByStamp) m_strays.Remove(slot);
  if (slot.FoundBy == Kind::ByAsking) --m_asked;
  try {
    if (kind == Kind::ByStamp) m_strays.Add(slot, stamp == nullptr ? StrayStamps::Stamp() : *stamp);
  } catch (const std::bad_alloc&) {
    kind = Kind::ByAsking; // which needs no memory
  }
  if (kind == Kind::ByAsking) ++m_asked;
  slot.FoundBy = kind;
}

void EntitySequence::DataChanged(EntitySlot& slot) { m_slots.SetLength(PlaceOf(slot), slot.Entity->DataLength()); }

std::size_t EntitySequence::PlaceOf(const EntitySlot& slot) const { return m_slots.PositionIn(*slot.Home, Is(slot)); }

bool EntitySequence::IsBefore(const EntitySlot* slot, const EntitySlot* other) {
  if (slot == nullptr || other == nullptr) return slot != nullptr;
  return Slots::IsBefore(*slot->Home, Is(*slot), *other->Home, Is(*other));
}

bool EntitySequence::IsIndexed(const Ref<IDataEntity>& entity) const {
  if (m_asked > 0) return false;
  if (!entity || m_slots.Count() == 0) return true;
  const CDataEntity* known = CDataEntity::From(entity);
  // What is held is plain, or it would have to be asked: a look at its attributes would miss the caches.
  return known != nullptr && (known->SlotIn(*this) != nullptr || known->IsPlain());
}

/// The first slot whose entity equals this one, which is plain like all that are held, or null.
const EntitySlot* EntitySequence::FindSlot(const Ref<IDataEntity>& entity) const {
  if (!entity || m_slots.Count() == 0) return nullptr;
  const CDataEntity* known = CDataEntity::From(entity);
  if (m_strays.Empty()) {
    // All stamps are keys, and so unique: if the entity itself is here, nobody else can be meant.
    if (const EntitySlot* own = known->SlotIn(*this)) return own;
  }
  const PackedText* stamp = known->Stamp();
  const EntitySlot* first = nullptr;
  const auto consider = [&](const EntitySlot& slot) {
    if (slot.Entity->CompareToMe(entity) != 0) return;
    if (IsBefore(&slot, first)) first = &slot;
  };
  if (stamp != nullptr) {
    const EntitySlot* slot = m_keys.Find(*stamp, m_keys.HashOf(*stamp));
    if (slot != nullptr && slot->FoundBy == EntitySlot::Kind::ByKey) consider(*slot);
  }
  if (!m_strays.Empty()) m_strays.ForEach(stamp == nullptr ? StrayStamps::Stamp() : *stamp, consider);
  return first;
}

std::int64_t EntitySequence::PositionOf(const Ref<IDataEntity>& entity) const {
  if (!IsIndexed(entity)) return ScanPosition(entity);
  const EntitySlot* slot = FindSlot(entity);
  return slot == nullptr ? 0 : static_cast<std::int64_t>(PlaceOf(*slot)) + 1;
}

bool EntitySequence::Contains(const Ref<IDataEntity>& entity) const {
  return IsIndexed(entity) ? FindSlot(entity) != nullptr : ScanPosition(entity) != 0;
}

EntitySequence::Found EntitySequence::FindData(const Ref<IDataEntity>& entity) const {
  if (IsIndexed(entity)) {
    const EntitySlot* slot = FindSlot(entity);
    return slot == nullptr ? Found{m_slots.Total(), false} : Found{m_slots.SumBefore(*slot->Home, Is(*slot)), true};
  }
  std::int64_t sum = 0;
  for (std::int64_t position = 1; position <= Count(); ++position) {
    const Ref<IDataEntity> held = Item(position);
    if (held->CompareToMe(entity) == 0) return {sum, true};
    sum += held->DataLength();
  }
  return {sum, false};
}

std::optional<const EntitySlot*> EntitySequence::LookUp(const Ref<IDataEntity>& entity) const {
  if (!IsIndexed(entity)) return {};
  return FindSlot(entity);
}

const EntitySlot* EntitySequence::Next(const EntitySlot& slot) const {
  const std::unique_ptr<EntitySlot>* next = m_slots.Next(*slot.Home, Is(slot));
  return next == nullptr ? nullptr : next->get();
}

Ref<IDataEntity> EntitySequence::AtDataIndex(std::int64_t index) const {
  if (m_asked == 0) {
    const std::size_t at = index < 0 ? 0 : m_slots.FindSum(index);
    return at < m_slots.Count() ? m_slots[at]->Entity : Ref<IDataEntity>();
  }
  std::int64_t sum = 0;
  for (std::int64_t position = 1; position <= Count(); ++position) {
    Ref<IDataEntity> held = Item(position);
    sum += held->DataLength();
    if (sum > index) return held;
  }
  return {};
}

// The sequence may change while foreign entities are asked: nothing of it is kept from one to the next.
std::int64_t EntitySequence::ScanPosition(const Ref<IDataEntity>& entity) const {
  for (std::int64_t position = 1; position <= Count(); ++position) {
    const Ref<IDataEntity> held = Item(position);
    if (held->CompareToMe(entity) == 0) return position;
  }
  return 0;
}

} // namespace portico
