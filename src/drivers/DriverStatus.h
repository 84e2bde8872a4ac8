#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace portico::drivers {

/// What a driver function answers. The numbers and names never change; new ones are added at the end.
enum class DriverStatus : std::int32_t {
  Success = 0,
  InvalidSession = -1151001,
  InvalidResourceName = -1151002,
  UnsupportedInterface = -1151003,
  UnknownSimulatedDevice = -1151004,
  UnknownAttribute = -1151005,
  InvalidAttributeValue = -1151006,
  InvalidBuffer = -1151007,
  UnknownHost = -1151008,
  ConnectionRefused = -1151009,
  ConnectTimeout = -1151010,
  ConnectFailed = -1151011,
  ConnectionClosed = -1151012,
  ConnectionLost = -1151013,
  NotConnected = -1151014,
  WriteTimeout = -1151015,
  ReadTimeout = -1151016,
  Cancelled = -1151017,
  ProtocolError = -1151018,
  LibraryNotLoaded = -1151019,
  InternalError = -1151020,
  NotPossible = -1151021,
  GivenUp = -1151022,
};

/// As it crosses the seam of drivers.
constexpr std::int32_t Number(DriverStatus status) { return static_cast<std::int32_t>(status); }

/// How an operation ended, and the particulars that its message gives besides the status' own text.
struct DriverResult {
  DriverStatus Status = DriverStatus::Success;
  /// Without a full stop; empty if there is nothing to add.
  std::string Detail = {};

  bool Succeeded() const { return Status == DriverStatus::Success; }
};

/// Why there is no connection, of the failure that cost it: the detail for DriverStatus::NotConnected.
std::string ReasonFor(const DriverResult& failure);

/// Behind the peer in the detail of a time-out: why it was.
inline constexpr std::string_view LockedElsewhere = " (locked by another program; close the instrument there)";

/// Longest message, in bytes.
inline constexpr std::size_t MaxErrorMessage = 254;
/// What a caller of WriteErrorMessage provides: the message, a line feed and a zero byte.
inline constexpr std::size_t ErrorMessageBufferSize = MaxErrorMessage + 2;

/// The stable name, as in "TVSCPI_ERROR_READ_TIMEOUT"; empty for a number that is none of the driver's.
std::string_view StatusName(std::int32_t status);

/// One sentence, in 8-bit characters and without control characters, cut at MaxErrorMessage bytes.
std::string StatusMessage(std::int32_t status, std::string_view detail = {});

/// Whether a text is what `StatusMessage` says of a failure.
bool IsStatusMessage(std::string_view text);

/// Writes the message, a line feed and a zero byte to the start of `buffer` (of ErrorMessageBufferSize bytes).
void WriteErrorMessage(std::string_view message, char* buffer);

} // namespace portico::drivers
