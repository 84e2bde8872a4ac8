#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace portico {

/// An array of bytes that is kept in great numbers, as large as a pointer. Text takes one byte for each unit if all of
/// them are below 256.
class PackedBytes {
public:
  PackedBytes() = default;
  explicit PackedBytes(const ByteArray& bytes);

  /// Of the array.
  std::size_t Size() const { return m_body == nullptr ? 0 : m_body->Size; }
  ByteArray ToBytes() const;
  /// As UTF-16 little-endian; half a unit at the end is left out.
  String ToText() const;
  bool Equals(const ByteArray& bytes) const { return Size() == bytes.size() && ToBytes() == bytes; }
  friend bool operator==(const PackedBytes& a, const PackedBytes& b);

private:
  struct Body {
    std::uint8_t* Bytes() { return reinterpret_cast<std::uint8_t*>(this + 1); }
    std::size_t Kept() const { return Halved ? Size / 2 : Size; }
    std::uint32_t Halved : 1; // every other byte is zero, and is left out
    std::uint32_t Size : 31;
  };
  struct Free {
    void operator()(Body* body) const { ::operator delete(body); }
  };

  std::unique_ptr<Body, Free> m_body; // none for no bytes
};

} // namespace portico
