#pragma once

#include <string>
#include <string_view>

namespace portico::logtool {

/// A field of a table by RFC 4180, quoted where it must be.
std::string CsvField(std::string_view text);

} // namespace portico::logtool
