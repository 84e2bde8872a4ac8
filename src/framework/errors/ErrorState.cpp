#include "framework/errors/ErrorState.h"

#include <utility>

namespace portico::HuntERR {

ErrorState& KnownErrors() {
  static ErrorState state;
  return state;
}

ErrorState& SettledErrors() {
  ErrorState& state = KnownErrors();
  if (state.Pending) std::exchange(state.Pending, {}).Record();
  return state;
}

} // namespace portico::HuntERR
