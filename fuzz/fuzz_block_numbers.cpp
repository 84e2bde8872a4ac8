#include "numbers/Block.h"
#include "numbers/BlockNumbers.h"

#include <cstdlib>

using namespace portico;
using numbers::ElementType;
using numbers::Fault;
using numbers::Values;

// The first byte picks the elements' type and order; the rest is an answer. Its block is a part of it, the same from
// the text as from the bytes, and holds as many numbers as there is room for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const numbers::ElementFormat format{static_cast<ElementType>(data[0] % 8),
                                      static_cast<numbers::ByteOrder>(data[0] / 8 % 2 == 1)};
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const String text = FromCodePage(bytes);
  const auto found = numbers::FindBlock(bytes);
  const auto block = numbers::ReadBlock(text);
  const auto read = numbers::ReadBlockNumbers(text, format);
  if (const auto* fault = std::get_if<Fault>(&found)) {
    if (fault->Place > bytes.size() || fault->Text.empty()) std::abort();
    if (!std::holds_alternative<Fault>(block) || !std::holds_alternative<Fault>(read)) std::abort();
    return 0;
  }
  const auto content = std::get<std::string_view>(found);
  if (!numbers::LooksLikeBlock(text) || content.size() > bytes.size()) std::abort();
  if (!std::holds_alternative<std::string>(block) || std::get<std::string>(block) != content) std::abort();
  const std::size_t element = numbers::SizeOf(format.Type);
  if (std::holds_alternative<Fault>(read) != (content.size() % element != 0)) std::abort();
  if (const auto* values = std::get_if<Values>(&read)) {
    if (values->size() != content.size() / element) std::abort();
  }
  return 0;
}
