#pragma once

#include "wire/Vxi11.h"

#include <cstdint>
#include <string_view>
#include <tuple>

namespace portico::wire {
/// The messages of VXI-11's core and abort channels as XDR records: arguments behind the head of an RPC call, results
/// behind that of a reply. Time-outs are in milliseconds. Text points into what it was read from.
namespace Vxi11 {

struct CreateLinkArguments {
  std::int32_t ClientId = 0;
  bool LockDevice = false;
  std::uint32_t LockTimeout = 0;
  std::string_view Device;

  static auto Fields(auto& self) { return std::tie(self.ClientId, self.LockDevice, self.LockTimeout, self.Device); }
};

struct CreateLinkResult {
  Vxi11::Error Error = Vxi11::Error::None;
  /// 0 is a link like any other.
  std::int32_t Link = 0;
  std::uint16_t AbortPort = 0;
  /// The most that a DeviceWrite may carry, in bytes; 0 is seen, too.
  std::uint32_t MaxReceiveSize = 0;

  static auto Fields(auto& self) { return std::tie(self.Error, self.Link, self.AbortPort, self.MaxReceiveSize); }
};

struct DeviceWriteArguments {
  std::int32_t Link = 0;
  std::uint32_t IoTimeout = 0;
  std::uint32_t LockTimeout = 0;
  std::int32_t Flags = 0;
  std::string_view Data;

  static auto Fields(auto& self) {
    return std::tie(self.Link, self.IoTimeout, self.LockTimeout, self.Flags, self.Data);
  }
};

struct DeviceWriteResult {
  Vxi11::Error Error = Vxi11::Error::None;
  /// How many of the bytes the device took.
  std::uint32_t Size = 0;

  static auto Fields(auto& self) { return std::tie(self.Error, self.Size); }
};

struct DeviceReadArguments {
  std::int32_t Link = 0;
  std::uint32_t RequestSize = 0;
  std::uint32_t IoTimeout = 0;
  std::uint32_t LockTimeout = 0;
  std::int32_t Flags = 0;
  std::uint8_t TerminationCharacter = 0;

  static auto Fields(auto& self) {
    return std::tie(self.Link, self.RequestSize, self.IoTimeout, self.LockTimeout, self.Flags,
                    self.TerminationCharacter);
  }
};

struct DeviceReadResult {
  Vxi11::Error Error = Vxi11::Error::None;
  std::int32_t Reason = 0;
  std::string_view Data;

  static auto Fields(auto& self) { return std::tie(self.Error, self.Reason, self.Data); }
};

/// The arguments of DeviceReadStb, DeviceTrigger, DeviceClear, DeviceRemote and DeviceLocal. The time-outs stand the
/// other way round than in DeviceWriteArguments and DeviceReadArguments.
struct GenericArguments {
  std::int32_t Link = 0;
  std::int32_t Flags = 0;
  std::uint32_t LockTimeout = 0;
  std::uint32_t IoTimeout = 0;

  static auto Fields(auto& self) { return std::tie(self.Link, self.Flags, self.LockTimeout, self.IoTimeout); }
};

struct DeviceReadStbResult {
  Vxi11::Error Error = Vxi11::Error::None;
  std::uint8_t StatusByte = 0;

  static auto Fields(auto& self) { return std::tie(self.Error, self.StatusByte); }
};

struct DeviceLockArguments {
  std::int32_t Link = 0;
  std::int32_t Flags = 0;
  std::uint32_t LockTimeout = 0;

  static auto Fields(auto& self) { return std::tie(self.Link, self.Flags, self.LockTimeout); }
};

struct DeviceEnableSrqArguments {
  std::int32_t Link = 0;
  bool Enable = false;
  /// What the instrument tells with its request for service, at most 40 bytes.
  std::string_view Handle;

  static auto Fields(auto& self) { return std::tie(self.Link, self.Enable, self.Handle); }
};

struct DeviceDoCmdArguments {
  std::int32_t Link = 0;
  std::int32_t Flags = 0;
  std::uint32_t IoTimeout = 0;
  std::uint32_t LockTimeout = 0;
  std::int32_t Command = 0;
  bool NetworkOrder = false;
  /// Of one datum, in bytes.
  std::int32_t DataSize = 0;
  std::string_view Data;

  static auto Fields(auto& self) {
    return std::tie(self.Link, self.Flags, self.IoTimeout, self.LockTimeout, self.Command, self.NetworkOrder,
                    self.DataSize, self.Data);
  }
};

struct DeviceDoCmdResult {
  Vxi11::Error Error = Vxi11::Error::None;
  std::string_view Data;

  static auto Fields(auto& self) { return std::tie(self.Error, self.Data); }
};

/// The arguments of DeviceUnlock, DestroyLink and DeviceAbort.
struct LinkArguments {
  std::int32_t Link = 0;

  static auto Fields(auto& self) { return std::tie(self.Link); }
};

/// The result of all others.
struct ErrorResult {
  Vxi11::Error Error = Vxi11::Error::None;

  static auto Fields(auto& self) { return std::tie(self.Error); }
};

} // namespace Vxi11
} // namespace portico::wire
