#include "document/encoders/CHexEncoder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>
#include <array>

namespace portico {
namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";
constexpr std::uint8_t NoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> DigitValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(NoDigit);
  for (std::size_t i = 0; i < Digits.size(); ++i) {
    const auto digit = static_cast<unsigned char>(Digits[i]);
    values[digit] = static_cast<std::uint8_t>(i);
    if (digit >= 'A') values[digit + 0x20U] = static_cast<std::uint8_t>(i);
  }
  return values;
}();

std::uint8_t DigitValue(char16_t character) { return character < 256 ? DigitValues[character] : NoDigit; }
std::uint8_t DigitValue(char character) { return DigitValues[static_cast<unsigned char>(character)]; }

template <class Text>
void AppendDigits(Text& text, const ByteArray& data) {
  const std::size_t start = text.size();
  text.resize(start + data.size() * 2);
  auto* out = text.data() + start;
  for (const std::uint8_t byte : data) {
    *out++ = static_cast<typename Text::value_type>(Digits[byte >> 4]);
    *out++ = static_cast<typename Text::value_type>(Digits[byte & 0xF]);
  }
}

/// The position of the first pair that is no byte; none if there is no such pair. The length is even.
template <class Text>
std::optional<std::size_t> ReadDigits(const Text& text, ByteArray& data) {
  data.resize(text.size() / 2);
  std::uint8_t bits = 0;
  auto digit = text.begin();
  for (auto& byte : data) {
    const std::uint8_t high = DigitValue(*digit++);
    const std::uint8_t low = DigitValue(*digit++);
    bits |= high | low;
    byte = static_cast<std::uint8_t>((high << 4) | low);
  }
  if (bits <= 0xF) return {};
  const auto bad = std::find_if(text.begin(), text.end(), [](auto each) { return DigitValue(each) > 0xF; });
  return static_cast<std::size_t>(bad - text.begin()) / 2 * 2;
}

} // namespace

String CHexEncoder::Encode(const ByteArray& Data) const try {
  String text;
  AppendDigits(text, Data);
  return text;
} catch (...) {
  PassOn(u"CHexEncoder.Encode(ByteArray)", {Data});
}

ByteArray CHexEncoder::Decode(const String& HexString) const try {
  // The two blanks are those of a number that keeps a place for its sign.
  HuntERR::Check(HexString.size() % 2 == 0, ErrorNumber::InvalidArgument,
                 u"The number of characters in hex string must be an even multiple of  2.");
  if (HexString.empty()) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
  ByteArray data;
  if (const auto bad = ReadDigits(HexString, data)) HexTuple2Byte(HexString.substr(*bad, 2));
  return data;
} catch (...) {
  PassOn(u"CHexEncoder.Decode(HexString)", {HexString});
}

std::uint8_t CHexEncoder::HexTuple2Byte(const String& HexString) try {
  HuntERR::Check(HexString.size() == 1 || HexString.size() == 2, ErrorNumber::InvalidArgument,
                 u"Hex string must be one or two characters long.");
  unsigned value = 0;
  unsigned weight = 1;
  for (std::size_t i = HexString.size(); i > 0; --i, weight *= 16) {
    HuntERR::Check(IsHexDigit(HexString[i - 1]), ErrorNumber::InvalidArgument,
                   u"Hex string can only contain hexidecimal digits, 0-9, A-F, and a-f.");
    value += weight * DigitValue(HexString[i - 1]);
  }
  return static_cast<std::uint8_t>(value);
} catch (...) {
  PassOn(u"CHexEncoder.HexTuple2Byte(HexString)", {HexString});
}

bool CHexEncoder::IsHexDigit(char16_t character) { return DigitValue(character) != NoDigit; }

void CHexEncoder::AppendEncoded(std::string& text, const ByteArray& data) { AppendDigits(text, data); }

std::optional<ByteArray> CHexEncoder::TryDecode(std::string_view text) {
  ByteArray data;
  if (text.empty() || text.size() % 2 != 0 || ReadDigits(text, data)) return {};
  return data;
}

} // namespace portico
