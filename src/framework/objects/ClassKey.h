#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>

namespace portico {

class ICreator;
template <class T>
class Ref;

/// Where a list of creators holds one, for as long as the list stays in the state in which it was looked up.
struct CreatorPlace {
  std::uint64_t State = 0; ///< 0: never looked up
  const Ref<ICreator>* Creator = nullptr;
};

/// What a creator is found by: the specification under which it is registered. It remembers the place, so that the
/// factory searches once and not for each object.
struct CreatorKey {
  StringView Specification;
  mutable CreatorPlace Place = {};

  /// The specification, for whoever takes any.
  constexpr operator StringView() const { return Specification; } // NOLINT(google-explicit-constructor)
};

/// The key of a class that the factory makes: its creator's, and with it the interface that callers get, and the
/// parameters that the creator takes. Keys bear the name of their specification and stand in the namespace `Class`,
/// each beside the interface or, where that is a general one, beside the class itself.
template <class Interface, class... Parameters>
struct ClassKey : CreatorKey {
  static constexpr std::size_t ParamCount = sizeof...(Parameters);
};

} // namespace portico
