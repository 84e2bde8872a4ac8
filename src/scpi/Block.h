#pragma once

#include <optional>
#include <string_view>

namespace portico::scpi {

/// The bytes of a block as IEEE 488.2 writes it: `#`, a digit that counts the digits of the length, the length, the
/// bytes; or `#0` and all that follows.
struct Block {
  std::string_view Bytes;
  bool Whole; ///< otherwise the text ended before the block
};

/// Takes a block off the front of a text; none, and nothing taken, where no block with a readable length begins.
std::optional<Block> TakeBlock(std::string_view& text);

} // namespace portico::scpi
