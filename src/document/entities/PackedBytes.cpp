#include "document/entities/PackedBytes.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace portico {
namespace {

constexpr std::uint32_t MostBytes = 0x7FFFFFFF;

/// As text whose units are below 256 is, in UTF-16 little-endian.
bool IsNarrowText(const ByteArray& bytes) {
  if (bytes.size() % 2 != 0) return false;
  std::uint8_t bits = 0;
  for (std::size_t i = 1; i < bytes.size(); i += 2) bits |= bytes[i];
  return bits == 0;
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
  ByteArray bytes(m_body->Size);
  for (std::size_t i = 0; i < m_body->Kept(); ++i) bytes[2 * i] = kept[i];
  return bytes;
}

bool operator==(const PackedBytes& a, const PackedBytes& b) {
  if (a.m_body == nullptr || b.m_body == nullptr) return a.m_body == b.m_body;
  return a.m_body->Size == b.m_body->Size && a.m_body->Halved == b.m_body->Halved &&
         std::memcmp(a.m_body->Bytes(), b.m_body->Bytes(), a.m_body->Kept()) == 0;
}

} // namespace portico
