#include "document/log/LogText.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico::LogText {
namespace {

constexpr std::string_view CDataStart = "<![CDATA[";
constexpr std::string_view CDataEnd = "]]>";

/// What XML 1.0 calls a character, unpaired surrogates aside.
bool IsXmlUnit(char16_t unit) {
  if (unit < 0x20) return unit == u'\t' || unit == u'\n' || unit == u'\r';
  return unit != 0xFFFE && unit != 0xFFFF;
}

/// In UTF-8, which also replaces unpaired surrogates.
std::string XmlCharacters(StringView text) {
  if (std::all_of(text.begin(), text.end(), IsXmlUnit)) return ToUtf8(text);
  String kept(text);
  std::replace_if(
      kept.begin(), kept.end(), [](char16_t unit) { return !IsXmlUnit(unit); }, u'\uFFFD');
  return ToUtf8(kept);
}

using Range = std::pair<char32_t, char32_t>;

template <std::size_t count>
bool IsIn(const std::array<Range, count>& ranges, char32_t point) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [point](const Range& range) { return point >= range.first && point <= range.second; });
}

// Names as every edition of XML 1.0 has them, without the colon. Letters beyond U+0131 are left out: readers that go by
// the older editions' tables refuse many of them.
bool StartsName(char32_t point) {
  constexpr std::array<Range, 5> ranges{{{'A', 'Z'}, {'_', '_'}, {'a', 'z'}, {0xC0, 0xD6}, {0xD8, 0xF6}}};
  return IsIn(ranges, point) || (point >= 0xF8 && point <= 0x131);
}

bool ContinuesName(char32_t point) {
  return StartsName(point) || (point >= '0' && point <= '9') || point == '-' || point == '.' || point == 0xB7;
}

/// What stands for a character that would not be read back. A reader would make blanks of tabs and line feeds in an
/// attribute, and a line feed of every carriage return.
std::string_view ReferenceTo(char character) {
  switch (character) {
  case '"':
    return "&quot;";
  case '\t':
    return "&#9;";
  case '\n':
    return "&#10;";
  case '\r':
    return "&#13;";
  case '&':
    return "&amp;";
  case '<':
    return "&lt;";
  default:
    return "&gt;";
  }
}

bool IsSpecialInText(char character) {
  return character == '&' || character == '<' || character == '>' || character == '\r';
}
bool IsSpecialInAttribute(char character) {
  return IsSpecialInText(character) || character == '"' || character == '\t' || character == '\n';
}

template <class Predicate>
void AppendEscaped(std::string& out, std::string_view text, Predicate isSpecial) {
  const auto* at = text.begin();
  for (;;) {
    const auto* stop = std::find_if(at, text.end(), isSpecial);
    out.append(at, stop);
    if (stop == text.end()) return;
    out += ReferenceTo(*stop);
    at = stop + 1;
  }
}

} // namespace

std::string Head() {
  std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>\n<Header";
  AppendAttribute(head, LogName::ApplicationName, ToUtf8(ApplicationTitle));
  AppendAttribute(head, LogName::ApplicationVersion, ToUtf8(ApplicationVersion()));
  return head + "/>";
}

std::string SessionTagStart(StringView openStamp) {
  std::string tag = "\n<Session";
  AppendAttribute(tag, LogName::OpenStamp, XmlCharacters(openStamp));
  return tag;
}

std::string CloseStampField(StringView closeStamp) {
  std::string field;
  if (!closeStamp.empty()) AppendAttribute(field, LogName::CloseStamp, XmlCharacters(closeStamp));
  HuntERR::Check(field.size() <= CloseStampRoom, ErrorNumber::InternalState,
                 u"The session's closing time stamp is too long.");
  field.resize(CloseStampRoom, ' ');
  return field;
}

std::string SessionTag(StringView openStamp, StringView closeStamp) {
  return SessionTagStart(openStamp) + CloseStampField(closeStamp) + ">";
}

bool IsName(StringView text) {
  return !text.empty() && StartsName(text.front()) && std::all_of(text.begin() + 1, text.end(), ContinuesName);
}

void AppendAttribute(std::string& out, StringView name, StringView value) {
  AppendAttribute(out, ToUtf8(name), XmlCharacters(value));
}

void AppendAttribute(std::string& out, std::string_view name, std::string_view value) {
  out.append(" ").append(name).append("=\"");
  AppendEscaped(out, value, IsSpecialInAttribute);
  out += '"';
}

void AppendText(std::string& out, std::string_view text) { AppendEscaped(out, text, IsSpecialInText); }

void AppendCharacterData(std::string& out, StringView text) {
  const std::string bytes = XmlCharacters(text);
  out += CDataStart;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t stop = bytes.find_first_of("\r]", at);
    out.append(bytes, at, stop - at);
    if (stop == std::string::npos) break;
    at = stop + 1;
    if (bytes[stop] == '\r') { // in a CDATA section a reader would make a line feed of it
      out.append(CDataEnd).append("&#13;").append(CDataStart);
      continue;
    }
    out += ']';
    if (bytes.compare(stop, CDataEnd.size(), CDataEnd) == 0) out.append("]").append(CDataEnd).append(CDataStart), ++at;
  }
  out += CDataEnd;
}

} // namespace portico::LogText
