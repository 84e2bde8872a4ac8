#include "qt/text/TextFormats.h"

#include "qt/values/Colors.h"
#include "qt/values/QtText.h"

#include <QBrush>

#include <algorithm>

namespace portico::qt {
namespace {

using richtext::CharacterFormat;
using richtext::ParagraphFormat;

enum Property {
  CharacterProperty = QTextFormat::UserProperty + 1,
  UnitProperty,
  HiddenProperty,
  ParagraphProperty,
  LineEndProperty,
};

constexpr double TwipsPerPoint = 20;
constexpr double TwipsPerPixel = 15;

template <class Held>
const Held& HeldUnder(const std::vector<Held>& all, const QTextFormat& format, int property) {
  const auto number = static_cast<std::size_t>(format.intProperty(property));
  return all[number < all.size() ? number : 0];
}

QTextFormat::Property Name(Property property) { return static_cast<QTextFormat::Property>(property); }

} // namespace

TextFormats::TextFormats(const CharacterFormat& standard) : m_standard(standard), m_paragraphs(1) {
  NumberOf(standard);
}

void TextFormats::Zoom(double factor) {
  m_zoom = factor;
  for (std::size_t i = 0; i < m_characters.size(); ++i) m_characters[i].Format = Make(m_characters[i].Look, i);
}

const QTextCharFormat& TextFormats::Of(const CharacterFormat& format) { return m_characters[NumberOf(format)].Format; }

const QTextBlockFormat& TextFormats::Of(const ParagraphFormat& format, const CharacterFormat& lineEnd) {
  const auto held = std::find(m_paragraphs.begin(), m_paragraphs.end(), format);
  const auto number = static_cast<std::size_t>(held - m_paragraphs.begin());
  if (held == m_paragraphs.end()) m_paragraphs.push_back(format);
  const auto [line, isNew] = m_lines.try_emplace({number, NumberOf(lineEnd)});
  if (isNew) line->second = Make(format, number, line->first.second);
  return line->second;
}

QTextBlockFormat TextFormats::Make(const ParagraphFormat& format, std::size_t number, std::size_t lineEnd) {
  QTextBlockFormat block;
  block.setProperty(Name(Property::ParagraphProperty), static_cast<int>(number));
  block.setProperty(Name(Property::LineEndProperty), static_cast<int>(lineEnd));
  if (format == ParagraphFormat{}) return block;
  block.setLeftMargin((format.Indent + format.HangingIndent) / TwipsPerPixel);
  block.setTextIndent(-format.HangingIndent / TwipsPerPixel);
  block.setRightMargin(format.RightIndent / TwipsPerPixel);
  constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  block.setAlignment(alignments[format.Alignment]);
  return block;
}

const CharacterFormat& TextFormats::CharacterOf(const QTextFormat& format) const {
  return HeldUnder(m_characters, format, CharacterProperty).Look;
}

const ParagraphFormat& TextFormats::ParagraphOf(const QTextFormat& format) const {
  return HeldUnder(m_paragraphs, format, ParagraphProperty);
}

const CharacterFormat& TextFormats::LineEndOf(const QTextFormat& format) const {
  return HeldUnder(m_characters, format, LineEndProperty).Look;
}

void TextFormats::StandFor(QTextCharFormat& format, char16_t unit) { format.setProperty(UnitProperty, int{unit}); }

std::optional<char16_t> TextFormats::UnitOf(const QTextFormat& format) {
  if (!format.hasProperty(UnitProperty)) return {};
  return static_cast<char16_t>(format.intProperty(UnitProperty));
}

void TextFormats::StandForHidden(QTextCharFormat& format, int number) { format.setProperty(HiddenProperty, number); }

std::optional<int> TextFormats::HiddenOf(const QTextFormat& format) {
  if (!format.hasProperty(HiddenProperty)) return {};
  return format.intProperty(HiddenProperty);
}

std::size_t TextFormats::NumberOf(const CharacterFormat& format) {
  if (m_last < m_characters.size() && m_characters[m_last].Look == format) return m_last;
  const Key key{format.FontName, format.FontSize, format.Color,      format.CharOffset,
                format.Bold,     format.Italic,   format.StrikeThru, format.Underline};
  const auto [held, isNew] = m_numbers.try_emplace(key, m_characters.size());
  if (isNew) m_characters.push_back({format, Make(format, held->second)});
  m_last = held->second;
  return m_last;
}

QTextCharFormat TextFormats::Make(const CharacterFormat& look, std::size_t number) {
  QTextCharFormat format;
  format.setProperty(CharacterProperty, static_cast<int>(number));
  format.setForeground(ColorOf(look.Color));
  if (look.FontName != m_standard.FontName) format.setFontFamilies({ToQt(look.FontName)});
  if (look.FontSize != m_standard.FontSize) {
    format.setFontPointSize(look.FontSize * m_zoom);
    m_hasOwnSizes = true;
  }
  if (look.Bold) format.setFontWeight(QFont::Bold);
  if (look.Italic) format.setFontItalic(true);
  if (look.StrikeThru) format.setFontStrikeOut(true);
  if (look.Underline) format.setFontUnderline(true);
  // In hundredths of the font's height.
  if (look.CharOffset != 0) format.setBaselineOffset(look.CharOffset / TwipsPerPoint / look.FontSize * 100);
  return format;
}

} // namespace portico::qt
