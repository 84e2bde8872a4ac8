#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace portico::wire {

/// What a HiSLIP message is. The "asynchronous" channel is the second connection; those without "Async" go on the
/// first.
enum class HislipType : std::uint8_t {
  Initialize = 0,
  InitializeResponse = 1,
  FatalError = 2,
  Error = 3,
  AsyncLock = 4,
  AsyncLockResponse = 5,
  Data = 6,
  DataEnd = 7,
  DeviceClearComplete = 8,
  DeviceClearAcknowledge = 9,
  AsyncRemoteLocalControl = 10,
  AsyncRemoteLocalResponse = 11,
  Trigger = 12,
  Interrupted = 13,
  AsyncInterrupted = 14,
  AsyncMaximumMessageSize = 15,
  AsyncMaximumMessageSizeResponse = 16,
  AsyncInitialize = 17,
  AsyncInitializeResponse = 18,
  AsyncDeviceClear = 19,
  AsyncServiceRequest = 20,
  AsyncStatusQuery = 21,
  AsyncStatusResponse = 22,
  AsyncDeviceClearAcknowledge = 23,
  AsyncLockInfo = 24,
  AsyncLockInfoResponse = 25,
};

/// Bits and values of the control code.
namespace HislipControl {
/// InitializeResponse, and the feature bits of a device clear: the instrument prefers overlapped mode.
inline constexpr std::uint8_t Overlapped = 1;
/// InitializeResponse of version 2.0.
inline constexpr std::uint8_t EncryptionMandatory = 2;
inline constexpr std::uint8_t InitialEncryption = 4;
/// Data, DataEnd, Trigger and AsyncStatusQuery of a client: the answer before was taken whole.
inline constexpr std::uint8_t ResponseDelivered = 1;
/// AsyncRemoteLocalControl: the front panel works again, and the next command takes it over again.
inline constexpr std::uint8_t GoToLocal = 6;
} // namespace HislipControl

/// The control code of a FatalError, after which both connections are closed.
enum class HislipFatal : std::uint8_t {
  Unidentified = 0,
  BadHeader = 1,
  ChannelsMissing = 2,
  BadInitialization = 3,
  TooManyClients = 4,
  SecureConnectionFailed = 5,
};

/// The control code of an Error, behind which all goes on.
enum class HislipError : std::uint8_t {
  Unidentified = 0,
  UnknownType = 1,
  UnknownControlCode = 2,
  UnknownVendorMessage = 3,
  TooLarge = 4,
  AuthenticationFailed = 5,
};

/// What the code means, in a few words without a full stop. Those that have no meaning are unidentified errors.
std::string_view HislipErrorText(HislipFatal code);
std::string_view HislipErrorText(HislipError code);

/// 1.0, as Initialize and its response have it.
inline constexpr std::uint16_t HislipVersion1 = 0x0100;
/// Two letters of the maker's, as both sides tell them.
inline constexpr std::uint16_t HislipVendorId = 0x5456;
/// The ids that a client gives to its messages begin here, at the opening and after each device clear.
inline constexpr std::uint32_t HislipFirstMessageId = 0xFFFFFF00;
inline constexpr std::uint32_t HislipMessageIdStep = 2;
/// On the Data messages of an answer: the id comes with its DataEnd.
inline constexpr std::uint32_t HislipIdFollows = 0xFFFFFFFF;

inline constexpr std::size_t HislipHeaderSize = 16;
/// Sub-addresses and lock strings, in bytes.
inline constexpr std::size_t HislipLongestText = 256;

struct HislipHeader {
  HislipType Type = HislipType::Initialize;
  std::uint8_t Control = 0;
  std::uint32_t Parameter = 0;
  /// In bytes, behind the header.
  std::uint64_t PayloadLength = 0;

  bool operator==(const HislipHeader&) const = default;
};

/// The parameter of Initialize and its response: a version, and the vendor's id or the session's.
constexpr std::uint32_t HislipVersionAnd(std::uint16_t version, std::uint16_t id) {
  return std::uint32_t{version} << 16 | id;
}

/// The message as it is sent.
std::string HislipMessage(HislipType type, std::uint8_t control, std::uint32_t parameter,
                          std::string_view payload = {});
std::string HislipMessage(HislipType type);

/// The header that the first HislipHeaderSize bytes of `bytes` are; nothing unless it begins as one must.
std::optional<HislipHeader> ReadHislipHeader(std::string_view bytes);

/// The payload of AsyncMaximumMessageSize and its response, and the size that it tells: nothing unless it is one.
std::string HislipSize(std::uint64_t size);
std::optional<std::uint64_t> ReadHislipSize(std::string_view payload);

} // namespace portico::wire
