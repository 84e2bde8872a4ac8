#pragma once

#include "framework/Quit.h"

#include <utility>

namespace portico::qt {

/// Every call from the toolkit into the program goes through here, since the toolkit lets no exception through. `Quit`
/// ends the call and no more: the event loop's outer turn throws it again. Any other failure is the handler's own to
/// deal with, so one that gets here ends the process.
template <class F>
void Enter(F&& call) noexcept {
  try {
    std::forward<F>(call)();
  } catch (const Quit&) { // NOLINT(bugprone-empty-catch): thrown again by the loop
  }
}

} // namespace portico::qt
