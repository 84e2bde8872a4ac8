#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::simulator {

using TimePoint = std::chrono::steady_clock::time_point;

/// One client's session with a simulated instrument: bytes in, response messages out.
///
/// It has no thread and no clock of its own: whoever owns it says what time it is at each call, and time must not run
/// backwards. The same seed, the same bytes and the same times give the same responses.
class SimulatedInstrument {
public:
  virtual ~SimulatedInstrument() = default;

  /// Takes bytes of program messages. A line feed outside definite-length blocks ends a message; a carriage return
  /// before it is white space. Any bytes, in pieces of any size, are allowed.
  virtual void Write(std::string_view bytes, TimePoint now) = 0;

  /// The next whole response message that is ready at `now`, its line feed included; none if there is none yet.
  virtual std::optional<std::string> Read(TimePoint now) = 0;

  /// When the instrument will next do something by itself (an operation ends); none if nothing is under way.
  virtual std::optional<TimePoint> NextEvent() const = 0;

  /// Makes a device: "dmm", "psu" or "scope", in any case. An unknown one gives a null pointer.
  static std::unique_ptr<SimulatedInstrument> Make(std::string_view device, std::uint64_t seed);
};

} // namespace portico::simulator
