#include "configuration/SettingTable.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace portico {

/// Whatever is not as it is with nearly all settings.
struct SettingTable::Deviations final : SharedKeys::Apart, ISettingOwner {
  struct Deviation {
    std::optional<PackedText> Name; // if it is not the key
    CSetting* Object = nullptr;     // which is not owned
  };

  Deviations(SettingTable& table, Listener changed)
      : Table(table), Changed(std::move(changed)), OfEach(table.Count()) {}
  ~Deviations() override {
    for (const Deviation& deviation : OfEach) Release(deviation);
  }

  static void Release(const Deviation& deviation) noexcept {
    if (deviation.Object != nullptr) deviation.Object->m_owner = nullptr;
  }

  std::size_t PlaceOf(const CSetting& setting) const {
    const auto found = std::find_if(OfEach.begin(), OfEach.end(),
                                    [&setting](const Deviation& deviation) { return deviation.Object == &setting; });
    return static_cast<std::size_t>(found - OfEach.begin());
  }

  void TakeOver(const CSetting& setting) override {
    const std::size_t at = PlaceOf(setting);
    PackedText name = Shared(setting.m_name);
    PackedText value = Shared(setting.m_value);
    PackedText washed = Shared(setting.m_washedValue);
    if (!(washed == value)) Table.LetKeepWashed();
    OfEach[at].Name = name == Table.Key(at) ? std::optional<PackedText>() : std::move(name);
    Table.m_block->Values()[at] = std::move(value);
    Table.Wash(at, std::move(washed));
    if (Changed) Changed();
  }

  void Forget(const CSetting& setting) noexcept override {
    OfEach[PlaceOf(setting)].Object = nullptr;
    Table.DropEmpty(); // and this with it, perhaps
  }

  SettingTable& Table;
  Listener Changed;
  std::vector<Deviation> OfEach;
  std::weak_ptr<void> View;
};

SettingTable::BlockPointer SettingTable::NewBlock(std::size_t texts) {
  BlockPointer block(static_cast<Block*>(::operator new(sizeof(Block) + texts * sizeof(PackedText))));
  new (block.get()) Block;
  std::uninitialized_default_construct_n(block->Values(), texts);
  return block;
}

void SettingTable::Destroy(Block& block, std::size_t texts) noexcept {
  std::destroy_n(block.Values(), texts);
  std::destroy_at(&block);
}

void SettingTable::Free() noexcept {
  if (m_block == nullptr) return;
  const std::unique_ptr<Block, FreeMemory> freed(std::exchange(m_block, nullptr));
  const std::size_t texts = RoomFor(freed->Keys.Count()) * (freed->Keys.KeepWashed() ? 2 : 1);
  Destroy(*freed, texts);
}

void SettingTable::Create() {
  BlockPointer block = NewBlock(RoomFor(0));
  std::shared_ptr<void> view;
  Listener changed;
  if (m_block != nullptr && (view = View())) changed = Apart()->Changed;
  Free();
  m_block = block.release();
  if (view) SetView(view, changed);
}

const PackedText& SettingTable::Name(std::size_t at) const {
  const Deviations* apart = Apart();
  return apart != nullptr && apart->OfEach[at].Name ? *apart->OfEach[at].Name : Key(at);
}

CSetting* SettingTable::Object(std::size_t at) const {
  const Deviations* apart = Apart();
  return apart == nullptr ? nullptr : apart->OfEach[at].Object;
}

bool SettingTable::HasRenamed() const {
  if (Apart() == nullptr) return false;
  std::size_t at = 0;
  while (at < Count() && EqualNoCase(Name(at), Key(at))) ++at;
  return at < Count();
}

void SettingTable::Add(const PackedText& key, PackedText value) {
  const std::size_t count = Count();
  const std::size_t texts = Texts();
  const std::size_t room = RoomFor(count);
  const bool washed = m_block->Keys.KeepWashed();
  BlockPointer longer;
  if (RoomFor(count + 1) > room) longer = NewBlock(RoomFor(count + 1) * (washed ? 2 : 1));
  if (Deviations* apart = Apart()) apart->OfEach.resize(count + 1);
  m_block->Keys.Add(key);
  if (longer) {
    std::move(m_block->Values(), m_block->Values() + count, longer->Values());
    if (washed) {
      PackedText* from = m_block->Values() + room;
      std::move(from, from + count, longer->Values() + RoomFor(count + 1));
    }
    longer->Keys = std::move(m_block->Keys);
    const BlockPointer freed(std::exchange(m_block, longer.release()));
    Destroy(*freed, texts);
  }
  if (washed) m_block->Values()[RoomFor(count + 1) + count] = value;
  m_block->Values()[count] = std::move(value);
}

