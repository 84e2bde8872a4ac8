#pragma once

#include "drivers/ITransport.h"
#include "drivers/ResourceName.h"
#include "drivers/usbtmc/IUsbtmcSystem.h"
#include "system/Cancellation.h"

#include <memory>
#include <string>

namespace portico::drivers {

/// A USB test and measurement device. Each write is a message with its mark, and answers have theirs.
///
/// A call waits at least for the system's shortest time-out, 100 ms, and ends there at the latest: what is cancelled
/// meanwhile takes effect behind it.
class UsbtmcTransport final : public ITransport {
public:
  /// `system` and `clock` must outlive the transport; `cancellation` may be null, or must outlive it.
  UsbtmcTransport(UsbAddress address, IUsbtmcSystem& system, const IClock& clock,
                  const system::Cancellation* cancellation = nullptr);

  /// Finds the device among those that are connected now, whichever file it has. Waits only for a device clear, which
  /// is due if the last one failed: a fresh file drops nothing of what the device was asked.
  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override { m_file.reset(); }
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;
  bool MarksEnd() const override { return true; }
  bool Stands() override { return m_file != nullptr && !m_file->Gone() && !m_clearDue; }
  bool Clear(std::chrono::milliseconds timeout) override;
  DriverResult GoToLocal(TimePoint deadline) override;

private:
  DriverResult OpenFile(const UsbtmcDevice& device);
  DriverResult SetUp(TimePoint deadline);
  /// Lets the next call wait until `deadline`, or answers why there is to be none: `timeout` if that is past.
  DriverResult Prepare(TimePoint deadline, DriverStatus timeout);
  int SetTimeout(std::chrono::milliseconds timeout);
  /// What the system's error number means; `timeout` is the status of a time-out.
  DriverResult Failure(int error, DriverStatus timeout) const;
  DriverResult Refused(const std::string& why) const { return {DriverStatus::ConnectFailed, m_place + ", " + why}; }

  const UsbAddress m_address;
  const std::string m_place;
  IUsbtmcSystem& m_system;
  const IClock& m_clock;
  const system::Cancellation* const m_cancellation;
  std::unique_ptr<IUsbtmcFile> m_file;
  /// The last device clear failed, so that an old answer may still come.
  bool m_clearDue = false;
};

} // namespace portico::drivers
