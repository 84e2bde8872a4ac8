#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace portico::wire {

/// A record that names its fields in the order of the wire, by a static function `Fields(self)` that ties them. That
/// one list serves both directions.
template <typename T>
concept XdrRecord = requires(T& record) {
  T::Fields(record);
};

/// Appends values as XDR: each takes a multiple of four bytes, most significant byte first. What is put has exactly the
/// type of a field; nothing is converted on the way.
class XdrWriter {
public:
  /// `bytes` belongs to the caller and outlives the writer.
  explicit XdrWriter(std::string& bytes) : m_bytes(bytes) {}

  void Put(std::uint32_t value);
  void Put(std::int32_t value);
  void Put(std::uint16_t value);
  void Put(std::uint8_t value);
  void Put(bool value);
  /// Text or any other bytes, of which XDR counts 32 bits at most.
  void Put(std::string_view value);

  template <typename T>
  requires std::is_enum_v<T>
  void Put(T value) { Put(static_cast<std::underlying_type_t<T>>(value)); }

  template <XdrRecord T>
  void Put(const T& record) {
    std::apply([this](const auto&... fields) { (this->Put(fields), ...); }, T::Fields(record));
  }

  template <typename T>
  void Put(const T*) = delete;

private:
  std::string& m_bytes;
};

/// Takes values as XDR off the front of bytes that are not copied: text points into them. The first value that is cut
/// off or out of its type's range fails the reader; from there on all values are 0 or empty.
class XdrReader {
public:
  explicit XdrReader(std::string_view bytes) : m_rest(bytes) {}

  /// Each answers whether the value was there; if not it is 0 or empty.
  bool Get(std::uint32_t& value);
  bool Get(std::int32_t& value);
  bool Get(std::uint16_t& value);
  /// Takes a byte whose sender has extended its sign, too: some take it for a signed character.
  bool Get(std::uint8_t& value);
  bool Get(bool& value);
  bool Get(std::string_view& value);

  /// A number that the enumeration does not name is kept as it is.
  template <typename T>
  requires std::is_enum_v<T>
  bool Get(T& value) {
    std::underlying_type_t<T> number{};
    Get(number);
    value = static_cast<T>(number);
    return !m_failed;
  }

  template <XdrRecord T>
  bool Get(T& record) {
    std::apply([this](auto&... fields) { (this->Get(fields), ...); }, T::Fields(record));
    return !m_failed;
  }

  bool Failed() const { return m_failed; }

  /// What was not taken yet; empty after a failure.
  std::string_view Rest() const { return m_rest; }

  /// For what the types do not tell, such as a number that stands for nothing. Answers false.
  bool Fail();

private:
  std::string_view Take(std::size_t count);

  std::string_view m_rest;
  bool m_failed = false;
};

} // namespace portico::wire
