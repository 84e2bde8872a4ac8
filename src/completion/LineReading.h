#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace portico::completion {

/// Calls `take` for each line that holds more than white space, with its number from 1. A line ends in a line feed or a
/// carriage return and a line feed, which are left out, or with the text.
void ForEachLine(std::string_view text, const std::function<void(std::string_view line, std::size_t number)>& take);

} // namespace portico::completion
