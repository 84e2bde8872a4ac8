#pragma once

#include "numbers/Fault.h"
#include "numbers/NumberList.h"

#include <cstdint>
#include <string_view>
#include <variant>

namespace portico::numbers {

enum class ElementType : std::uint8_t { Int8, UInt8, Int16, UInt16, Int32, UInt32, Float32, Float64 };

/// Which byte of an element comes first in a block.
enum class ByteOrder : bool { MostSignificantFirst, LeastSignificantFirst };

/// How the elements of a block stand in it.
struct ElementFormat {
  ElementType Type = ElementType::UInt8;
  ByteOrder Order = ByteOrder::MostSignificantFirst;

  bool operator==(const ElementFormat&) const = default;
};

/// Of one element, in bytes.
std::size_t SizeOf(ElementType type);

/// The elements in the bytes of a block. Of a float NaN is a gap and an infinity an overload, and so are the numbers
/// that stand for them in text. The fault tells bytes that are no multiple of the element's size.
std::variant<Values, Fault> ReadElements(std::string_view bytes, ElementFormat format);

/// The elements of the block that the answer is, as ReadBlock has it.
std::variant<Values, Fault> ReadBlockNumbers(StringView answer, ElementFormat format);

} // namespace portico::numbers
