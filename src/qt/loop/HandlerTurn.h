#pragma once

#include "framework/errors/Quit.h"

#include <functional>
#include <utility>

namespace portico::qt {

/// A handler of the program runs for as long as this lives.
class HandlerTurn {
public:
  HandlerTurn();
  HandlerTurn(const HandlerTurn&) = delete;
  HandlerTurn& operator=(const HandlerTurn&) = delete;
  ~HandlerTurn();
};

/// Makes the call as soon as no handler of the program is running; at once if none is. For the end of what a running
/// handler may still use.
void AtRest(std::function<void()> call);

/// Every call from the toolkit into the program goes through here, since the toolkit lets no exception through. `Quit`
/// ends the call and no more: the event loop's outer turn throws it again. Any other failure is the handler's own to
/// deal with, so one that gets here ends the process.
template <class F>
void Enter(F&& call) noexcept {
  const HandlerTurn turn;
  try {
    std::forward<F>(call)();
  } catch (const Quit&) { // NOLINT(bugprone-empty-catch): thrown again by the loop
  }
}

} // namespace portico::qt
