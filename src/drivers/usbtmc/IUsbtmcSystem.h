#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace portico::drivers {

/// A USB test and measurement device as the system lists it.
struct UsbtmcDevice {
  /// Of its device file.
  std::string Path;
  std::uint16_t Vendor = 0;
  std::uint16_t Product = 0;
  /// Empty if it has none.
  std::string Serial;
  unsigned InterfaceNumber = 0;
  /// What it calls its maker and itself; either may be empty.
  std::string Maker;
  std::string Model;
};

/// What a device file is asked for besides reading and writing.
enum class UsbtmcRequest {
  /// Takes milliseconds, at least 100: how long each read, write and request may wait from now on.
  SetTimeout,
  /// Takes 1: a transfer that fails is aborted at once, so that the next one finds the device in step.
  AutoAbort,
  /// Answers the attributes of what was read last; bit 0: a message ends there.
  MessageAttributes,
  /// Answers what the device can do beyond messages; bit 1: it can be sent back to local control.
  Capabilities,
  /// The device drops what it was asked and what it has to say.
  Clear,
  GoToLocal,
};

/// An open device file, which its owner closes by letting go of it. A call ends at the time-out at the latest, and
/// nothing ends it before.
class IUsbtmcFile {
public:
  virtual ~IUsbtmcFile() = default;

  /// Asks the device for at most `size` bytes and answers how many came in its one transfer: 0 for one that is
  /// malformed, or the negative of the system's error number.
  virtual long Read(char* buffer, std::size_t size) = 0;
  /// Sends one message with its end mark. Answers how many bytes went out, or the negative of the system's error
  /// number.
  virtual long Write(std::string_view bytes) = 0;
  /// `value` is what the request takes or answers. Answers 0 or the system's error number: EBADRQC if the system does
  /// not know the request.
  virtual int Request(UsbtmcRequest request, std::uint32_t& value) = 0;
  /// Whether the device has been pulled out. Never waits.
  virtual bool Gone() const = 0;
};

struct UsbtmcOpening {
  /// 0, or the system's error number: EWOULDBLOCK if somebody else has the device open.
  int Error = 0;
  /// Null if it failed.
  std::unique_ptr<IUsbtmcFile> File = {};
};

/// The system's driver for USB test and measurement devices: their device files, and what else it tells of them.
class IUsbtmcSystem {
public:
  virtual ~IUsbtmcSystem() = default;

  /// The devices that are connected, in the order of their files; none where the system knows of no such devices.
  virtual std::vector<UsbtmcDevice> Devices() = 0;
  /// While it is open nobody else who asks can have the device.
  virtual UsbtmcOpening Open(const std::string& path) = 0;
};

} // namespace portico::drivers
