#include "scpi/Block.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace portico::scpi {

std::optional<Block> TakeBlock(std::string_view& text) {
  if (text.size() < 2 || text[0] != '#' || !IsDigit(text[1])) return std::nullopt;
  const auto digits = static_cast<std::size_t>(text[1] - '0');
  const std::string_view number = text.substr(2, digits);
  std::size_t length = text.size() - 2; // of a block without a length
  if (digits > 0) {
    const auto result = std::from_chars(number.data(), number.data() + number.size(), length);
    if (number.size() < digits || result.ptr != number.data() + digits) return std::nullopt;
  }
  const std::string_view bytes = text.substr(2 + digits, length);
  text.remove_prefix(2 + digits + bytes.size());
  return Block{bytes, bytes.size() == length};
}

} // namespace portico::scpi
