#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace portico::terminal {

/// Why a line of command text is refused. Columns count characters from 1; bytes where the text is not UTF-8.
struct TextFault {
  std::size_t Line = 0;
  std::size_t Column = 0;
  std::string Reason;
};

/// One line of UTF-8 without its line end; a CR before the line end is part of the line end. Refused are bytes that are
/// not UTF-8, a bare CR, a zero character, a line that begins with U+001A (it would end the run), and characters that
/// the instrument's code page lacks, since they would go out as question marks and make a query of a command.
std::variant<String, TextFault> DecodeLine(std::string_view bytes, std::size_t lineNumber);

/// All lines of a file, the byte-order mark aside. A line end behind the last line makes no further line.
std::variant<std::vector<String>, TextFault> DecodeText(std::string_view bytes);

/// UTF-8's byte-order mark.
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

} // namespace portico::terminal
