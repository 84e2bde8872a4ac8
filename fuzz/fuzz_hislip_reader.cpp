#include "wire/HislipReader.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

using namespace portico::wire;

namespace {

struct Message {
  HislipHeader Header;
  std::string Payload;
  bool Whole = false;
  bool TooLarge = false;

  bool operator==(const Message&) const = default;
};

struct Outcome {
  std::vector<Message> Messages;
  bool Broken = false;

  bool operator==(const Outcome&) const = default;
};

Outcome Read(std::uint64_t longest, std::string_view stream, std::size_t size) {
  HislipReader reader(longest);
  Outcome outcome;
  for (std::size_t at = 0; at < stream.size() && !reader.Broken(); at += size) {
    std::string_view bytes = stream.substr(at, size);
    while (const auto piece = reader.Next(bytes)) {
      std::vector<Message>& messages = outcome.Messages;
      if (messages.empty() || messages.back().Whole) messages.push_back({piece->Header, {}});
      Message& message = messages.back();
      message.Payload += piece->Payload;
      message.Whole = piece->Last;
      message.TooLarge = piece->TooLarge;
      if (message.Header != piece->Header || message.Payload.size() > longest) std::abort();
    }
    if (!bytes.empty() && !reader.Broken()) std::abort();
  }
  outcome.Broken = reader.Broken();
  return outcome;
}

/// How much of its payload a message that is whole has brought.
std::uint64_t LengthOfWhole(const Message& message) {
  if (message.TooLarge) return 0;
  const std::uint64_t length = message.Header.PayloadLength;
  const bool data = message.Header.Type == HislipType::Data || message.Header.Type == HislipType::DataEnd;
  return data ? length : std::min<std::uint64_t>(length, HislipLongestText);
}

} // namespace

// However a stream is cut, it brings the same messages, and those that come whole are written as they were read. The
// first byte picks the longest payload, the second the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::uint64_t longest = data[0] * std::uint64_t{8};
  const std::string_view stream(reinterpret_cast<const char*>(data) + 2, size - 2);
  const Outcome whole = Read(longest, stream, stream.size());
  if (Read(longest, stream, 1) != whole || Read(longest, stream, data[1] + 1U) != whole) std::abort();
  std::string written;
  for (const Message& message : whole.Messages) {
    if (message.TooLarge != (message.Header.PayloadLength > longest)) std::abort();
    if (message.Whole && message.Payload.size() != LengthOfWhole(message)) std::abort();
    if (message.Payload.size() != message.Header.PayloadLength) break;
    written += HislipMessage(message.Header.Type, message.Header.Control, message.Header.Parameter, message.Payload);
  }
  if (!stream.starts_with(written)) std::abort();
  return 0;
}
