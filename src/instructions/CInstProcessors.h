#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/errors/Value.h"
#include "instructions/IInstProcessor.h"

namespace portico {

/// The typed keyed list of processors.
class CInstProcessors {
public:
  /// An empty key stands for none. Returns the new item.
  Ref<IInstProcessor> Add(const Ref<IInstProcessor>& NewItem, const String& Key);
  /// An unset reference, and no error, for an absent position or key.
  Ref<IInstProcessor> Item(const Value& IndexOrKey) const;
  /// The processor at a position, counted from 1; an absent one raises `InvalidArgument`.
  Ref<IInstProcessor> At(std::size_t Position) const { return m_list.Item(Position); }
  std::size_t Count() const;
  /// An absent position or key raises `InvalidArgument`.
  void Remove(const Value& IndexOrKey);
  std::vector<Ref<IInstProcessor>> NewEnum() const; ///< Kept for the contract: nothing in the program asks for it.

private:
  KeyedList<Ref<IInstProcessor>> m_list;
};

} // namespace portico
