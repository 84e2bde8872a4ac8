#include "richtext/RtfWriter.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace portico::richtext {
namespace {

/// Values in the order of their first use; a place in the list is a number in the fragment.
template <class T>
class Table {
public:
  std::size_t Place(const T& value) {
    const auto [held, isNew] = m_places.try_emplace(value, m_values.size());
    if (isNew) m_values.push_back(value);
    return held->second;
  }
  const std::vector<T>& All() const { return m_values; }

private:
  std::map<T, std::size_t> m_places;
  std::vector<T> m_values;
};

void AddUnit(String& fragment, char16_t unit) {
  if (unit == u'\t') {
    fragment += u"\\tab ";
  } else if (unit < u' ' || unit > u'~') {
    fragment += u"\\u" + ToText(std::int64_t{static_cast<std::int16_t>(unit)}) + u"?";
  } else {
    if (unit == u'\\' || unit == u'{' || unit == u'}') fragment += u'\\';
    fragment += unit;
  }
}

class Writer {
public:
  String Write(const FormattedText& text) {
    for (std::size_t i = 0; i < text.size(); ++i) AddLine(text[i], i + 1 == text.size());
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1" + Fonts() + Colors() + u"\r\n" + m_body + u"}\r\n";
  }

private:
  void AddLine(const FormattedLine& line, bool isLast) {
    if (m_paragraph == nullptr || *m_paragraph != line.Paragraph) AddParagraph(line.Paragraph);
    std::size_t place = 0;
    for (const FormatRun& run : line.Runs.All()) {
      if (m_character == nullptr || *m_character != run.Format) AddCharacter(run.Format);
      const std::size_t end = std::min(place + run.Length, line.Text.size());
      for (; place < end; ++place) AddUnit(m_body, line.Text[place]);
    }
    if (!isLast) m_body += u"\\par\r\n";
  }

  void AddParagraph(const ParagraphFormat& format) {
    m_paragraph = &format;
    m_body += u"\\pard";
    if (format.Bullet) m_body += u"{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}";
    m_body += format.Alignment == 1 ? u"\\qr" : format.Alignment == 2 ? u"\\qc" : u"\\ql";
    AddWord(u"fi", -std::int64_t{format.HangingIndent});
    AddWord(u"li", std::int64_t{format.Indent} + format.HangingIndent);
    AddWord(u"ri", format.RightIndent);
    m_body += u' ';
  }

  void AddCharacter(const CharacterFormat& format) {
    m_character = &format;
    AddWord(u"f", static_cast<std::int64_t>(m_fonts.Place(format.FontName)));
    AddWord(u"fs", std::lround(format.FontSize * 2));
    AddWord(u"cf", static_cast<std::int64_t>(m_colors.Place(format.Color)) + 1);
    AddWord(u"b", format.Bold ? 1 : 0);
    AddWord(u"i", format.Italic ? 1 : 0);
    AddWord(u"ul", format.Underline ? 1 : 0);
    AddWord(u"strike", format.StrikeThru ? 1 : 0);
    const std::int32_t halfPoints = format.CharOffset / TwipsPerHalfPoint;
    AddWord(halfPoints < 0 ? u"dn" : u"up", halfPoints < 0 ? -halfPoints : halfPoints);
    m_body += u' ';
  }

  void AddWord(StringView word, std::int64_t number) {
    m_body += u'\\';
    m_body += word;
    m_body += ToText(number);
  }

  String Fonts() const {
    String table = u"{\\fonttbl";
    for (std::size_t i = 0; i < m_fonts.All().size(); ++i) {
      table += u"{\\f" + ToText(static_cast<std::int64_t>(i)) + u"\\fnil ";
      for (const char16_t unit : m_fonts.All()[i]) {
        if (unit == u';') {
          table += u"\\'3B";
        } else {
          AddUnit(table, unit);
        }
      }
      table += u";}";
    }
    return table + u"}";
  }

  String Colors() const {
    String table = u"{\\colortbl;"; // number 0 is the reader's own colour
    for (const std::int32_t color : m_colors.All()) {
      table += u"\\red" + ToText(std::int64_t{color & 0xFF});
      table += u"\\green" + ToText(std::int64_t{(color >> 8) & 0xFF});
      table += u"\\blue" + ToText(std::int64_t{(color >> 16) & 0xFF}) + u";";
    }
    return table + u"}";
  }

  String m_body;
  Table<String> m_fonts;
  Table<std::int32_t> m_colors;
  const ParagraphFormat* m_paragraph = nullptr; // in force, of the text that is being written
  const CharacterFormat* m_character = nullptr;
};

} // namespace

String WriteRtf(const FormattedText& text) { return Writer().Write(text); }

} // namespace portico::richtext
