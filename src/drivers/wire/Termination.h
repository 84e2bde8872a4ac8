#pragma once

#include <cstdint>
#include <optional>

namespace portico::drivers {

/// How a response message ends; the values are those of the attribute TVSCPI_ATTR_TERMCHAR.
enum class Termination : std::int32_t {
  /// A line feed; a carriage return right before it belongs to the terminator.
  Auto = 0,
  LineFeed = 10,
  CarriageReturnLineFeed = 11,
  CarriageReturn = 13,
  LineFeedCarriageReturn = 14,
};

/// The termination that an attribute value stands for; none for any other value.
constexpr std::optional<Termination> ToTermination(std::int32_t value) {
  switch (static_cast<Termination>(value)) {
  case Termination::Auto:
  case Termination::LineFeed:
  case Termination::CarriageReturnLineFeed:
  case Termination::CarriageReturn:
  case Termination::LineFeedCarriageReturn:
    return static_cast<Termination>(value);
  }
  return std::nullopt;
}

} // namespace portico::drivers
