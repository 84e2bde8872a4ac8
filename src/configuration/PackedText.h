#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace portico {

/// A text that is kept in great numbers: never changed, shared by its copies, as large as a pointer, and with one byte
/// for each unit if all of them are below 256. Its copies count without protection, like `Ref` for one thread.
class PackedText {
public:
  PackedText() = default;
  explicit PackedText(StringView text);
  PackedText(const PackedText& other) noexcept : m_body(other.m_body) {
    if (m_body != nullptr) ++m_body->Owners;
  }
  PackedText(PackedText&& other) noexcept : m_body(std::exchange(other.m_body, nullptr)) {}
  PackedText& operator=(PackedText other) noexcept {
    std::swap(m_body, other.m_body);
    return *this;
  }
  ~PackedText() {
    if (m_body != nullptr && --m_body->Owners == 0) Free(m_body);
  }

  std::size_t Length() const { return m_body == nullptr ? 0 : m_body->Length; }
  char16_t operator[](std::size_t at) const {
    return m_body->Wide ? m_body->Units<char16_t>()[at] : m_body->Units<std::uint8_t>()[at];
  }
  String ToString() const;

  bool Equals(StringView other) const;
  friend bool operator==(const PackedText& a, const PackedText& b) { return a.m_body == b.m_body || a.EqualsUnits(b); }

private:
  /// What the units stand behind.
  struct Body {
    template <class Unit>
    Unit* Units() {
      return reinterpret_cast<Unit*>(this + 1);
    }
    std::uint32_t Owners;
    std::uint32_t Wide : 1;
    std::uint32_t Length : 31;
  };

  bool EqualsUnits(const PackedText& other) const;
  static void Free(Body* body) noexcept;

  Body* m_body = nullptr; // null for an empty text
};

/// Case is ignored as in `EqualNoCase` of texts.
bool EqualNoCase(const PackedText& a, const PackedText& b);
bool EqualNoCase(const PackedText& a, StringView b);

/// The text; short ones that have come up lately, as names do, are shared.
PackedText Shared(StringView text);

} // namespace portico
