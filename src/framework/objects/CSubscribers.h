#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/errors/Value.h"
#include "framework/objects/IPublisher.h"

namespace portico {

/// The typed keyed list of subscribers.
class CSubscribers {
public:
  /// An empty key stands for none. Returns the new item.
  Ref<ISubscriber> Add(const Ref<ISubscriber>& NewItem, const String& Key);
  /// Positions count from 1; an absent position or key raises `InvalidArgument`.
  Ref<ISubscriber> Item(const Value& IndexOrKey) const;
  /// The same for a position.
  Ref<ISubscriber> At(std::size_t Position) const;
  std::size_t Count() const;
  /// A position, a key, or a subscriber: the first that is the same object goes; one that is absent is no error.
  void Remove(const Value& IndexKeyOrObject);
  std::vector<Ref<ISubscriber>> NewEnum() const; ///< Kept for the contract: nothing in the program asks for it.

private:
  KeyedList<Ref<ISubscriber>> m_list;
};

} // namespace portico
