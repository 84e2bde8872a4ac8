#include "completion/LineReading.h"

#include "scpi/Syntax.h"

#include <algorithm>

namespace portico::completion {

void ForEachLine(std::string_view text, const std::function<void(std::string_view line, std::size_t number)>& take) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!std::all_of(line.begin(), line.end(), scpi::IsWhiteSpace)) take(line, number);
  }
}

} // namespace portico::completion
