#pragma once

#include "richtext/Formatting.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>

#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace portico::qt {

/// The looks of a text in the toolkit's terms. Each of them bears a number under which it is found again, so that a
/// look comes back from the document as it went in, whatever the toolkit can show of it.
class TextFormats {
public:
  /// Font and size of the standard formatting are left to the widget.
  explicit TextFormats(const richtext::CharacterFormat& standard);

  /// The factor that all sizes but that of the standard formatting are enlarged by.
  void Zoom(double factor);
  /// Whether a size has been in use that `Zoom` changes in the document only when its text is written again.
  bool HasOwnSizes() const { return m_hasOwnSizes; }

  const QTextCharFormat& Of(const richtext::CharacterFormat& format);
  /// The look of a line with its end.
  const QTextBlockFormat& Of(const richtext::ParagraphFormat& format, const richtext::CharacterFormat& lineEnd);

  /// A format that this object has not made gives the standard look.
  const richtext::CharacterFormat& CharacterOf(const QTextFormat& format) const;
  const richtext::ParagraphFormat& ParagraphOf(const QTextFormat& format) const;
  const richtext::CharacterFormat& LineEndOf(const QTextFormat& format) const;

  /// Marks a character as standing for a unit that the document cannot hold.
  static void StandFor(QTextCharFormat& format, char16_t unit);
  static std::optional<char16_t> UnitOf(const QTextFormat& format);
  /// Marks a character as standing for a text that is not shown; the text's number is at least 0.
  static void StandForHidden(QTextCharFormat& format, int number);
  static std::optional<int> HiddenOf(const QTextFormat& format);

private:
  using Key = std::tuple<String, double, std::int32_t, std::int32_t, bool, bool, bool, bool>;
  struct Character {
    richtext::CharacterFormat Look;
    QTextCharFormat Format;
  };

  std::size_t NumberOf(const richtext::CharacterFormat& format);
  QTextCharFormat Make(const richtext::CharacterFormat& format, std::size_t number);
  static QTextBlockFormat Make(const richtext::ParagraphFormat& format, std::size_t number, std::size_t lineEnd);

  richtext::CharacterFormat m_standard;
  double m_zoom = 1;
  bool m_hasOwnSizes = false;
  std::map<Key, std::size_t> m_numbers;
  std::vector<Character> m_characters;
  std::size_t m_last = 0; // the number that was asked for last
  std::vector<richtext::ParagraphFormat> m_paragraphs;
  std::map<std::pair<std::size_t, std::size_t>, QTextBlockFormat> m_lines; // by the numbers of paragraph and line end
};

} // namespace portico::qt
