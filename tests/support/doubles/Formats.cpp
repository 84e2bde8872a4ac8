#include "support/doubles/Formats.h"

#include <cstdint>
#include <optional>

namespace portico::test {

std::string FormatText(const SelectionFormat& format) {
  std::string text;
  const auto number = [&](const char* name, const auto& value) {
    if (value) text += std::string(text.empty() ? "" : " ") + name + "=" + std::to_string(*value);
  };
  number("alignment", format.SelAlignment);
  number("bold", format.SelBold);
  number("bullet", format.SelBullet);
  number("offset", format.SelCharOffset);
  if (format.SelColor) {
    text += std::string(text.empty() ? "" : " ") + "color=" + ToUtf8(ToHexText(std::uint32_t(*format.SelColor)));
  }
  if (format.SelFontName) text += " font=" + ToUtf8(*format.SelFontName);
  if (format.SelFontSize) text += " size=" + ToUtf8(ToText(*format.SelFontSize));
  number("hanging", format.SelHangingIndent);
  number("indent", format.SelIndent);
  number("italic", format.SelItalic);
  number("right", format.SelRightIndent);
  number("strike", format.SelStrikeThru);
  number("underline", format.SelUnderline);
  return text;
}

namespace Formats {
namespace {

template <class T>
void Take(std::optional<T>& value, const std::optional<T>& change) {
  if (change) value = change;
}
template <class T>
void Keep(std::optional<T>& value, const std::optional<T>& other) {
  if (value != other) value.reset();
}
template <class Do>
void Each(SelectionFormat& a, const SelectionFormat& b, Do&& act) {
  act(a.SelAlignment, b.SelAlignment);
  act(a.SelBullet, b.SelBullet);
  act(a.SelHangingIndent, b.SelHangingIndent);
  act(a.SelIndent, b.SelIndent);
  act(a.SelRightIndent, b.SelRightIndent);
  act(a.SelBold, b.SelBold);
  act(a.SelCharOffset, b.SelCharOffset);
  act(a.SelColor, b.SelColor);
  act(a.SelFontName, b.SelFontName);
  act(a.SelFontSize, b.SelFontSize);
  act(a.SelItalic, b.SelItalic);
  act(a.SelStrikeThru, b.SelStrikeThru);
  act(a.SelUnderline, b.SelUnderline);
}

} // namespace

SelectionFormat Standard() {
  SelectionFormat format;
  format.SelAlignment = format.SelHangingIndent = format.SelIndent = format.SelRightIndent = 0;
  format.SelCharOffset = format.SelColor = 0;
  format.SelBullet = format.SelBold = format.SelItalic = format.SelStrikeThru = format.SelUnderline = false;
  format.SelFontName = u"Standard";
  format.SelFontSize = 10;
  return format;
}

void Apply(SelectionFormat& format, const SelectionFormat& changes) {
  Each(format, changes, [](auto& value, const auto& change) { Take(value, change); });
}

void Intersect(SelectionFormat& format, const SelectionFormat& other) {
  Each(format, other, [](auto& value, const auto& its) { Keep(value, its); });
}

} // namespace Formats
} // namespace portico::test
