#pragma once

#include "framework/KeyedList.h"
#include "framework/Value.h"

namespace portico {

/// The position that a value means; positions below 1 are as absent as those beyond the end.
inline std::size_t PositionOf(const Value& index) {
  const std::int32_t number = index.ToLong();
  return number < 1 ? 0 : static_cast<std::size_t>(number);
}

/// A text is a key, anything else a position, which counts from 1. Absent raises 5.
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
