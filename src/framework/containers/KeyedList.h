#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/text/text.h"

#include <cstddef>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace portico {

/// An ordered container. Items stay in insertion order; positions count from 1. An item may carry a key; keys are
/// unique and compared without regard to case. An absent key or position raises `InvalidArgument`, a key that is
/// present `DuplicateKey`.
///
/// Short lists are searched in order and carry nothing but their items; longer ones keep an index of their keys. An
/// item for which there is no memory is not added.
template <class T>
class KeyedList {
public:
  /// An empty key stands for none.
  void Add(T item, StringView key = {}) {
    if (!key.empty() && FindKey(key) != Nowhere) HuntERR::RaiseStandard(ErrorNumber::DuplicateKey);
    m_entries.push_back({String(key), std::move(item)});
    try {
      Index(m_entries.size() - 1);
    } catch (...) {
      m_entries.pop_back();
      throw;
    }
  }

  std::size_t Count() const { return m_entries.size(); }

  T& Item(std::size_t position) { return m_entries[Checked(position)].Item; }
  const T& Item(std::size_t position) const { return m_entries[Checked(position)].Item; }
  T& Item(StringView key) { return m_entries[Checked(FindKey(key) + 1)].Item; }
  const T& Item(StringView key) const { return m_entries[Checked(FindKey(key) + 1)].Item; }

  /// The item, or a null pointer for an absent key.
  T* Find(StringView key) {
    const std::size_t found = FindKey(key);
    return found == Nowhere ? nullptr : &m_entries[found].Item;
  }

  /// The key at a position as it was first written; empty for an item without one.
  const String& Key(std::size_t position) const { return m_entries[Checked(position)].Key; }

  void Remove(std::size_t position) { Erase(Checked(position)); }
  void Remove(StringView key) { Erase(Checked(FindKey(key) + 1)); }

private:
  static constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);
  static constexpr std::size_t LongestSearched = 8;

  struct Entry {
    String Key;
    T Item;
  };
  struct SameKey {
    bool operator()(StringView a, StringView b) const { return EqualNoCase(a, b); }
    using is_transparent = void;
  };
  struct KeyHash : HashNoCase {
    using is_transparent = void;
  };
  using KeyIndex = std::unordered_map<String, std::size_t, KeyHash, SameKey>;

  std::size_t Checked(std::size_t position) const {
    if (position == 0 || position > m_entries.size()) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
    return position - 1;
  }

  std::size_t FindKey(StringView key) const {
    if (key.empty()) return Nowhere;
    if (m_index) {
      const auto found = m_index->find(key);
      return found == m_index->end() ? Nowhere : found->second;
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      if (EqualNoCase(m_entries[i].Key, key)) return i;
    }
    return Nowhere;
  }

  void Erase(std::size_t at) {
    const auto entry = m_entries.begin() + static_cast<std::ptrdiff_t>(at);
    [[maybe_unused]] const T gone = std::move(entry->Item); // its end may ask this list, and finds it whole
    m_entries.erase(entry);
    m_index.reset();
    Index(0);
  }

  /// Takes the entries from that one on into the index, which a long list has. Out of memory it goes: without one a
  /// long list, too, is searched in order, until the next change.
  void Index(std::size_t from) try {
    if (m_entries.size() <= LongestSearched) return;
    if (!m_index) {
      m_index = std::make_unique<KeyIndex>();
      from = 0;
    }
    for (std::size_t i = from; i < m_entries.size(); ++i) {
      if (!m_entries[i].Key.empty()) m_index->emplace(m_entries[i].Key, i);
    }
  } catch (const std::bad_alloc&) {
    m_index.reset();
    throw;
  }

  std::vector<Entry> m_entries;
  std::unique_ptr<KeyIndex> m_index;
};

} // namespace portico
