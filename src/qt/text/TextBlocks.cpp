#include "qt/text/TextBlocks.h"

#include "qt/values/QtText.h"

#include <QTextFragment>

#include <algorithm>
#include <utility>
#include <vector>

namespace portico::qt {
namespace {

using richtext::FormatRuns;
using richtext::FormattedLine;
using richtext::FormattedText;

constexpr char16_t HiddenMark = u'\u2026';
constexpr char16_t LineSeparator = u'\u2028';

// What ends blocks, lines or frames of a document, or stands for objects in it.
constexpr StringView NoText = u"\u2028\u2029\uFDD0\uFDD1\uFFFC";

/// A place that does not part the two units of a character.
std::size_t Whole(const String& text, std::size_t offset) {
  const bool isInside = (text[offset - 1] & 0xFC00) == 0xD800 && (text[offset] & 0xFC00) == 0xDC00;
  return isInside ? offset + 1 : offset;
}

} // namespace

QTextCursor TextBlocks::Clear(int first, int oldCount) {
  const QTextBlock last = m_document.findBlockByNumber(first + oldCount - 1);
  QTextCursor cursor(m_document.findBlockByNumber(first));
  cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  return cursor;
}

void TextBlocks::WriteLine(QTextCursor& cursor, const FormattedLine& line, bool isFirst) {
  const QTextBlockFormat& block = m_formats.Of(line.Paragraph, line.Runs.At(line.Text.size()));
  if (!isFirst) {
    cursor.insertBlock(block, m_formats.Of(line.Runs.At(0)));
  } else if (cursor.blockFormat() != block) {
    cursor.setBlockFormat(block);
  }
  if (line.Text.size() <= LongestShown) return WriteRuns(cursor, line, 0, line.Text.size());
  const std::size_t head = Whole(line.Text, HeadShown);
  const std::size_t tail = Whole(line.Text, line.Text.size() - TailShown);
  WriteRuns(cursor, line, 0, head);
  WriteHidden(cursor, line, head, tail);
  WriteRuns(cursor, line, tail, line.Text.size());
}

void TextBlocks::WriteRuns(QTextCursor& cursor, const FormattedLine& line, std::size_t from, std::size_t end) {
  line.Runs.Visit(from, end - from, [&](const richtext::CharacterFormat& format, std::size_t length) {
    WriteText(cursor, StringView(line.Text).substr(from, length), m_formats.Of(format));
    from += length;
  });
}

void TextBlocks::WriteText(QTextCursor& cursor, StringView text, const QTextCharFormat& format) {
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of(NoText), text.size());
    if (plain > 0) cursor.insertText(ToQt(text.substr(0, plain)), format);
    text.remove_prefix(plain);
    if (text.empty()) return;
    QTextCharFormat substitute = format;
    TextFormats::StandFor(substitute, text.front());
    cursor.insertText(QString(QChar::ReplacementCharacter), substitute);
    text.remove_prefix(1);
  }
}

void TextBlocks::WriteHidden(QTextCursor& cursor, const FormattedLine& line, std::size_t from, std::size_t end) {
  m_hidden[++m_lastHidden] = {line.Text.substr(from, end - from), line.Runs.Copy(from, end - from), line.Paragraph};
  QTextCharFormat format = m_formats.Of(line.Runs.At(from));
  TextFormats::StandForHidden(format, m_lastHidden);
  format.setBackground(Qt::lightGray);
  cursor.insertText(QString(QChar(HiddenMark)), format);
}

