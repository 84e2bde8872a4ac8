#pragma once

#include "framework/text/text.h"

#include <memory>

namespace portico {

/// Shows the user how far a long piece of work has come, with a way to give it up. Nothing shows of work that takes
/// less than half a second. While it shows, the program's windows go on painting, and only the way out takes input.
class IProgress {
public:
  virtual ~IProgress() = default;

  /// Work within other work, begun and ended inside it, is part of that: it shows nothing of its own.
  virtual void Begin(const String& Prompt) = 0;
  /// To be called as often as there is something to tell: most calls cost a look at the clock. False once the user has
  /// given the work up. Throws `Quit` as the event loop does.
  virtual bool Step(double Done, double Total) = 0;
  virtual void End() noexcept = 0;
};

extern std::shared_ptr<IProgress> gProgress;

} // namespace portico
