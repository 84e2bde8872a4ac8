#pragma once

#include "platform/IInstrumentDriver.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace portico {

/// The time-outs that a driver takes, and the one that it has unless it is told another, in milliseconds.
inline constexpr std::int32_t ShortestTimeout = 1;
inline constexpr std::int32_t LongestTimeout = 3'600'000; // an hour
inline constexpr std::int32_t UsualTimeout = 5000;

/// Takes the next piece of an answer; false to have no more of it. It must not call the driver, nor throw.
using AnswerSink = std::function<bool(std::string_view piece)>;

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

  /// Success if this session can read in pieces.
  virtual std::int32_t CanReadInPieces(std::int32_t session) = 0;

  /// Reads one response message of any size, as `TVSCPI_ReadInstrData` finds its end, and hands its data, without the
  /// terminator, to `sink` as it comes. Each piece may take the time-out. What fails once a piece has come, or what the
  /// sink gives up, is torn: the rest of it is dropped, and the session gets in step as `Clear` does.
  virtual std::int32_t ReadInPieces(std::int32_t session, const AnswerSink& sink) = 0;
};

/// The driver that the channel uses. Wired before the factory is made.
extern std::shared_ptr<IExtendedDriver> gInstrumentDriver;

} // namespace portico
