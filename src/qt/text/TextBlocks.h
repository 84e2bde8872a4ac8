#pragma once

#include "qt/text/TextFormats.h"
#include "richtext/FormattedText.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <map>

namespace portico::qt {

/// The lines of a text as blocks of a document, one for one. A unit that a document would take for structure is shown
/// as U+FFFD, and of a very long line a middle part as one U+2026, since laying a line out and painting it costs its
/// whole length. Both come back as what they stand for.
class TextBlocks {
public:
  /// A line with more units than `LongestShown` shows `HeadShown` at its start and `TailShown` at its end. Where the
  /// user edits it either may come to differ by `Slack`.
  static constexpr std::size_t LongestShown = 20'000;
  static constexpr std::size_t HeadShown = 16'000;
  static constexpr std::size_t TailShown = 2'000;
  static constexpr std::size_t Slack = 1'000;

  TextBlocks(QTextDocument& document, const richtext::CharacterFormat& standard)
      : m_document(document), m_formats(standard) {}

  TextFormats& Formats() { return m_formats; }

  /// Puts lines, `line(i)` for i below `count`, in place of `oldCount` blocks. Neither count is 0.
  template <class Line>
  void Write(int first, int oldCount, std::size_t count, Line&& line) {
    QTextCursor cursor = Clear(first, oldCount);
    for (std::size_t i = 0; i < count; ++i) WriteLine(cursor, line(i), i == 0);
  }
  /// A line end that a block contains makes two lines.
  void Read(const QTextBlock& block, richtext::FormattedText& lines) const;

  /// The place in a block for an offset in its line, and back; `lineLength` is the length of the line in units. An
  /// offset within a text that is not shown gives the place of the character that stands for it, or, if `isEnd`, the
  /// place behind that character.
  int ToBlock(const QTextBlock& block, std::size_t lineLength, std::size_t offset, bool isEnd) const;
  std::size_t FromBlock(const QTextBlock& block, std::size_t lineLength, int offset) const;

  /// Whether a block shows as much as it should of its line, which has so many units.
  bool IsWellCut(const QTextBlock& block, std::size_t lineLength) const;

  /// Forgets texts that are not shown and that no block has any more. To be called when nothing can be undone.
  void ForgetHidden();

private:
  struct Piece {
    std::size_t Length; ///< in the block
    StringView Text;    ///< in the line, for as long as it is seen
    richtext::FormatRuns Runs;
    bool StandsForItself = false;
  };

  QTextCursor Clear(int first, int oldCount);
  void WriteLine(QTextCursor& cursor, const richtext::FormattedLine& line, bool isFirst);
  void WriteRuns(QTextCursor& cursor, const richtext::FormattedLine& line, std::size_t from, std::size_t end);
  void WriteText(QTextCursor& cursor, StringView text, const QTextCharFormat& format);
  void WriteHidden(QTextCursor& cursor, const richtext::FormattedLine& line, std::size_t from, std::size_t end);
  /// `see(Piece)` for what stands in a block.
  template <class See>
  void Visit(const QTextBlock& block, See&& see) const;

  QTextDocument& m_document;
  TextFormats m_formats;
  std::map<int, richtext::FormattedLine> m_hidden;
  int m_lastHidden = 0;
  std::size_t m_hiddenToForgetAt = 16;
};

} // namespace portico::qt
