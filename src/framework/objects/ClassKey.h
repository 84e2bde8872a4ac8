#pragma once

#include "framework/text/text.h"

#include <cstddef>

namespace portico {

/// The key of a class that the factory makes: the specification under which its creator is registered, the interface
/// that callers get, and the parameters that the creator takes. Keys bear the name of their specification and stand in
/// the namespace `Class`, each beside the interface or, where that is a general one, beside the class itself.
template <class Interface, class... Parameters>
struct ClassKey {
  static constexpr std::size_t ParamCount = sizeof...(Parameters);

  StringView Specification;

  /// The specification, for whoever takes any.
  constexpr operator StringView() const { return Specification; } // NOLINT(google-explicit-constructor)
};

} // namespace portico