template <class See>
void TextBlocks::Visit(const QTextBlock& block, See&& see) const {
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextCharFormat look = at.fragment().charFormat();
    const String text = FromQt(at.fragment().text());
    const auto unit = TextFormats::UnitOf(look);
    const auto hidden = m_hidden.find(TextFormats::HiddenOf(look).value_or(0));
    if (!unit && hidden == m_hidden.end()) {
      see(Piece{text.size(), text, {text.size(), m_formats.CharacterOf(look)}, true});
      continue;
    }
    // Somebody may have written behind the character in its own look.
    for (const char16_t& shown : text) {
      if (hidden != m_hidden.end() && shown == HiddenMark) {
        see(Piece{1, hidden->second.Text, hidden->second.Runs});
      } else {
        const bool isSubstitute = unit && shown == QChar::ReplacementCharacter;
        see(Piece{1, StringView(isSubstitute ? &*unit : &shown, 1), {1, m_formats.CharacterOf(look)}});
      }
    }
  }
}

void TextBlocks::Read(const QTextBlock& block, FormattedText& lines) const {
  const QTextBlockFormat format = block.blockFormat();
  const auto open = [&] { lines.push_back({{}, {}, m_formats.ParagraphOf(format)}); };
  const auto close = [&] { lines.back().Runs.Append(1, m_formats.LineEndOf(format)); };
  open();
  Visit(block, [&](Piece piece) {
    for (std::size_t end = 0; piece.StandsForItself && (end = piece.Text.find(LineSeparator)) != StringView::npos;) {
      FormatRuns behind = piece.Runs.Cut(end).Cut(1);
      lines.back().Text += piece.Text.substr(0, end);
      lines.back().Runs.Append(std::exchange(piece.Runs, std::move(behind)));
      piece.Text.remove_prefix(end + 1);
      close();
      open();
    }
    lines.back().Text += piece.Text;
    lines.back().Runs.Append(std::move(piece.Runs));
  });
  close();
}

int TextBlocks::ToBlock(const QTextBlock& block, std::size_t lineLength, std::size_t offset, bool isEnd) const {
  const auto shown = static_cast<std::size_t>(block.length() - 1);
  if (shown == lineLength) return static_cast<int>(offset);
  std::size_t place = 0;
  bool isFound = false;
  Visit(block, [&](const Piece& piece) {
    if (isFound) return;
    const std::size_t length = piece.Text.size();
    isFound = offset < length || (offset == length && isEnd);
    if (length == piece.Length) {
      place += std::min(offset, length);
    } else if (!isFound || (isEnd && offset > 0)) {
      place += piece.Length;
    }
    if (!isFound) offset -= length;
  });
  return static_cast<int>(std::min(place, shown));
}

std::size_t TextBlocks::FromBlock(const QTextBlock& block, std::size_t lineLength, int offset) const {
  auto left = static_cast<std::size_t>(offset);
  if (static_cast<std::size_t>(block.length() - 1) == lineLength) return left;
  std::size_t place = 0;
  Visit(block, [&](const Piece& piece) {
    place += left < piece.Length ? left : piece.Text.size();
    left -= std::min(left, piece.Length);
  });
  return place;
}

bool TextBlocks::IsWellCut(const QTextBlock& block, std::size_t lineLength) const {
  const auto shown = static_cast<std::size_t>(block.length() - 1);
  if (shown == lineLength) return lineLength <= LongestShown;
  if (lineLength <= LongestShown) return false;
  std::vector<std::size_t> parts{0}; // what is shown between the marks
  Visit(block, [&](const Piece& piece) {
    if (piece.Text.size() == piece.Length) {
      parts.back() += piece.Length;
    } else {
      parts.push_back(0);
    }
  });
  const auto isNear = [](std::size_t part, std::size_t whole) {
    return part + Slack >= whole && part <= whole + Slack;
  };
  return parts.size() == 2 && isNear(parts[0], HeadShown) && isNear(parts[1], TailShown);
}

void TextBlocks::ForgetHidden() {
  if (m_hidden.size() < m_hiddenToForgetAt) return;
  std::map<int, FormattedLine> live;
  for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      live.insert(m_hidden.extract(TextFormats::HiddenOf(at.fragment().charFormat()).value_or(0)));
    }
  }
  m_hidden = std::move(live);
  m_hiddenToForgetAt = std::max<std::size_t>(16, 2 * m_hidden.size());
}

} // namespace portico::qt
