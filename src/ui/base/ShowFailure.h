#pragma once

#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"
#include "platform/IDesktop.h"

#include <concepts>
#include <utility>

namespace portico {

/// The end of every failure that the user sees. Runs the body of a handler; what it raises is recorded under the label
/// and shown, the handler's sentence first, and the program goes on. False if the body has failed. `Quit` passes.
template <std::invocable Body>
bool RunHandler(StringView label, StringView sentence, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    StopHere(label);
  }
  // Read before the box, and shown when the error is gone: other handlers run, and fail, while the box is up.
  const String prompt = String(sentence).append(NewLine).append(HuntERR::ErrDescription());
  gMessageBox->Show(prompt, ApplicationTitle);
  return false;
}

} // namespace portico
