#pragma once

#include "drivers/DriverStatus.h"
#include "drivers/IClock.h"

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
