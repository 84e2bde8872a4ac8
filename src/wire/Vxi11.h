#pragma once

#include <cstdint>

namespace portico::wire {

/// The numbers that VXI-11's core and abort channels agree on.
namespace Vxi11 {

/// The version of both programs.
inline constexpr std::uint32_t Version = 1;

inline constexpr std::uint32_t CoreProgram = 0x0607AF;
enum class CoreProcedure : std::uint32_t {
  CreateLink = 10,
  DeviceWrite = 11,
  DeviceRead = 12,
  DeviceReadStb = 13,
  DeviceTrigger = 14,
  DeviceClear = 15,
  DeviceRemote = 16,
  DeviceLocal = 17,
  DeviceLock = 18,
  DeviceUnlock = 19,
  DeviceEnableSrq = 20,
  DeviceDoCmd = 22,
  DestroyLink = 23,
};

inline constexpr std::uint32_t AbortProgram = 0x0607B0;
enum class AbortProcedure : std::uint32_t { DeviceAbort = 1 };

enum class Error : std::int32_t {
  None = 0,
  Syntax = 1,
  DeviceNotAccessible = 3,
  InvalidLink = 4,
  Parameter = 5,
  ChannelNotEstablished = 6,
  NotSupported = 8,
  OutOfResources = 9,
  LockedByAnotherLink = 11,
  NoLockHeld = 12,
  IoTimeout = 15,
  Io = 17,
  InvalidAddress = 21,
  Abort = 23,
  ChannelAlreadyEstablished = 29,
};

/// Bits of the flags of a call.
namespace Flag {
inline constexpr std::int32_t WaitForLock = 0x01;
/// The message ends behind the bytes of a DeviceWrite.
inline constexpr std::int32_t End = 0x08;
/// DeviceRead ends at its termination character.
inline constexpr std::int32_t TerminationCharacterSet = 0x80;
} // namespace Flag

/// Bits of why a DeviceRead ended. Without any there is more to read.
namespace Reason {
inline constexpr std::int32_t RequestSizeReached = 0x01;
inline constexpr std::int32_t TerminationCharacterSeen = 0x02;
inline constexpr std::int32_t End = 0x04;
} // namespace Reason

} // namespace Vxi11
} // namespace portico::wire
