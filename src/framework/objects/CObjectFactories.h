#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/objects/IObjectFactory.h"

namespace portico {

/// The typed keyed list of creators.
class CObjectFactories {
public:
  std::size_t Count() const;
  /// A number, or a string that reads as one, counts from 0 here; anything else is a key. An absent one
  /// raises `InvalidArgument`.
  Ref<ICreator> Item(const Value& IndexOrKey) const;
  /// The creators in insertion order. Kept for the contract, like `Count`: nothing in the program asks for them.
  std::vector<Ref<ICreator>> NewEnum() const;
  void Add(const Ref<ICreator>& Creator, const Value& Specification);
  /// A number counts from 1, unlike in `Item`.
  void Remove(const Value& IndexOrKey);

private:
  KeyedList<Ref<ICreator>> m_creators;
};

} // namespace portico
