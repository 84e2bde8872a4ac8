#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/objects/IObjectFactory.h"

#include <cstdint>

namespace portico {

/// The typed keyed list of creators.
class CObjectFactories {
public:
  CObjectFactories() = default;
  CObjectFactories(const CObjectFactories&) = delete;
  CObjectFactories& operator=(const CObjectFactories&) = delete;

  std::size_t Count() const;
  /// A number, or a string that reads as one, counts from 0 here; anything else is a key. An absent one
  /// raises `InvalidArgument`.
  Ref<ICreator> Item(const Value& IndexOrKey) const;
  /// The same for a key, which is searched for only if the list has changed since.
  Ref<ICreator> Item(const CreatorKey& Key) const;
  /// The creators in insertion order. Kept for the contract, like `Count`: nothing in the program asks for them.
  std::vector<Ref<ICreator>> NewEnum() const;
  void Add(const Ref<ICreator>& Creator, const Value& Specification);
  /// A number counts from 1, unlike in `Item`.
  void Remove(const Value& IndexOrKey);

private:
  /// A number for each change of any list, so that no key takes one state for another.
  static std::uint64_t NextState();
  const Ref<ICreator>& Find(const Value& IndexOrKey) const;

  KeyedList<Ref<ICreator>> m_creators;
  std::uint64_t m_state = NextState();
};

} // namespace portico
