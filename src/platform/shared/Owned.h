#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/text/text.h"
#include "platform/shared/Checks.h"

#include <vector>

namespace portico {

// Of things that a form or a bar owns, by pointers of any kind.

/// All of them, seen by an interface.
template <class Interface, class Owner>
std::vector<Interface*> PointersTo(const std::vector<Owner>& owned) {
  std::vector<Interface*> pointers;
  pointers.reserve(owned.size());
  for (const Owner& one : owned) pointers.push_back(one.get());
  return pointers;
}

/// The one at a position, counted from 1; another position raises `IndexOutOfBounds`.
template <class Owner>
auto& AtPosition(const std::vector<Owner>& owned, std::int32_t position) {
  CheckPosition(position, std::ssize(owned));
  return *owned[static_cast<std::size_t>(position) - 1];
}

/// The one with a key, without regard to case; an unknown one raises `ElementNotFound`.
template <class Owner>
auto& WithKey(const std::vector<Owner>& owned, StringView key) {
  for (const Owner& one : owned) {
    if (EqualNoCase(one->Key(), key)) return *one;
  }
  HuntERR::RaiseStandard(ErrorNumber::ElementNotFound);
}

} // namespace portico
