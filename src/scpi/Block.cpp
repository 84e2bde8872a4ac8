#include "scpi/Block.h"

#include "scpi/BlockHeader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace portico::scpi {

std::optional<Block> TakeBlock(std::string_view& text) {
  if (!text.starts_with('#')) return std::nullopt;
  BlockHeader header;
  std::size_t at = 0;
  auto state = BlockHeader::State::Open;
  while (state == BlockHeader::State::Open) {
    if (++at == text.size()) return std::nullopt;
    state = header.Step(text[at]);
  }
  if (state == BlockHeader::State::None) return std::nullopt;
  const std::string_view rest = text.substr(at + 1);
  const std::uint64_t length = state == BlockHeader::State::Definite ? header.Length() : rest.size();
  const auto taken = static_cast<std::size_t>(std::min<std::uint64_t>(length, rest.size()));
  text.remove_prefix(at + 1 + taken);
  return Block{rest.substr(0, taken), taken == length};
}

} // namespace portico::scpi