void SettingTable::Add(const PackedText& key, PackedText value, CSetting& object, const Listener& listener) {
  MakeApart(listener); // behind the addition nothing may fail
  const std::size_t at = Count();
  Add(key, std::move(value));
  Show(at, object, listener);
}

void SettingTable::Remove(std::size_t at) {
  const std::size_t count = Count();
  const std::size_t texts = Texts();
  const std::size_t room = RoomFor(count);
  const bool washed = m_block->Keys.KeepWashed();
  BlockPointer shorter = NewBlock(RoomFor(count - 1) * 2);
  SharedKeys keys = m_block->Keys;
  keys.Remove(at);
  if (Deviations* apart = Apart()) {
    const auto deviation = apart->OfEach.begin() + static_cast<std::ptrdiff_t>(at);
    Deviations::Release(*deviation);
    apart->OfEach.erase(deviation);
  }
  const auto move = [at, count](PackedText* from, PackedText* to) {
    std::move(from + at + 1, from + count, std::move(from, from + at, to));
  };
  move(m_block->Values(), shorter->Values());
  if (washed) move(m_block->Values() + room, shorter->Values() + RoomFor(count - 1));
  shorter->Keys = std::move(keys);
  const BlockPointer freed(std::exchange(m_block, shorter.release()));
  Destroy(*freed, texts);
  DropEmpty();
}

void SettingTable::LetKeepWashed() {
  if (m_block->Keys.KeepWashed()) return;
  const std::size_t count = Count();
  const std::size_t room = RoomFor(count);
  BlockPointer longer = NewBlock(2 * room);
  m_block->Keys.LetKeepWashed();
  std::copy_n(m_block->Values(), count, longer->Values() + room);
  std::move(m_block->Values(), m_block->Values() + count, longer->Values());
  longer->Keys = std::move(m_block->Keys);
  const BlockPointer freed(std::exchange(m_block, longer.release()));
  Destroy(*freed, room);
}

void SettingTable::SetValue(std::size_t at, PackedText value) {
  if (value == Value(at)) return;
  LetKeepWashed();
  m_block->Values()[at] = std::move(value);
}

void SettingTable::Wash(std::size_t at, PackedText washed) {
  if (m_block->Keys.KeepWashed()) m_block->Values()[RoomFor(Count()) + at] = std::move(washed);
}

void SettingTable::Show(std::size_t at, CSetting& object, const Listener& listener) {
  Deviations& apart = MakeApart(listener);
  apart.OfEach[at].Object = &object;
  object.m_owner = &apart;
}

std::shared_ptr<void> SettingTable::View() const {
  const Deviations* apart = Apart();
  return apart == nullptr ? nullptr : apart->View.lock();
}

void SettingTable::SetView(const std::shared_ptr<void>& view, const Listener& listener) {
  MakeApart(listener).View = view;
}

SettingTable::Deviations* SettingTable::Apart() const { return static_cast<Deviations*>(m_block->Keys.WhatIsApart()); }

SettingTable::Deviations& SettingTable::MakeApart(const Listener& listener) {
  if (Apart() == nullptr) m_block->Keys.SetApart(std::make_unique<Deviations>(*this, listener));
  return *Apart();
}

/// Where nothing is out of the ordinary any more, the keys are shared again. Out of memory they are not.
void SettingTable::DropEmpty() noexcept try {
  const Deviations* apart = Apart();
  if (apart == nullptr || !apart->View.expired()) return;
  const bool empty =
      std::all_of(apart->OfEach.begin(), apart->OfEach.end(), [](const Deviations::Deviation& deviation) {
        return !deviation.Name && deviation.Object == nullptr;
      });
  if (empty) m_block->Keys.Rejoin();
} catch (const std::bad_alloc&) {
  return;
}

} // namespace portico
