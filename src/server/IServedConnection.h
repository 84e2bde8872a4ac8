#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::server {

using TimePoint = std::chrono::steady_clock::time_point;

/// One client's connection in some protocol, as the bytes that go over its wire: no I/O, no thread and no clock.
///
/// Whoever owns it says what time it is at each call. After each Receive(), and whenever NextEvent() is due, it calls
/// Collect() until nothing more comes, sends what that gave, and closes once Finished(). While the client does not take
/// what was collected, nothing is collected, nor received unless the connection is duplex.
///
/// Connections that belong together, as the two of one HiSLIP session do, share an object that their factory captures:
/// what one of them causes at another, output or its end, is an event of that other's, due at once.
class IServedConnection {
public:
  /// The client has gone, or the connection is over.
  virtual ~IServedConnection() = default;

  /// Takes what the client has sent: any bytes, in pieces of any size up to 64 KiB, and only while AcceptsInput().
  virtual void Receive(std::string_view bytes, TimePoint now) = 0;
  /// Appends what is to be sent next at `now`, some 64 KiB at most unless one answer alone is longer; nothing if there
  /// is nothing more.
  virtual void Collect(std::string& output, TimePoint now) = 0;
  /// Whether there is room for 64 KiB more of input.
  virtual bool AcceptsInput() const = 0;
  /// When Collect() is next due though nothing arrives; in the past, or now, if another connection has caused output
  /// here or this connection's end. None if nothing is under way.
  virtual std::optional<TimePoint> NextEvent() const = 0;
  /// Whether input is taken though the client does not take its output: one has nothing to do with the other.
  virtual bool IsDuplex() const { return false; }
  /// The client has ended its side.
  virtual void EndInput(TimePoint /*now*/) {}
  /// Whether nothing more will be collected, so that the client is to be told once it has all; input is still taken.
  virtual bool OutputEnded() const { return false; }
  /// Whether to close once all that was collected is sent. `inputEnded`: the client has ended its side, and may still
  /// take answers.
  virtual bool Finished(bool inputEnded) const = 0;
};

/// Makes the connection of a client that has just come, to this TCP port of ours (0 if the wire knows no ports), which
/// a protocol may have to name to its client.
using ConnectionFactory = std::function<std::unique_ptr<IServedConnection>(std::uint16_t port)>;

} // namespace portico::server
