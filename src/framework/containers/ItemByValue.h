#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/errors/Value.h"

#include <cmath>
#include <limits>

namespace portico {

/// The position, from 1, that a value means which counts from `first`; 0, which is absent, for what is no position that
/// a list can reach. An object or an array raises `TypeMismatch`.
inline std::size_t PositionOf(const Value& index, std::int32_t first = 1) {
  const double position = std::nearbyint(ReadNumber(index.ToString()).value_or(first - 1)) - first + 1;
  return position >= 1 && position <= std::numeric_limits<std::int32_t>::max() ? static_cast<std::size_t>(position) : 0;
}

/// A text is a key, anything else a position, which counts from 1. An absent one raises `InvalidArgument`.
template <class T>
const T& ItemByValue(const KeyedList<T>& list, const Value& indexOrKey) {
  const auto key = indexOrKey.AsText();
  return key ? list.Item(*key) : list.Item(PositionOf(indexOrKey));
}

template <class T>
void RemoveByValue(KeyedList<T>& list, const Value& indexOrKey) {
  const auto key = indexOrKey.AsText();
  key ? list.Remove(*key) : list.Remove(PositionOf(indexOrKey));
}

/// The items in order.
template <class T>
std::vector<T> ItemsOf(const KeyedList<T>& list) {
  std::vector<T> items;
  items.reserve(list.Count());
  for (std::size_t i = 1; i <= list.Count(); ++i) items.push_back(list.Item(i));
  return items;
}

} // namespace portico
