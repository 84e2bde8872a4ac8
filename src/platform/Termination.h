#pragma once

#include "framework/text/text.h"

#include <array>
#include <cstdint>
#include <optional>

namespace portico {

/// How a response message ends; the values are those of the attribute TVSCPI_ATTR_TERMCHAR. Where the transport marks
/// the end, that ends it whatever the value.
enum class Termination : std::int32_t {
  /// By the transport's mark alone or, on a plain stream of bytes, by a line feed. A line feed in front of the mark,
  /// too,
  /// belongs to the terminator, with a carriage return right before it.
  Auto = 0,
  LineFeed = 10,
  CarriageReturnLineFeed = 11,
  CarriageReturn = 13,
  LineFeedCarriageReturn = 14,
};

struct NamedTermination {
  StringView Name;
  Termination Value;
};

/// All of them, by the names that options and channel attributes use, in the order in which they are offered.
inline constexpr std::array<NamedTermination, 5> Terminations = {{
    {u"Auto", Termination::Auto},
    {u"CR", Termination::CarriageReturn},
    {u"LF", Termination::LineFeed},
    {u"CRLF", Termination::CarriageReturnLineFeed},
    {u"LFCR", Termination::LineFeedCarriageReturn},
}};

/// The termination that an attribute value stands for; none for any other value.
constexpr std::optional<Termination> ToTermination(std::int32_t value) {
  for (const NamedTermination& known : Terminations) {
    if (static_cast<std::int32_t>(known.Value) == value) return known.Value;
  }
  return std::nullopt;
}

} // namespace portico
