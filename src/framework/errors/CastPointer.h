#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <typeinfo>

namespace portico {

/// `dynamic_cast` with a memory: where an interface lies in an object depends on the object's class alone, and the
/// search through virtual bases would be a sixth of the work of a query. Null where the object lacks the interface.
/// Like everything that is built on `Ref`, it assumes one thread.
template <class To, class From>
To* CastPointer(From* from) {
  struct Place {
    const std::type_info* Class;
    std::ptrdiff_t Offset;
  };
  constexpr std::size_t places = 16; // more classes than meet at one cast; a clash only costs a search
  static std::array<Place, places> known{};

  const std::type_info& type = typeid(*from);
  auto* whole = static_cast<char*>(dynamic_cast<void*>(from));
  Place& place = known[(reinterpret_cast<std::uintptr_t>(&type) / sizeof(std::type_info)) % places];
  if (place.Class == &type) return reinterpret_cast<To*>(whole + place.Offset);
  To* to = dynamic_cast<To*>(from);
  if (to != nullptr) place = {&type, reinterpret_cast<char*>(to) - whole};
  return to;
}

} // namespace portico
