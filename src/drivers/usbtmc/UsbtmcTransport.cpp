#include "drivers/usbtmc/UsbtmcTransport.h"

#include "drivers/usbtmc/UsbtmcList.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace portico::drivers {
namespace {

using std::chrono::milliseconds;

/// The shortest time-out that the system takes.
constexpr milliseconds ShortestTimeout(100);
constexpr std::uint32_t EndOfMessage = 1;
constexpr std::uint32_t CanGoToLocal = 2;

/// The device's part of its name, as in "USB 0x1234::0x5678::SN1".
std::string PlaceOf(const UsbAddress& address) {
  const std::string name = ResourceName(address).Canonical();
  const std::size_t begin = name.find("::") + 2;
  std::string ids = name.substr(begin, name.find("::", name.find("::", begin) + 2) - begin);
  if (!address.Serial.empty()) ids.append("::").append(address.Serial);
  return "USB " + ids;
}

} // namespace

UsbtmcTransport::UsbtmcTransport(UsbAddress address, IUsbtmcSystem& system, const IClock& clock,
                                 const system::Cancellation* cancellation)
    : m_address(std::move(address)),
      m_place(PlaceOf(m_address)),
      m_system(system),
      m_clock(clock),
      m_cancellation(cancellation) {}

DriverResult UsbtmcTransport::Open(TimePoint deadline) {
  Close();
  if (system::Requested(m_cancellation)) return {DriverStatus::Cancelled, m_place};
  const std::vector<UsbtmcDevice> meant = DevicesMeant(m_address, m_system.Devices());
  if (meant.empty()) {
    return Refused("no such instrument is connected; check its cable and its name, and that it is switched on");
  }
  if (meant.size() > 1) {
    return Refused(m_address.Serial.empty() ? "there are several such instruments; give the serial number in the name"
                                            : "there are several such instruments; unplug all but one");
  }
  DriverResult result = OpenFile(meant.front());
  if (result.Succeeded()) result = SetUp(deadline);
  if (!result.Succeeded()) Close();
  return result;
}

DriverResult UsbtmcTransport::OpenFile(const UsbtmcDevice& device) {
  UsbtmcOpening opening = m_system.Open(device.Path);
  switch (opening.Error) {
  case 0:
    break;
  case EACCES:
  case EPERM:
    return Refused("permission denied to open " + device.Path +
                   "; install Portico's udev rule, 70-portico-usbtmc.rules, and plug the instrument in again");
  case EBUSY:
  case EWOULDBLOCK:
    return Refused("it is in use; close it in the program or session that has it open");
  case ENOENT:
  case ENODEV:
  case ENXIO:
    return Refused("it is gone; check its cable, and that it is switched on");
  default:
    return Refused(std::generic_category().message(opening.Error));
  }
  m_file = std::move(opening.File);
  return {};
}

DriverResult UsbtmcTransport::SetUp(TimePoint deadline) {
  std::uint32_t on = 1;
  const int error = m_file->Request(UsbtmcRequest::AutoAbort, on);
  if (error != 0 && error != EBADRQC) return Refused(std::generic_category().message(error));
  if (!m_clearDue || Clear(std::chrono::ceil<milliseconds>(deadline - m_clock.Now()))) return {};
  return Refused("it does not drop what it was asked before; switch it off and on");
}

DriverResult UsbtmcTransport::Write(std::string_view bytes, TimePoint deadline) {
  AboutToWait();
  if (DriverResult result = Prepare(deadline, DriverStatus::WriteTimeout); !result.Succeeded()) return result;
  const long written = m_file->Write(bytes);
  if (written < 0) return Failure(static_cast<int>(-written), DriverStatus::WriteTimeout);
  if (static_cast<std::size_t>(written) < bytes.size()) return {DriverStatus::WriteTimeout, m_place};
  return {};
}

Received UsbtmcTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  if (DriverResult result = Prepare(deadline, DriverStatus::ReadTimeout); !result.Succeeded()) return {result};
  const long received = m_file->Read(buffer, size);
  if (received < 0) return {Failure(static_cast<int>(-received), DriverStatus::ReadTimeout)};
  if (received == 0) return {{DriverStatus::ProtocolError, m_place + ", it sent a malformed transfer"}};
  const auto count = static_cast<std::size_t>(received);
  std::uint32_t attributes = 0;
  const int error = m_file->Request(UsbtmcRequest::MessageAttributes, attributes);
  if (error != 0 && error != EBADRQC) return {Failure(error, DriverStatus::ReadTimeout)};
  // An old system tells no marks. Then a transfer that leaves room ends its message.
  return {{}, count, error == 0 ? (attributes & EndOfMessage) != 0 : count < size};
}

bool UsbtmcTransport::Clear(milliseconds timeout) {
  std::uint32_t none = 0;
  m_clearDue = SetTimeout(timeout) != 0 || m_file->Request(UsbtmcRequest::Clear, none) != 0;
  return !m_clearDue;
}

DriverResult UsbtmcTransport::GoToLocal(TimePoint deadline) {
  if (m_file == nullptr) return {DriverStatus::NotConnected};
  if (DriverResult result = Prepare(deadline, DriverStatus::WriteTimeout); !result.Succeeded()) return result;
  std::uint32_t capabilities = 0;
  int error = m_file->Request(UsbtmcRequest::Capabilities, capabilities);
  const bool isKnown = error != EBADRQC; // which an old system does not tell
  if (!isKnown || (error == 0 && (capabilities & CanGoToLocal) == 0)) return {DriverStatus::NotPossible};
  if (error == 0) error = m_file->Request(UsbtmcRequest::GoToLocal, capabilities);
  return error == 0 ? DriverResult() : Failure(error, DriverStatus::WriteTimeout);
}

DriverResult UsbtmcTransport::Prepare(TimePoint deadline, DriverStatus timeout) {
  if (system::Requested(m_cancellation)) return {DriverStatus::Cancelled, m_place};
  const auto left = std::chrono::ceil<milliseconds>(deadline - m_clock.Now());
  if (left <= milliseconds(0)) return {timeout, m_place};
  if (const int error = SetTimeout(left); error != 0) return Failure(error, timeout);
  return {};
}

int UsbtmcTransport::SetTimeout(milliseconds timeout) {
  auto value = static_cast<std::uint32_t>(std::max(timeout, ShortestTimeout).count());
  return m_file->Request(UsbtmcRequest::SetTimeout, value);
}

DriverResult UsbtmcTransport::Failure(int error, DriverStatus timeout) const {
  switch (error) {
  case ETIMEDOUT:
    return {timeout, m_place};
  case ENODEV:
  case ENOENT:
  case ESHUTDOWN:
    return {DriverStatus::ConnectionLost, m_place + ", it was unplugged or switched off; plug it in again"};
  default:
    return {DriverStatus::ConnectionLost, m_place + ", " + std::generic_category().message(error)};
  }
}

} // namespace portico::drivers
