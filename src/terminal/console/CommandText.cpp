#include "terminal/console/CommandText.h"

#include "framework/text/EndOfText.h"

#include <optional>

namespace portico::terminal {
namespace {

/// Characters in front of the position; a surrogate pair is one.
std::size_t ColumnOf(StringView text, std::size_t position) {
  std::size_t column = 1;
  for (const char16_t unit : text.substr(0, position)) {
    if (unit < 0xDC00 || unit > 0xDFFF) ++column;
  }
  return column;
}

std::string CodePoint(StringView text, std::size_t position) {
  std::uint32_t point = text[position];
  if (point >= 0xD800 && point <= 0xDBFF && position + 1 < text.size()) {
    point = 0x10000 + ((point - 0xD800) << 10) + (text[position + 1] - 0xDC00U);
  }
  std::string digits = ToUtf8(ToHexText(point));
  return "U+" + std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

struct Objection {
  std::size_t Position;
  std::string Reason;
};

std::optional<Objection> ObjectionTo(const String& text) {
  if (!Trim(text).empty() && Trim(text).front() == EndOfText) {
    return Objection{text.find(EndOfText), "a line cannot begin with U+001A"};
  }
  if (const auto zero = text.find(u'\0'); zero != String::npos) {
    return Objection{zero, "a line cannot hold a zero character"};
  }
  if (const auto bare = text.find(u'\r'); bare != String::npos) {
    return Objection{bare, "a carriage return without a line feed; end lines with CR LF or LF"};
  }
  if (const auto outside = FindOutsideCodePage(text)) {
    return Objection{*outside, CodePoint(text, *outside) + " cannot be sent: the instrument's code page lacks it"};
  }
  return {};
}

} // namespace

std::variant<String, TextFault> DecodeLine(std::string_view bytes, std::size_t lineNumber) {
  if (!bytes.empty() && bytes.back() == '\r') bytes.remove_suffix(1);
  Utf8Text decoded = FromUtf8(bytes);
  if (decoded.BadByte) return TextFault{lineNumber, *decoded.BadByte + 1, "not UTF-8; save the file as UTF-8"};
  if (auto objection = ObjectionTo(decoded.Text)) {
    return TextFault{lineNumber, ColumnOf(decoded.Text, objection->Position), std::move(objection->Reason)};
  }
  return std::move(decoded.Text);
}

std::variant<std::vector<String>, TextFault> DecodeText(std::string_view bytes) {
  if (bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark) bytes.remove_prefix(ByteOrderMark.size());
  std::vector<String> lines;
  while (!bytes.empty()) {
    const auto end = bytes.find('\n');
    auto line = DecodeLine(bytes.substr(0, end), lines.size() + 1);
    if (auto* fault = std::get_if<TextFault>(&line)) return std::move(*fault);
    lines.push_back(std::move(std::get<String>(line)));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return lines;
}

} // namespace portico::terminal
