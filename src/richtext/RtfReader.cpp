#include "richtext/RtfReader.h"

#include "richtext/RtfWords.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace portico::richtext {
namespace {

constexpr StringView Opening = u"{\\rtf";
constexpr StringView Optional = u"\\*"; // at the start of a group that whoever does not know it skips

bool IsLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsSyntax(char16_t unit) { return unit == u'\\' || unit == u'{' || unit == u'}' || unit == u'\r' || unit == u'\n'; }

/// The value of a hexadecimal digit, or -1.
int HexDigit(char16_t unit) {
  if (IsDigit(unit)) return unit - u'0';
  const int letter = (unit | 0x20) - u'a';
  return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

char16_t CodePageUnit(int byte) {
  static const String units = [] {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return FromCodePage(bytes);
  }();
  return units[static_cast<std::size_t>(byte)];
}

class Reader {
public:
  Reader(StringView source, const Formatting& base) : m_rest(source), m_document(base) {}
  /// The source stands behind the head of a fragment, which opens a group and leaves all else as it is at the start.
  static Reader BehindHead(StringView source, const Formatting& base) {
    Reader reader(source, base);
    reader.m_document.OpenGroup();
    return reader;
  }

  FormattedText Read() {
    while (!m_rest.empty()) {
      const char16_t unit = m_rest.front();
      if (!IsSyntax(unit)) {
        ReadUnits();
        continue;
      }
      m_rest.remove_prefix(1);
      if (unit == u'{') {
        StartGroup();
      } else if (unit == u'}') {
        if (m_document.Depth() <= 1) break; // its state is that of the text's end
        m_document.CloseGroup();
        m_skip = 0;
      } else if (unit == u'\\') {
        ReadControl();
      }
    }
    return m_document.Finish();
  }

private:
  void StartGroup() {
    m_document.OpenGroup();
    m_skip = 0;
    m_isOptional = m_rest.starts_with(Optional);
    if (m_isOptional) m_rest.remove_prefix(Optional.size());
  }

  void ReadUnits() {
    m_isOptional = false;
    std::size_t length = 1;
    while (length < m_rest.size() && !IsSyntax(m_rest[length])) ++length;
    StringView units = Take(length);
    const std::size_t skipped = std::min(m_skip, units.size());
    m_skip -= skipped;
    units.remove_prefix(skipped);
    if (!units.empty()) m_document.AddRaw(units);
  }

  void ReadControl() {
    if (m_rest.empty()) return;
    if (IsLetter(m_rest.front())) {
      ReadWord();
      return;
    }
    const char16_t symbol = Take(1).front();
    if (symbol == u'\'') {
      ReadByte();
    } else if (symbol == u'~') {
      AddUnit(u'\u00A0');
    } else if (symbol == u'_') {
      AddUnit(u'\u2011');
    } else if (IsSyntax(symbol)) {
      AddUnit(symbol); // a line end stands for a paragraph's
    } else {
      IsSkipped();
    }
  }

  void ReadByte() {
    const int high = m_rest.empty() ? -1 : HexDigit(m_rest[0]);
    const int low = m_rest.size() < 2 ? -1 : HexDigit(m_rest[1]);
    if (high < 0 || low < 0) return;
    m_rest.remove_prefix(2);
    AddUnit(CodePageUnit(high * 16 + low));
  }

  void ReadWord() {
    std::size_t length = 1;
    while (length < m_rest.size() && IsLetter(m_rest[length])) ++length;
    const StringView word = Take(length);
    const RtfNumber number = ReadNumber();
    if (!m_rest.empty() && m_rest.front() == u' ') m_rest.remove_prefix(1);
    if (word == u"bin") {
      SkipBinary(number.Or(0));
      return;
    }
    if (IsSkipped()) return;
    if (word == u"u") {
      ReadUnicode(number.Or(0));
      return;
    }
    const RtfAction act = FindRtfWord(word);
    if (std::exchange(m_isOptional, false) && act == nullptr) m_document.Change().Destination = RtfDestination::Nowhere;
    if (act != nullptr && m_document.State().Destination != RtfDestination::Nowhere) act(m_document, number);
  }

  RtfNumber ReadNumber() {
    const bool isNegative = m_rest.size() > 1 && m_rest.front() == u'-' && IsDigit(m_rest[1]);
    std::size_t length = isNegative ? 1 : 0;
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    const std::size_t first = length;
    for (; length < m_rest.size() && IsDigit(m_rest[length]); ++length) {
      number = std::min(number * 10 + (m_rest[length] - u'0'), most);
    }
    if (length == first) return {};
    m_rest.remove_prefix(length);
    return RtfNumber(static_cast<std::int32_t>(isNegative ? -number : number));
  }

  void ReadUnicode(std::int32_t number) {
    m_document.AddUnit(static_cast<char16_t>(number)); // the upper half may be written negative
    m_skip = static_cast<std::size_t>(m_document.State().UnicodeSkip);
  }

  void SkipBinary(std::int32_t count) {
    m_rest.remove_prefix(std::min(m_rest.size(), static_cast<std::size_t>(std::max(count, 0))));
    IsSkipped();
  }

  void AddUnit(char16_t unit) {
    if (!IsSkipped()) m_document.AddUnit(unit);
  }

  /// Whether what was read last stands for the unit before it.
  bool IsSkipped() {
    if (m_skip == 0) return false;
    --m_skip;
    return true;
  }

  StringView Take(std::size_t length) {
    const StringView taken = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    return taken;
  }

  StringView m_rest;
  RtfDocument m_document;
  std::size_t m_skip = 0;
  bool m_isOptional = false; // the next word, if it is unknown, takes its group with it
};

} // namespace

FormattedText ReadRtf(StringView source, const Formatting& base) {
  if (!source.starts_with(Opening)) return FormatPlain(source, base);
  return Reader(source, base).Read();
}

FormattedText ReadRtf(const TextFragment& fragment, const Formatting& base) {
  return Reader::BehindHead(fragment.Content(), base).Read();
}

} // namespace portico::richtext
