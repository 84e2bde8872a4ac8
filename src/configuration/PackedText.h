#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace portico {

/// A text that is kept in great numbers: never changed, shared by its copies, as large as a pointer. Units take half a
/// byte each in a time stamp or a number, one byte if all of them are below 256, else two. Its copies count without
/// protection, like `Ref` for one thread.
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
    if (m_body->Form == Numeral) return NumeralUnits[(m_body->Units<std::uint8_t>()[at / 2] >> (at % 2 * 4)) & 0xF];
    return m_body->Form == Wide ? m_body->Units<char16_t>()[at] : char16_t{m_body->Units<std::uint8_t>()[at]};
  }
  /// Shows every unit in order.
  template <class See>
  void ForEach(See see) const {
    if (m_body == nullptr) return;
    if (m_body->Form == Numeral) {
      const auto* codes = m_body->Units<std::uint8_t>();
      for (std::size_t at = 0; at < m_body->Length; ++at) see(NumeralUnits[(codes[at / 2] >> (at % 2 * 4)) & 0xF]);
    } else if (m_body->Form == Narrow) {
      for (std::size_t at = 0; at < m_body->Length; ++at) see(char16_t{m_body->Units<std::uint8_t>()[at]});
    } else {
      for (std::size_t at = 0; at < m_body->Length; ++at) see(m_body->Units<char16_t>()[at]);
    }
  }
  String ToString() const;

  bool Equals(StringView other) const;
  /// Of another text of that length: it differs, and in nothing but case.
  bool DiffersInCase(const PackedText& other) const;
  friend bool operator==(const PackedText& a, const PackedText& b) { return a.m_body == b.m_body || a.EqualsUnits(b); }

private:
  static constexpr std::uint32_t Numeral = 0;
  static constexpr std::uint32_t Narrow = 1;
  static constexpr std::uint32_t Wide = 2;
  static constexpr char16_t NumeralUnits[] = u"0123456789-T:.+ ";

  /// What the units stand behind.
  struct Body {
    template <class Unit>
    Unit* Units() {
      return reinterpret_cast<Unit*>(this + 1);
    }
    std::size_t Bytes() const { return BytesOf(Form, Length); }
    std::uint32_t Owners;
    std::uint32_t Form : 2;
    std::uint32_t Length : 30;
  };

  static std::size_t BytesOf(std::uint32_t form, std::size_t length) {
    return form == Numeral ? (length + 1) / 2 : length * form;
  }
  static std::uint32_t FormOf(StringView text);
  static std::uint32_t NumeralCode(char16_t unit);
  bool EqualsUnits(const PackedText& other) const;
  static void Free(Body* body) noexcept;

  Body* m_body = nullptr; // null for an empty text
};

/// Case is ignored as in `EqualNoCase` of texts.
inline bool EqualNoCase(const PackedText& a, const PackedText& b) {
  return a.Length() == b.Length() && (a == b || a.DiffersInCase(b));
}
bool EqualNoCase(const PackedText& a, StringView b);

/// The text; short ones that have come up lately, as names do, are shared.
PackedText Shared(StringView text);

/// A name beside the form in which it is kept in great numbers. Made once for names that are looked up often, of a text
/// that outlives it.
struct KeptName {
  explicit KeptName(StringView text) : Text(text), Packed(Shared(text)) {}
  StringView Text;
  PackedText Packed;
};

} // namespace portico
