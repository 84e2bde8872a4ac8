#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace portico::wire {

/// Writes `number` to the start of `place`, most significant byte first.
template <std::unsigned_integral T>
constexpr void StoreBigEndian(T number, char* place) {
  for (std::size_t i = sizeof(T); i > 0; --i) {
    place[i - 1] = static_cast<char>(static_cast<unsigned char>(number));
    if constexpr (sizeof(T) > 1) number >>= 8;
  }
}

template <std::unsigned_integral T>
constexpr void AppendBigEndian(std::string& bytes, T number) {
  char place[sizeof(T)];
  StoreBigEndian(number, place);
  bytes.append(place, sizeof place);
}

/// The number at the start of `bytes`, of which there are at least as many as it takes.
template <std::unsigned_integral T>
constexpr T LoadBigEndian(std::string_view bytes) {
  T number = 0;
  for (const char byte : bytes.substr(0, sizeof(T))) {
    if constexpr (sizeof(T) > 1) number <<= 8;
    number |= static_cast<unsigned char>(byte);
  }
  return number;
}

} // namespace portico::wire
