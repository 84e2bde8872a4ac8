#include "framework/errors/ErrorState.h"

#include <utility>

namespace portico::HuntERR {

ErrorState& KnownErrors() {
  static ErrorState state;
  return state;
}

ErrorState& SettledErrors() {
  ErrorState& state = KnownErrors();
  if (const auto pending = std::exchange(state.Pending, nullptr)) pending->Record();
  return state;
}

} // namespace portico::HuntERR
