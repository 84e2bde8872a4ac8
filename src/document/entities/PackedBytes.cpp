#include "document/entities/PackedBytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <new>

namespace portico {
namespace {

constexpr std::uint32_t MostBytes = 0x7FFFFFFF;

/// As text whose units are below 256 is, in UTF-16 little-endian.
bool IsNarrowText(const ByteArray& bytes) {
  if (bytes.size() % 2 != 0) return false;
  using Word = std::uint64_t;
  constexpr auto highBytes =
      std::bit_cast<Word>(std::array<std::uint8_t, sizeof(Word)>{0, 255, 0, 255, 0, 255, 0, 255});
  Word bits = 0;
  std::size_t at = 0;
  for (; at + sizeof(Word) <= bytes.size(); at += sizeof(Word)) {
    Word word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    bits |= word;
  }
  Word rest = 0;
  std::copy(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(), reinterpret_cast<std::uint8_t*>(&rest));
  return ((bits | rest) & highBytes) == 0;
}

} // namespace

PackedBytes::PackedBytes(const ByteArray& bytes) {
  if (bytes.empty()) return;
  const bool halved = IsNarrowText(bytes);
  const std::size_t kept = halved ? bytes.size() / 2 : bytes.size();
  m_body.reset(new (::operator new(sizeof(Body) + kept))
                   Body{halved, MostBytes & static_cast<std::uint32_t>(bytes.size())});
  std::uint8_t* out = m_body->Bytes();
  if (halved) {
    for (std::size_t i = 0; i < kept; ++i) out[i] = bytes[2 * i];
  } else {
    std::copy(bytes.begin(), bytes.end(), out);
  }
}

ByteArray PackedBytes::ToBytes() const {
  if (m_body == nullptr) return {};
  const std::uint8_t* kept = m_body->Bytes();
  if (!m_body->Halved) return {kept, kept + m_body->Size};
  return portico::ToBytes(ToText());
}

String PackedBytes::ToText() const {
  if (m_body == nullptr) return {};
  const std::uint8_t* kept = m_body->Bytes();
  return m_body->Halved ? String(kept, kept + m_body->Kept()) : FromBytes(ToBytes());
}

bool operator==(const PackedBytes& a, const PackedBytes& b) {
  if (a.m_body == nullptr || b.m_body == nullptr) return a.m_body == b.m_body;
  return a.m_body->Size == b.m_body->Size && a.m_body->Halved == b.m_body->Halved &&
         std::memcmp(a.m_body->Bytes(), b.m_body->Bytes(), a.m_body->Kept()) == 0;
}

} // namespace portico
