#pragma once

#include "framework/errors/Quit.h"

#include <concepts>
#include <utility>

namespace portico {

/// Runs a step whose failure does not matter. The end of the program is no failure.
template <std::invocable Step>
void Tolerate(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const Quit&) {
    throw;
  } catch (...) { // the caller goes on with what there was before
  }
}

} // namespace portico
