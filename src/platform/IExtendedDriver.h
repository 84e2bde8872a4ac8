#pragma once

#include "platform/IInstrumentDriver.h"

#include <chrono>
#include <cstdint>
#include <memory>

namespace portico {

/// The time-outs that a driver takes, and the one that it has unless it is told another, in milliseconds.
inline constexpr std::int32_t ShortestTimeout = 1;
inline constexpr std::int32_t LongestTimeout = 3'600'000; // an hour
inline constexpr std::int32_t UsualTimeout = 5000;

/// What the program's own driver can do beyond the nine functions. Like them, each of these blocks, answers with a
/// status that `TVSCPI_error_message` explains, and does not throw. What a driver has no way to do it refuses.
class IExtendedDriver : public IInstrumentDriver {
public:
  /// How long each call may take from the next one on, in all sessions, those that are yet to be opened as well.
  virtual std::int32_t SetTimeout(std::chrono::milliseconds timeout) = 0;

  /// Clears the instrument, so that it drops what it was asked, or makes a fresh connection to it. Nothing that was
  /// asked before is answered any more.
  virtual std::int32_t Clear(std::int32_t session) = 0;

  /// Gives the instrument's front panel back. The session stays open.
  virtual std::int32_t GoToLocal(std::int32_t session) = 0;
};

/// The driver that the channel uses. Wired before the factory is made.
extern std::shared_ptr<IExtendedDriver> gInstrumentDriver;

} // namespace portico
