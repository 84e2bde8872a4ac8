#include "numbers/BlockNumbers.h"

#include "numbers/Block.h"
#include "numbers/SpecialValues.h"
#include "numbers/Syntax.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <type_traits>

namespace portico::numbers {
namespace {

constexpr std::endian OrderOf(ByteOrder order) {
  return order == ByteOrder::MostSignificantFirst ? std::endian::big : std::endian::little;
}

template <class Element>
Element Load(const char* bytes, bool turned) {
  std::array<char, sizeof(Element)> place{};
  std::memcpy(place.data(), bytes, place.size());
  if (turned) std::reverse(place.begin(), place.end());
  return std::bit_cast<Element>(place);
}

template <class Element>
Values Convert(std::string_view bytes, ByteOrder order) {
  const bool turned = OrderOf(order) != std::endian::native;
  Values values(bytes.size() / sizeof(Element));
  const char* next = bytes.data();
  for (double& value : values) {
    value = static_cast<double>(Load<Element>(next, turned));
    if constexpr (std::is_floating_point_v<Element>) value = ValueOf(value);
    next += sizeof(Element);
  }
  return values;
}

} // namespace

std::size_t SizeOf(ElementType type) {
  switch (type) {
  case ElementType::Int8:
  case ElementType::UInt8:
    return 1;
  case ElementType::Int16:
  case ElementType::UInt16:
    return 2;
  case ElementType::Int32:
  case ElementType::UInt32:
  case ElementType::Float32:
    return 4;
  case ElementType::Float64:
    break;
  }
  return 8;
}

std::variant<Values, Fault> ReadElements(std::string_view bytes, ElementFormat format) {
  const std::size_t size = SizeOf(format.Type);
  if (const std::size_t over = bytes.size() % size; over != 0) {
    return Fault{bytes.size() - over, u"The block's " + Counted(bytes.size()) + u" bytes are no multiple of the " +
                                          Counted(size) + u" that each number takes."};
  }
  switch (format.Type) {
  case ElementType::Int8:
    return Convert<std::int8_t>(bytes, format.Order);
  case ElementType::UInt8:
    return Convert<std::uint8_t>(bytes, format.Order);
  case ElementType::Int16:
    return Convert<std::int16_t>(bytes, format.Order);
  case ElementType::UInt16:
    return Convert<std::uint16_t>(bytes, format.Order);
  case ElementType::Int32:
    return Convert<std::int32_t>(bytes, format.Order);
  case ElementType::UInt32:
    return Convert<std::uint32_t>(bytes, format.Order);
  case ElementType::Float32:
    return Convert<float>(bytes, format.Order);
  case ElementType::Float64:
    break;
  }
  return Convert<double>(bytes, format.Order);
}

std::variant<Values, Fault> ReadBlockNumbers(StringView answer, ElementFormat format) {
  const auto block = ReadBlock(answer);
  if (const auto* fault = std::get_if<Fault>(&block)) return *fault;
  return ReadElements(std::get<std::string>(block), format);
}

} // namespace portico::numbers
