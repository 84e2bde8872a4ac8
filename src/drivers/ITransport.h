#pragma once

#include "drivers/DriverStatus.h"
#include "drivers/IClock.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace portico::drivers {

class ResourceName;

/// What one read of a transport brought.
struct Received {
  DriverResult Result = {};
  std::size_t Count = 0;
  /// The transport marks the end of a message behind these bytes; never set by one that carries a mere byte stream.
  bool End = false;
  /// A message begins with these bytes, and what came of one before is given up: the instrument has dropped the rest of
  /// it, or its connection ended there.
  bool Anew = false;
};

/// Carries bytes to and from one instrument: the part of a driver that differs from interface to interface.
///
/// A session owns its transport and calls it. Every function blocks until it is done or
/// `deadline` is past, and none throws. After a failure the session calls Close(); Open() may then follow again.
class ITransport {
public:
  virtual ~ITransport() = default;

  virtual DriverResult Open(TimePoint deadline) = 0;

  /// Drops the connection and all that is still on its way. Harmless if there is none.
  virtual void Close() noexcept = 0;

  /// Sends all of `bytes`.
  virtual DriverResult Write(std::string_view bytes, TimePoint deadline) = 0;

  /// Waits until there is at least one byte, then takes what is there, at most `size` bytes. Reads nothing once
  /// `deadline` is past, so that an answer without end is given up in time.
  virtual Received Read(char* buffer, std::size_t size, TimePoint deadline) = 0;

  /// Whether it marks the ends of messages. Each Write() is then one message with its mark, and no byte in an answer
  /// ends it.
  virtual bool MarksEnd() const { return false; }

  /// A look before a command is sent, without waiting: false once the instrument has ended the connection, or a Clear()
  /// that failed has left it of no use; Open() then makes it anew. Answers that came before are still read first.
  virtual bool Stands() { return true; }

  /// After a read that timed out, or behind an Open() that follows a failure, and before the next Write(): has
  /// the instrument drop what it was asked, and drops what is on its way, so that no late answer is taken for
  /// another's. False if there is no way to, or it failed; then a fresh connection has to be made. Takes `timeout` at
  /// most, a line that can only be listened to twice that.
  virtual bool Clear(std::chrono::milliseconds /*timeout*/) { return false; }

  /// Gives the instrument's front panel back; the connection stays. NotPossible if there is no way to.
  virtual DriverResult GoToLocal(TimePoint /*deadline*/) { return {DriverStatus::NotPossible}; }

  /// The same, as far as that is possible, before an orderly Close().
  virtual void ReturnToLocal(TimePoint deadline) noexcept { GoToLocal(deadline); }

  /// From now on `call` is made before each wait for the instrument.
  void OnWait(std::function<void()> call) { m_onWait = std::move(call); }

protected:
  void AboutToWait() const {
    if (m_onWait) m_onWait();
  }

private:
  std::function<void()> m_onWait;
};

/// Makes the transport for a name of the kind that it is registered for.
using TransportFactory = std::function<std::unique_ptr<ITransport>(const ResourceName&)>;

} // namespace portico::drivers
