#include "configuration/SharedKeys.h"

#include <cstdint>
#include <vector>

namespace portico {

// NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete): the analyzer loses count of the owners.

struct SharedKeys::List {
  std::uint32_t Owners = 1;
  bool KeepWashed = false;
  std::vector<PackedText> Keys;
  SharedKeys Longer;           // the same with the key that came behind them last
  SharedKeys Twin;             // the same whose settings keep washed values, if these do not
  std::unique_ptr<Apart> What; // on a list of one owner
};

SharedKeys::SharedKeys(const SharedKeys& other) noexcept : m_list(other.m_list) {
  if (m_list != nullptr) ++m_list->Owners;
}

SharedKeys::~SharedKeys() {
  if (m_list != nullptr && --m_list->Owners == 0) delete m_list;
}

std::size_t SharedKeys::Count() const { return m_list == nullptr ? 0 : m_list->Keys.size(); }

const PackedText& SharedKeys::operator[](std::size_t at) const { return m_list->Keys[at]; }

bool SharedKeys::KeepWashed() const { return m_list != nullptr && m_list->KeepWashed; }

SharedKeys::Apart* SharedKeys::WhatIsApart() const { return m_list == nullptr ? nullptr : m_list->What.get(); }

SharedKeys& SharedKeys::Next() const {
  static SharedKeys first;
  return m_list == nullptr ? first : m_list->Longer;
}

/// It can be changed on the spot.
bool SharedKeys::IsOwn() const {
  return m_list != nullptr && (m_list->What != nullptr || (Count() > MostShared && m_list->Owners == 1));
}

std::unique_ptr<SharedKeys::List> SharedKeys::Copy() const {
  auto list = std::make_unique<List>();
  list->KeepWashed = KeepWashed();
  list->Keys.reserve(Count() + 1);
  if (m_list != nullptr) list->Keys = m_list->Keys;
  return list;
}

void SharedKeys::Take(std::unique_ptr<List> list) {
  SharedKeys taken;
  taken.m_list = list.release();
  *this = std::move(taken);
}

void SharedKeys::Add(const PackedText& key) {
  const std::size_t count = Count();
  if (IsOwn()) {
    m_list->Keys.push_back(key);
    return;
  }
  SharedKeys& next = Next();
  if (count < MostShared && next.m_list != nullptr && next.m_list->Keys[count] == key) {
    *this = SharedKeys(next);
  } else {
    auto list = Copy();
    list->Keys.push_back(key);
    const SharedKeys before(*this); // which `next` may be in
    Take(std::move(list));
    if (count < MostShared) next = *this;
  }
}

void SharedKeys::Remove(std::size_t at) {
  if (IsOwn()) {
    m_list->Keys.erase(m_list->Keys.begin() + static_cast<std::ptrdiff_t>(at));
  } else {
    *this = SharedWithout(at);
  }
}

void SharedKeys::LetKeepWashed() {
  if (KeepWashed()) return;
  if (IsOwn()) {
    m_list->KeepWashed = true;
  } else {
    if (m_list->Twin.m_list == nullptr) {
      auto twin = Copy();
      twin->KeepWashed = true;
      m_list->Twin.Take(std::move(twin));
    }
    *this = SharedKeys(m_list->Twin);
  }
}

void SharedKeys::SetApart(std::unique_ptr<Apart> apart) {
  auto list = Copy();
  list->What = std::move(apart);
  Take(std::move(list));
}

void SharedKeys::Rejoin() { *this = SharedWithout(Count()); }

SharedKeys SharedKeys::SharedWithout(std::size_t at) const {
  SharedKeys keys;
  for (std::size_t i = 0; i < Count(); ++i) {
    if (i != at) keys.Add((*this)[i]);
  }
  if (KeepWashed() && keys.m_list != nullptr) keys.LetKeepWashed();
  return keys;
}

// NOLINTEND(clang-analyzer-cplusplus.NewDelete)

} // namespace portico
