#pragma once

#include "configuration/PackedText.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace portico {

/// The keys of a collection in their order, and whether its settings have washed values apart from their values.
/// Collections that have come by the same few keys in the same way share one list, as nearly all do that are kept in
/// great numbers. As large as a pointer; its copies count without protection.
class SharedKeys {
public:
  SharedKeys() = default;
  SharedKeys(const SharedKeys& other) noexcept;
  SharedKeys(SharedKeys&& other) noexcept : m_list(std::exchange(other.m_list, nullptr)) {}
  SharedKeys& operator=(SharedKeys other) noexcept {
    std::swap(m_list, other.m_list);
    return *this;
  }
  ~SharedKeys();

  std::size_t Count() const;
  const PackedText& operator[](std::size_t at) const;
  /// The count for an absent key; case is ignored.
  template <class Text>
  std::size_t Find(const Text& key) const {
    const std::size_t count = Count();
    std::size_t at = 0;
    while (at < count && !EqualNoCase((*this)[at], key)) ++at;
    return at;
  }
  void Add(const PackedText& key);
  void Remove(std::size_t at);

  bool KeepWashed() const;
  void LetKeepWashed();

  /// What sets one collection apart from all others with its keys. It hangs on a list that is shared with nobody.
  struct Apart {
    virtual ~Apart() = default;
  };
  /// Null if there is nothing.
  Apart* WhatIsApart() const;
  void SetApart(std::unique_ptr<Apart> apart);
  /// Lets that go, and shares again.
  void Rejoin();

private:
  struct List;
  static constexpr std::size_t MostShared = 8;

  /// Where the keys are kept that came behind these last.
  SharedKeys& Next() const;
  bool IsOwn() const;
  std::unique_ptr<List> Copy() const;
  void Take(std::unique_ptr<List> list);
  SharedKeys SharedWithout(std::size_t at) const;

  List* m_list = nullptr; // none for no keys
};

} // namespace portico
