#include "wire/HislipMessage.h"

#include "wire/BigEndian.h"

namespace portico::wire {
namespace {

constexpr std::string_view Prologue = "HS";

} // namespace

std::string_view HislipErrorText(HislipFatal code) {
  switch (code) {
  case HislipFatal::BadHeader:
    return "bad message header";
  case HislipFatal::ChannelsMissing:
    return "connection used before both channels exist";
  case HislipFatal::BadInitialization:
    return "bad initialization sequence";
  case HislipFatal::TooManyClients:
    return "too many clients";
  case HislipFatal::SecureConnectionFailed:
    return "secure connection failed";
  case HislipFatal::Unidentified:
    break;
  }
  return "unidentified error";
}

std::string_view HislipErrorText(HislipError code) {
  switch (code) {
  case HislipError::UnknownType:
    return "unknown message type";
  case HislipError::UnknownControlCode:
    return "unknown control code";
  case HislipError::UnknownVendorMessage:
    return "unknown vendor message";
  case HislipError::TooLarge:
    return "message too large";
  case HislipError::AuthenticationFailed:
    return "authentication failed";
  case HislipError::Unidentified:
    break;
  }
  return "unidentified error";
}

std::string HislipMessage(HislipType type, std::uint8_t control, std::uint32_t parameter, std::string_view payload) {
  std::string message;
  message.reserve(HislipHeaderSize + payload.size());
  message.append(Prologue);
  AppendBigEndian(message, static_cast<std::uint8_t>(type));
  AppendBigEndian(message, control);
  AppendBigEndian(message, parameter);
  AppendBigEndian(message, std::uint64_t{payload.size()});
  return message.append(payload);
}

std::string HislipMessage(HislipType type) { return HislipMessage(type, 0, 0); }

std::optional<HislipHeader> ReadHislipHeader(std::string_view bytes) {
  if (bytes.size() < HislipHeaderSize || !bytes.starts_with(Prologue)) return std::nullopt;
  HislipHeader header;
  header.Type = static_cast<HislipType>(LoadBigEndian<std::uint8_t>(bytes.substr(2)));
  header.Control = LoadBigEndian<std::uint8_t>(bytes.substr(3));
  header.Parameter = LoadBigEndian<std::uint32_t>(bytes.substr(4));
  header.PayloadLength = LoadBigEndian<std::uint64_t>(bytes.substr(8));
  return header;
}

std::string HislipSize(std::uint64_t size) {
  std::string payload;
  AppendBigEndian(payload, size);
  return payload;
}

std::optional<std::uint64_t> ReadHislipSize(std::string_view payload) {
  if (payload.size() != sizeof(std::uint64_t)) return std::nullopt;
  return LoadBigEndian<std::uint64_t>(payload);
}

} // namespace portico::wire
