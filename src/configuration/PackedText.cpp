#include "configuration/PackedText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <stdexcept>

namespace portico {
namespace {

constexpr std::uint32_t LongestText = 0x7FFFFFFF;

} // namespace

PackedText::PackedText(StringView text) {
  if (text.empty()) return;
  if (text.size() > LongestText) throw std::length_error("PackedText");
  char16_t bits = 0;
  for (const char16_t unit : text) bits |= unit;
  const bool wide = bits > 0xFF;
  void* memory = ::operator new(sizeof(Body) + text.size() * (wide ? sizeof(char16_t) : 1));
  m_body = new (memory) Body{1, wide, LongestText & static_cast<std::uint32_t>(text.size())};
  if (wide) {
    std::copy(text.begin(), text.end(), m_body->Units<char16_t>());
  } else {
    std::transform(text.begin(), text.end(), m_body->Units<std::uint8_t>(),
                   [](char16_t unit) { return static_cast<std::uint8_t>(unit); });
  }
}

void PackedText::Free(Body* body) noexcept { ::operator delete(body); }

String PackedText::ToString() const {
  if (m_body == nullptr) return {};
  if (m_body->Wide) return {m_body->Units<char16_t>(), m_body->Length};
  const auto* units = m_body->Units<std::uint8_t>();
  return {units, units + m_body->Length};
}

bool PackedText::Equals(StringView other) const {
  if (Length() != other.size()) return false;
  if (m_body == nullptr) return true;
  if (m_body->Wide) return other == StringView(m_body->Units<char16_t>(), m_body->Length);
  return std::equal(other.begin(), other.end(), m_body->Units<std::uint8_t>());
}

bool PackedText::EqualsUnits(const PackedText& other) const {
  if (m_body == nullptr || other.m_body == nullptr) return false; // the other one is not empty
  if (m_body->Length != other.m_body->Length || m_body->Wide != other.m_body->Wide) return false;
  const std::size_t bytes = m_body->Length * (m_body->Wide ? sizeof(char16_t) : 1);
  return std::memcmp(m_body->Units<std::uint8_t>(), other.m_body->Units<std::uint8_t>(), bytes) == 0;
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
  for (std::size_t i = 0; i < b.size(); ++i) {
    if (a[i] != b[i] && FoldCase(a[i]) != FoldCase(b[i])) return false;
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
