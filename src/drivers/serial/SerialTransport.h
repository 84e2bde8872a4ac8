#pragma once

#include "drivers/ITransport.h"
#include "drivers/ResourceName.h"
#include "system/Cancellation.h"

#include <string>

namespace portico::drivers {

/// A serial line: bytes only, without any mark of where a message ends. Time-outs run on the real clock.
///
/// While it is open nobody else can have the port.
class SerialTransport final : public ITransport {
public:
  /// `cancellation` may be null, or must outlive the transport.
  explicit SerialTransport(const SerialAddress& address, const system::Cancellation* cancellation = nullptr);
  ~SerialTransport() override;
  SerialTransport(const SerialTransport&) = delete;
  SerialTransport& operator=(const SerialTransport&) = delete;

  /// Sets the line up as the address says and drops what had arrived before. Never waits.
  DriverResult Open(TimePoint deadline) override;
  /// What was written still goes out, for as long as the line needs for it.
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;
  /// Listens until nothing has come for `timeout`, but no longer than twice that, and drops what comes. False if the
  /// port is gone.
  bool Clear(std::chrono::milliseconds timeout) override;

private:
  DriverResult SetLine() const;
  void Drain() const noexcept;
  /// Why the port could not be opened, of the system's error number.
  DriverResult OpenFailure(int error) const;
  DriverResult Refused(const std::string& why) const { return {DriverStatus::ConnectFailed, m_path + ", " + why}; }
  DriverResult Lost(int error) const;

  const std::string m_path;
  const SerialLine m_line;
  const system::Cancellation* const m_cancellation;
  int m_port = -1;
  /// Nobody takes what is written, so that there is no point in waiting for it to go out.
  bool m_stuck = false;
};

} // namespace portico::drivers
