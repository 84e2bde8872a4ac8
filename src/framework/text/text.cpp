#include "framework/text/text.h"

#include "framework/text/DecimalNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace portico {

StringView TrimLeft(StringView Text) {
  const auto first = Text.find_first_not_of(u' ');
  return first == StringView::npos ? StringView{} : Text.substr(first);
}

StringView TrimRight(StringView Text) {
  const auto last = Text.find_last_not_of(u' ');
  return last == StringView::npos ? StringView{} : Text.substr(0, last + 1);
}

StringView Trim(StringView Text) { return TrimRight(TrimLeft(Text)); }

char16_t FoldCase(char16_t Unit) {
  const auto lower = [Unit](int distance) { return static_cast<char16_t>(Unit + distance); };
  if (Unit < 0x80) return Unit >= u'A' && Unit <= u'Z' ? lower(32) : Unit;
  if (Unit >= 0xC0 && Unit <= 0xDE && Unit != 0xD7) return lower(32);
  if (Unit == 0x178) return 0xFF;
  if ((Unit >= 0x100 && Unit <= 0x137 && Unit != 0x130) || (Unit >= 0x14A && Unit <= 0x177)) return Unit | 1;
  if ((Unit >= 0x139 && Unit <= 0x148) || (Unit >= 0x179 && Unit <= 0x17E)) return Unit % 2 == 1 ? lower(1) : Unit;
  if (Unit >= 0x391 && Unit <= 0x3AB && Unit != 0x3A2) return lower(32);
  if (Unit >= 0x410 && Unit <= 0x42F) return lower(32);
  if (Unit >= 0x400 && Unit <= 0x40F) return lower(80);
  return Unit;
}

String ToUpper(StringView Text) {
  String upper(Text);
  for (char16_t& unit : upper) {
    const bool small = (unit >= u'a' && unit <= u'z') || (unit >= 0xE0 && unit <= 0xFE && unit != 0xF7);
    if (small) unit = static_cast<char16_t>(unit - 32);
  }
  return upper;
}

bool EqualNoCase(StringView A, StringView B) {
  if (A.size() != B.size()) return false;
  if (A.empty()) return true;
  if (std::memcmp(A.data(), B.data(), A.size() * sizeof(char16_t)) == 0) return true; // the usual case of equality
  return std::equal(A.begin(), A.end(), B.begin(),
                    [](char16_t a, char16_t b) { return a == b || FoldCase(a) == FoldCase(b); });
}

std::size_t HashNoCase::operator()(StringView Text) const {
  // Names that share a beginning are many here, and differ at the end: the last eight units and the length will do.
  std::array<char16_t, 8> tail{};
  const StringView last = Text.substr(Text.size() - std::min(Text.size(), tail.size()));
  std::copy(last.begin(), last.end(), tail.begin());
  auto words = std::bit_cast<std::array<std::uint64_t, 2>>(tail);
  constexpr std::uint64_t beyondAscii = 0xFF80FF80FF80FF80;
  if (((words[0] | words[1]) & beyondAscii) != 0) {
    std::transform(tail.begin(), tail.end(), tail.begin(), FoldCase);
    words = std::bit_cast<std::array<std::uint64_t, 2>>(tail);
  }
  // Bit 5 tells the case of an ASCII letter. Leaving it out makes other characters meet too, which a hash may do.
  constexpr std::uint64_t caseBits = 0x0020002000200020;
  constexpr std::uint64_t odd = 0x9E3779B97F4A7C15; // spreads neighbours far apart
  std::uint64_t hash = ((words[0] | caseBits) + Text.size()) * odd;
  hash = ((hash ^ (hash >> 32)) + (words[1] | caseBits)) * odd;
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

String ReplaceAll(StringView Text, StringView From, StringView To) {
  String result;
  result.reserve(Text.size());
  while (!From.empty()) {
    const auto found = Text.find(From);
    if (found == StringView::npos) break;
    result.append(Text.substr(0, found)).append(To);
    Text.remove_prefix(found + From.size());
  }
  return result.append(Text);
}

std::vector<StringView> Split(StringView Text, StringView Separator) {
  std::vector<StringView> pieces;
  for (;;) {
    const auto found = Text.find(Separator);
    pieces.push_back(Text.substr(0, found));
    if (found == StringView::npos) return pieces;
    Text.remove_prefix(found + Separator.size());
  }
}

String ToText(std::int64_t Number) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), Number).ptr;
  return {digits.data(), end};
}

String ToText(double Number) {
  // Whole values would otherwise take the exponent form as soon as it is the shorter one, such as 1e+05.
  constexpr double exactlyWhole = 9007199254740992.0; // two to the 53rd
  if (std::abs(Number) < exactlyWhole && std::trunc(Number) == Number) return ToText(static_cast<std::int64_t>(Number));
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), Number).ptr;
  return {digits.data(), end};
}

String ToHexText(std::uint32_t Number) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), Number, 16).ptr;
  return ToUpper(FromAscii({digits.data(), end}));
}

std::optional<double> ReadNumber(StringView Text) {
  if (!Text.empty() && Text.front() > u'9') return {}; // a name; nearly all texts that are asked are
  return ReadDecimal(ToUtf8(Trim(Text)));
}

std::optional<double> ReadDecimal(std::string_view Text) {
  const bool plus = Text.starts_with('+');
  if (plus) Text.remove_prefix(1); // from_chars does not take it
  // from_chars would take "inf", "nan" and a minus behind the plus as well; none of them is a number here.
  const auto start = !plus && Text.starts_with('-') ? 1U : 0U;
  if (Text.size() <= start || !((Text[start] >= '0' && Text[start] <= '9') || Text[start] == '.')) return {};
  double number = 0;
  const auto [end, fault] = std::from_chars(Text.data(), Text.data() + Text.size(), number);
  if (fault != std::errc{} || end != Text.data() + Text.size()) return {};
  return number;
}

namespace {

/// A unit with its lower byte first in memory, or the unit of such bytes.
char16_t LittleEndian(char16_t unit) {
  if constexpr (std::endian::native == std::endian::little) return unit;
  return static_cast<char16_t>(unit << 8 | unit >> 8);
}

} // namespace

ByteArray ToBytes(StringView Text) {
  ByteArray bytes(Text.size() * sizeof(char16_t));
  auto* to = bytes.data();
  for (const char16_t unit : Text) {
    const char16_t stored = LittleEndian(unit);
    std::memcpy(to, &stored, sizeof stored);
    to += sizeof stored;
  }
  return bytes;
}

String FromBytes(const ByteArray& Bytes) {
  String text(Bytes.size() / sizeof(char16_t), u'\0');
  if (!text.empty()) std::memcpy(text.data(), Bytes.data(), text.size() * sizeof(char16_t));
  std::transform(text.begin(), text.end(), text.begin(), LittleEndian);
  return text;
}

String FromAscii(std::string_view Text) { return {Text.begin(), Text.end()}; }

} // namespace portico
