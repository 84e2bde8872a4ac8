#include "framework/errors/ErrorState.h"

#include <utility>

namespace portico::HuntERR {

ErrorState& KnownErrors() {
  static ErrorState state;
  return state;
}

ErrorState& SettledErrors() {
  ErrorState& state = KnownErrors();
  if (state.Pending.Number != 0) {
    const StoppedError stopped = std::exchange(state.Pending, {});
    stopped.TakeIn(stopped);
  }
  return state;
}

} // namespace portico::HuntERR
