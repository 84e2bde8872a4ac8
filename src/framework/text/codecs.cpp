#include "framework/text/text.h"

#include <algorithm>
#include <array>

namespace portico {
namespace {

// Bytes 0x80 to 0x9F of Windows-1252; everywhere else byte and character agree. The five bytes that the code page
// leaves undefined (81, 8D, 8F, 90, 9D) stand for themselves, so that a binary answer survives the crossing.
constexpr std::array<char16_t, 32> UpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> CodePageByte(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
  const auto* found = std::find(UpperControls.begin(), UpperControls.end(), unit);
  if (found == UpperControls.end()) return {};
  return static_cast<char>(0x80 + (found - UpperControls.begin()));
}

/// How many units at the front are ASCII, which every encoding here maps to the byte of the same number.
std::size_t AsciiLength(StringView text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
}

constexpr char16_t ReplacementCharacter = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendPoint(std::string& bytes, char32_t point) {
  const auto tail = [&](int shift) { bytes.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F))); };
  if (point < 0x80) {
    bytes.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    bytes.push_back(static_cast<char>(0xC0 | (point >> 6)));
    tail(0);
  } else if (point < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0 | (point >> 12)));
    tail(6);
    tail(0);
  } else {
    bytes.push_back(static_cast<char>(0xF0 | (point >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

/// Length and value of the well-formed sequence at the front; length 0 if there is none.
struct Sequence {
  std::size_t Length = 0;
  char32_t Point = 0;
};

Sequence FrontSequence(std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = at(0);
  if (lead < 0x80) return {1, lead};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return {};
  char32_t point = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0) != 0x80) return {};
    point = (point << 6) | (at(i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
  if (point < smallest[length] || point > 0x10FFFF || IsHighSurrogate(point) || IsLowSurrogate(point)) return {};
  return {length, point};
}

} // namespace

std::string ToUtf8(StringView Text) {
  std::string bytes;
  AppendUtf8(bytes, Text);
  return bytes;
}

void AppendUtf8(std::string& Bytes, StringView Text) {
  const std::size_t ascii = AsciiLength(Text);
  const std::size_t before = Bytes.size();
  Bytes.resize(before + ascii);
  std::transform(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(ascii),
                 Bytes.begin() + static_cast<std::ptrdiff_t>(before),
                 [](char16_t unit) { return static_cast<char>(unit); });
  for (std::size_t i = ascii; i < Text.size(); ++i) {
    char32_t point = Text[i];
    if (IsHighSurrogate(point) && i + 1 < Text.size() && IsLowSurrogate(Text[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (static_cast<char32_t>(Text[++i]) - 0xDC00);
    } else if (IsHighSurrogate(point) || IsLowSurrogate(point)) {
      point = ReplacementCharacter;
    }
    AppendPoint(Bytes, point);
  }
}

Utf8Text FromUtf8(std::string_view Bytes) {
  Utf8Text result;
  result.Text.reserve(Bytes.size());
  for (std::size_t at = 0; at < Bytes.size();) {
    const auto [length, point] = FrontSequence(Bytes.substr(at));
    if (length == 0) {
      if (!result.BadByte) result.BadByte = at;
      result.Text.push_back(ReplacementCharacter);
      ++at;
      continue;
    }
    if (point < 0x10000) {
      result.Text.push_back(static_cast<char16_t>(point));
    } else {
      result.Text.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
      result.Text.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
    at += length;
  }
  return result;
}

std::string ToCodePage(StringView Text) {
  std::string bytes;
  bytes.reserve(Text.size() + 2); // room for the line end that the sender appends
  const std::size_t ascii = AsciiLength(Text);
  bytes.assign(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(ascii));
  for (std::size_t i = ascii; i < Text.size(); ++i) {
    const bool pair = IsHighSurrogate(Text[i]) && i + 1 < Text.size() && IsLowSurrogate(Text[i + 1]);
    bytes.push_back(CodePageByte(Text[i]).value_or('?'));
    if (pair) ++i; // one character, one question mark
  }
  return bytes;
}

String FromCodePage(std::string_view Bytes) {
  String text(Bytes.size(), u'\0');
  std::transform(Bytes.begin(), Bytes.end(), text.begin(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte < 0xA0 ? UpperControls[byte - 0x80U] : static_cast<char16_t>(byte);
  });
  return text;
}

std::optional<std::size_t> FindOutsideCodePage(StringView Text) {
  const auto found = std::find_if(Text.begin(), Text.end(), [](char16_t unit) { return !CodePageByte(unit); });
  if (found == Text.end()) return {};
  return static_cast<std::size_t>(found - Text.begin());
}

} // namespace portico
