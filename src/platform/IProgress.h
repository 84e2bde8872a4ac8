#pragma once

#include "framework/text.h"

#include <cstdint>
#include <memory>

namespace portico {

/// A piece of work that may take long. It goes when the work is done or given up.
class IProgress {
public:
  virtual ~IProgress() = default;
  /// To be called now and then; costs next to nothing. False if the user has cancelled the work. Throws `Quit` when the
  /// program has been told to end.
  virtual bool Step(std::int64_t done, std::int64_t total) = 0;
};

/// Shows work that takes longer than half a second, and lets the user cancel it. Meanwhile the windows stay alive, and
/// take no input.
class IProgressDisplay {
public:
  virtual ~IProgressDisplay() = default;
  virtual std::unique_ptr<IProgress> Begin(const String& text) = 0;
};

/// Null where nobody watches.
extern std::shared_ptr<IProgressDisplay> gProgressDisplay;

} // namespace portico
