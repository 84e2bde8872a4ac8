#pragma once

#include "framework/text/text.h"
#include "support/doubles/Formats.h"

#include <cstddef>
#include <vector>

namespace portico::test {

/// A unit of text with a format of its own.
struct Cell {
  char16_t Unit;
  SelectionFormat Format;
};
using Cells = std::vector<Cell>;

String UnitsOf(const Cells& cells, std::size_t from, std::size_t count);

namespace Rtf {

Cells Formatted(StringView text, const SelectionFormat& format);
/// The fragment that these cells are given out as; formatting crosses from box to box in it.
String Remember(Cells cells);
/// The cells of a fragment that was given out or that an encoder made; other text stands as it is, in the format.
Cells Read(StringView fragment, const SelectionFormat& format);

} // namespace Rtf
} // namespace portico::test
