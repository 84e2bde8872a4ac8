#pragma once

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace portico::simulator {

using TimePoint = std::chrono::steady_clock::time_point;

/// Raised in place of a connection: why there is none, as a clause.
class NoInstrument : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// One client's connection to a simulated instrument: bytes in, response messages out.
///
/// It has no thread and no clock of its own: whoever owns it says what time it is at each call, and time must not run
/// backwards, over all connections of an instrument. The same seed, the same bytes and the same times give the same
/// responses.
class SimulatedConnection {
public:
  /// Ends the connection. What it had sent is carried out all the same; the answers go nowhere.
  virtual ~SimulatedConnection() = default;

  /// Takes bytes of program messages. A line feed outside definite-length blocks ends a message; a carriage return
  /// before it is white space. Any bytes, in pieces of any size, are allowed.
  virtual void Write(std::string_view bytes, TimePoint now) = 0;

  /// The next whole response message that is ready at `now`, its line feed included; none if there is none yet.
  virtual std::optional<std::string> Read(TimePoint now) = 0;

  /// When a Read() or Write() is next due though the client does nothing: an operation ends, or another connection's
  /// command has released an answer; none if nothing is under way.
  virtual std::optional<TimePoint> NextEvent() const = 0;
};

} // namespace portico::simulator
