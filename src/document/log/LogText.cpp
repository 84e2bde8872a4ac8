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

constexpr bool IsSpecialInText(char character) {
  return character == '&' || character == '<' || character == '>' || character == '\r';
}
constexpr bool IsSpecialInAttribute(char character) {
  return IsSpecialInText(character) || character == '"' || character == '\t' || character == '\n';
}

// What a unit can be, as bits.
constexpr std::uint8_t StartsName = 1;
constexpr std::uint8_t ContinuesName = 2;
constexpr std::uint8_t IsPlain = 4; ///< one byte that stands for itself in an attribute

// Names as every edition of XML 1.0 has them, without the colon. Letters beyond U+0131 are left out: readers that go by
// the older editions' tables refuse many of them.
constexpr std::size_t Units = 0x132;
constexpr auto Kinds = [] {
  std::array<std::uint8_t, Units> kinds{};
  const auto add = [&kinds](char16_t first, char16_t last, std::uint8_t bits) {
    for (std::size_t unit = first; unit <= last; ++unit) kinds[unit] |= bits;
  };
  for (const auto& [first, last] :
       {std::pair(u'A', u'Z'), std::pair(u'_', u'_'), std::pair(u'a', u'z'), std::pair(u'\u00C0', u'\u00D6'),
        std::pair(u'\u00D8', u'\u00F6'), std::pair(u'\u00F8', u'\u0131')}) {
    add(first, last, StartsName | ContinuesName);
  }
  add(u'0', u'9', ContinuesName);
  for (const char16_t unit : {u'-', u'.', u'\u00B7'}) add(unit, unit, ContinuesName);
  for (char16_t unit = 0x20; unit < 0x80; ++unit) {
    if (!IsSpecialInAttribute(static_cast<char>(unit))) add(unit, unit, IsPlain);
  }
  return kinds;
}();

std::uint8_t KindsOf(char16_t unit) { return unit < Units ? Kinds[unit] : 0; }

/// Appends a text of plain units. Any other is left to the caller.
bool AppendPlain(std::string& out, const PackedText& text) {
  const std::size_t start = out.size();
  out.resize(start + text.Length());
  std::uint8_t common = IsPlain;
  text.ForEach([at = out.data() + start, &common](char16_t unit) mutable {
    common &= KindsOf(unit);
    *at++ = static_cast<char>(unit);
  });
  if (common == 0) out.resize(start);
  return common != 0;
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
  return !text.empty() && (KindsOf(text.front()) & StartsName) != 0 &&
         std::all_of(text.begin(), text.end(), [](char16_t unit) { return (KindsOf(unit) & ContinuesName) != 0; });
}

bool IsName(const PackedText& text) {
  std::uint8_t common = ContinuesName;
  text.ForEach([&common](char16_t unit) { common &= KindsOf(unit); });
  return text.Length() > 0 && common != 0 && (KindsOf(text[0]) & StartsName) != 0;
}

void AppendAttribute(std::string& out, const PackedText& name, const PackedText& value) {
  out += ' ';
  if (!AppendPlain(out, name)) AppendUtf8(out, name.ToString());
  out += "=\"";
  if (!AppendPlain(out, value)) AppendEscaped(out, XmlCharacters(value.ToString()), IsSpecialInAttribute);
  out += '"';
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
