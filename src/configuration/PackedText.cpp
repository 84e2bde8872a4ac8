#include "configuration/PackedText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <stdexcept>

namespace portico {
namespace {

constexpr std::uint32_t LongestText = 0x3FFFFFFF;
constexpr std::uint8_t NoCode = 0xFF;

} // namespace

/// Of the units of `NumeralUnits` their place in it; of all others a number that has bits which no place has.
std::uint32_t PackedText::NumeralCode(char16_t unit) {
  constexpr std::uint32_t units = 256;
  static constexpr auto codes = [] {
    std::array<std::uint8_t, units> made{};
    made.fill(NoCode);
    for (std::uint8_t code = 0; code < 16; ++code) made[NumeralUnits[code]] = code;
    return made;
  }();
  return codes[unit % units] | (unit / units * units);
}

std::uint32_t PackedText::FormOf(StringView text) {
  std::uint32_t codes = 0;
  for (const char16_t unit : text) codes |= NumeralCode(unit);
  if (codes < NoCode) return Numeral;
  return codes > NoCode ? Wide : Narrow;
}

PackedText::PackedText(StringView text) {
  if (text.empty()) return;
  if (text.size() > LongestText) throw std::length_error("PackedText");
  const std::uint32_t form = FormOf(text);
  void* memory = ::operator new(sizeof(Body) + BytesOf(form, text.size()));
  m_body = new (memory) Body{1, form & 3U, LongestText & static_cast<std::uint32_t>(text.size())};
  auto* bytes = m_body->Units<std::uint8_t>();
  if (form == Wide) {
    std::copy(text.begin(), text.end(), m_body->Units<char16_t>());
  } else if (form == Narrow) {
    std::transform(text.begin(), text.end(), bytes, [](char16_t unit) { return static_cast<std::uint8_t>(unit); });
  } else {
    const std::size_t pairs = text.size() / 2;
    for (std::size_t i = 0; i < pairs; ++i) {
      bytes[i] = static_cast<std::uint8_t>(NumeralCode(text[2 * i]) | NumeralCode(text[2 * i + 1]) << 4);
    }
    if (text.size() % 2 != 0) bytes[pairs] = static_cast<std::uint8_t>(NumeralCode(text.back()));
  }
}

void PackedText::Free(Body* body) noexcept { ::operator delete(body); }

String PackedText::ToString() const {
  if (m_body == nullptr) return {};
  const auto* bytes = m_body->Units<std::uint8_t>();
  if (m_body->Form == Narrow) return {bytes, bytes + m_body->Length};
  if (m_body->Form == Wide) return {m_body->Units<char16_t>(), m_body->Length};
  String text(m_body->Length, u'\0');
  char16_t* to = text.data();
  for (const std::uint8_t* pair = bytes; pair < bytes + m_body->Length / 2; ++pair, to += 2) {
    to[0] = NumeralUnits[*pair & 0xF];
    to[1] = NumeralUnits[*pair >> 4];
  }
  if (m_body->Length % 2 != 0) *to = NumeralUnits[bytes[m_body->Length / 2] & 0xF];
  return text;
}

bool PackedText::Equals(StringView other) const {
  if (Length() != other.size()) return false;
  if (m_body == nullptr) return true;
  if (m_body->Form == Wide) return other == StringView(m_body->Units<char16_t>(), m_body->Length);
  if (m_body->Form == Narrow) return std::equal(other.begin(), other.end(), m_body->Units<std::uint8_t>());
  std::size_t at = 0;
  while (at < other.size() && (*this)[at] == other[at]) ++at;
  return at == other.size();
}

bool PackedText::EqualsUnits(const PackedText& other) const {
  if (m_body == nullptr || other.m_body == nullptr) return false; // the other one is not empty
  if (m_body->Length != other.m_body->Length || m_body->Form != other.m_body->Form) return false;
  return std::memcmp(m_body->Units<std::uint8_t>(), other.m_body->Units<std::uint8_t>(), m_body->Bytes()) == 0;
}

bool PackedText::DiffersInCase(const PackedText& other) const {
  if (m_body->Form == Numeral && other.m_body->Form == Numeral) return false; // which have letters of one case only
  for (std::size_t at = 0; at < Length(); ++at) {
    if (FoldCase((*this)[at]) != FoldCase(other[at])) return false;
  }
  return true;
}

bool EqualNoCase(const PackedText& a, StringView b) {
  if (a.Length() != b.size()) return false;
  if (a.Equals(b)) return true;
  for (std::size_t i = 0; i < b.size(); ++i) {
    if (FoldCase(a[i]) != FoldCase(b[i])) return false;
  }
  return true;
}

PackedText Shared(StringView text) {
  constexpr std::size_t longest = 32;
  constexpr std::size_t places = 64; // more names than are in use at a time; a clash only costs memory
  static std::array<PackedText, places> recent;
  if (text.empty() || text.size() > longest) return PackedText(text);
  std::size_t hash = text.size();
  for (const char16_t unit : text) hash = hash * 31 + unit;
  PackedText& place = recent[hash % places];
  if (!place.Equals(text)) place = PackedText(text);
  return place;
}

} // namespace portico
