#include "configuration/PackedText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <stdexcept>

namespace portico {
namespace {

constexpr std::uint32_t LongestText = 0x3FFFFFFF;
constexpr std::size_t AsciiUnits = 128;
constexpr std::uint8_t NoCode = 0xFF;

} // namespace

std::uint8_t PackedText::NumeralCode(char16_t unit) {
  static constexpr auto codes = [] {
    std::array<std::uint8_t, AsciiUnits> made{};
    made.fill(NoCode);
    for (std::uint8_t code = 0; code < 16; ++code) made[NumeralUnits[code]] = code;
    return made;
  }();
  return unit < AsciiUnits ? codes[unit] : NoCode;
}

std::uint32_t PackedText::FormOf(StringView text) {
  char16_t bits = 0;
  unsigned codes = 0;
  for (const char16_t unit : text) {
    bits |= unit;
    codes |= NumeralCode(unit);
  }
  if (codes != NoCode) return Numeral; // which has bits that no code has
  return bits > 0xFF ? Wide : Narrow;
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
    for (std::size_t i = 0; i < text.size(); i += 2) {
      const std::uint8_t second = i + 1 < text.size() ? NumeralCode(text[i + 1]) : 0;
      bytes[i / 2] = static_cast<std::uint8_t>(NumeralCode(text[i]) | second << 4);
    }
  }
}

void PackedText::Free(Body* body) noexcept { ::operator delete(body); }

String PackedText::ToString() const {
  if (m_body == nullptr) return {};
  if (m_body->Form == Wide) return {m_body->Units<char16_t>(), m_body->Length};
  String text(m_body->Length, u'\0');
  ForEach([unit = text.data()](char16_t each) mutable { *unit++ = each; });
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

bool EqualNoCase(const PackedText& a, const PackedText& b) {
  if (a == b) return true;
  if (a.Length() != b.Length()) return false;
  for (std::size_t i = 0; i < a.Length(); ++i) {
    if (FoldCase(a[i]) != FoldCase(b[i])) return false;
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
