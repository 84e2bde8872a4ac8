#pragma once

#include "framework/objects/Event.h"

#include <cstdint>
#include <memory>

namespace portico {

inline constexpr std::int32_t LongestInterval = 65535; ///< of a timer, in milliseconds

/// A timer of the event loop. Disabled when it is made; fires again and again while it is enabled. An interval of 0
/// never fires.
class ITimer {
public:
  virtual ~ITimer() = default;

  /// Milliseconds, 0 to `LongestInterval`; anything else raises `BadPropertyValue`. Setting it starts a running
  /// interval anew.
  virtual void Interval(std::int32_t milliseconds) = 0;
  virtual void Enabled(bool newValue) = 0;
  virtual bool Enabled() const = 0;
  /// Fires from inside `DoEvents` or `WaitForEvent`.
  virtual Event<>& Timer() = 0;
};

/// The program's one source of events. Both turns throw `Quit` when the program has been told to end.
class IEventLoop {
public:
  virtual ~IEventLoop() = default;

  /// Processes all pending events and returns without waiting.
  virtual void DoEvents() = 0;
  /// Blocks until something happens, and processes it.
  virtual void WaitForEvent() = 0;
  /// From now on every turn throws `Quit`, and so does whatever modal is shown.
  virtual void RequestQuit() noexcept = 0;
  /// The timer belongs to the caller and must not outlive the loop.
  virtual std::unique_ptr<ITimer> MakeTimer() = 0;
};

/// Wired before the factory is made, because a creator may want a timer at once.
extern std::shared_ptr<IEventLoop> gEventLoop;

} // namespace portico
