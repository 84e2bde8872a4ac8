#include "support/doubles/Cells.h"

#include <cstdint>
#include <utility>

namespace portico::test {
namespace {

constexpr StringView Given = u"{\\rtf1\\given";

/// What boxes have given out, each under its number.
std::vector<Cells>& Store() {
  static std::vector<Cells> store;
  return store;
}

} // namespace

String UnitsOf(const Cells& cells, std::size_t from, std::size_t count) {
  String text;
  for (std::size_t i = from; i < from + count; ++i) text.push_back(cells[i].Unit);
  return text;
}

namespace Rtf {

Cells Formatted(StringView text, const SelectionFormat& format) {
  Cells cells;
  for (const char16_t unit : text) cells.push_back({unit, format});
  return cells;
}

String Remember(Cells cells) {
  Store().push_back(std::move(cells));
  return String(Given) + ToText(static_cast<std::int64_t>(Store().size() - 1)) + u"}";
}
Cells Read(StringView fragment, const SelectionFormat& format) {
  static constexpr StringView header = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";
  if (fragment.substr(0, Given.size()) == Given) {
    const auto number = ReadNumber(fragment.substr(Given.size(), fragment.size() - Given.size() - 1));
    return Store().at(static_cast<std::size_t>(number.value()));
  }
  if (fragment.substr(0, header.size()) != header) return Formatted(fragment, format);
  String text;
  for (const char16_t unit : ReplaceAll(fragment.substr(header.size()), u"\\par ", u"\u0001")) {
    if (unit == u'\u0001') {
      text += NewLine;
    } else if (unit != u'\r' && unit != u'\n' && unit != u'{' && unit != u'}') {
      text += unit;
    }
  }
  return Formatted(text, format);
}

} // namespace Rtf
} // namespace portico::test
