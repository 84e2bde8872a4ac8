#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico {

/// All text of the system: positions, lengths and data count UTF-16 units.
using String = std::u16string;
using StringView = std::u16string_view;

/// A run of unsigned bytes.
using ByteArray = std::vector<std::uint8_t>;

/// The line end of conversation text and of reports.
inline constexpr StringView NewLine = u"\r\n";

/// Trimming removes blanks (U+0020) only, as the grammar of the command window demands; tabs stay.
StringView TrimLeft(StringView Text);
StringView TrimRight(StringView Text);
StringView Trim(StringView Text);

/// Case is folded unit by unit for Latin, Greek and Cyrillic letters, independently of the locale.
char16_t FoldCase(char16_t Unit);
String ToUpper(StringView Text);
bool EqualNoCase(StringView A, StringView B);

/// For keyed containers that ignore case.
struct HashNoCase {
  std::size_t operator()(StringView Text) const;
};

/// Every occurrence, left to right; the replacement is not searched again. An empty `From` changes nothing.
String ReplaceAll(StringView Text, StringView From, StringView To);

/// The pieces between the separators; always at least one.
std::vector<StringView> Split(StringView Text, StringView Separator);

/// Decimal text of a number; the shortest that reads back for a fraction.
String ToText(std::int64_t Number);
String ToText(double Number);

/// Upper-case hexadecimal without leading zeros.
String ToHexText(std::uint32_t Number);

/// The number that a whole text reads as: sign, digits, fraction, exponent, blanks around it; none otherwise.
std::optional<double> ReadNumber(StringView Text);

/// UTF-8. An unpaired surrogate is written as U+FFFD.
std::string ToUtf8(StringView Text);
void AppendUtf8(std::string& Bytes, StringView Text);

/// The text, with U+FFFD for each byte that is not part of well-formed UTF-8, and the position in bytes of the first.
struct Utf8Text {
  String Text;
  std::optional<std::size_t> BadByte;
};
Utf8Text FromUtf8(std::string_view Bytes);

/// The instrument's code page: Windows-1252, its five undefined bytes mapped to themselves so that all 256 bytes go
/// both ways. A character outside it becomes `?`, as a code-page conversion does.
std::string ToCodePage(StringView Text);
String FromCodePage(std::string_view Bytes);

/// Position of the first character that the code page lacks; none if the text crosses unharmed.
std::optional<std::size_t> FindOutsideCodePage(StringView Text);

/// Text held as data: UTF-16 little-endian, no terminator, no byte-order mark. An odd last byte is dropped.
ByteArray ToBytes(StringView Text);
String FromBytes(const ByteArray& Bytes);

/// For texts whose characters are known to be ASCII, such as names from the platform.
String FromAscii(std::string_view Text);

} // namespace portico
