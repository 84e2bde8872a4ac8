#include "qt/TextBlocks.h"

#include "qt/Text.h"

#include <QTextFragment>

#include <algorithm>
#include <utility>

namespace portico::qt {
namespace {

using richtext::FormatRuns;
using richtext::FormattedLine;
using richtext::FormattedText;

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
  const QTextBlockFormat block = m_formats.Of(line.Paragraph, line.Runs.At(line.Text.size()));
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
  std::size_t start = 0;
  for (const richtext::FormatRun& run : line.Runs.All()) {
    const std::size_t first = std::max(start, from);
    const std::size_t behind = std::min(start + run.Length, end);
    if (first < behind)
      WriteText(cursor, StringView(line.Text).substr(first, behind - first), m_formats.Of(run.Format));
    start += run.Length;
  }
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
  cursor.insertText(QStringLiteral(u"\u2026"), format);
}

void TextBlocks::Read(const QTextBlock& block, FormattedText& lines) const {
  const QTextBlockFormat format = block.blockFormat();
  const auto open = [&]() -> FormattedLine& {
    return lines.emplace_back(String(), FormatRuns(), m_formats.ParagraphOf(format));
  };
  const auto close = [&](FormattedLine& line) { line.Runs.Append(1, m_formats.LineEndOf(format)); };
  FormattedLine* line = &open();
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment fragment = at.fragment();
    const QTextCharFormat look = fragment.charFormat();
    const auto hidden = TextFormats::HiddenOf(look);
    if (const auto held = m_hidden.find(hidden.value_or(0)); held != m_hidden.end()) {
      line->Text += held->second.Text;
      line->Runs.Append(held->second.Runs);
      continue;
    }
    const auto unit = TextFormats::UnitOf(look);
    String text = unit ? String(static_cast<std::size_t>(fragment.length()), *unit) : FromQt(fragment.text());
    for (std::size_t separator = unit ? String::npos : text.find(LineSeparator); separator != String::npos;
         separator = text.find(LineSeparator)) {
      line->Text.append(text, 0, separator);
      line->Runs.Append(separator, m_formats.CharacterOf(look));
      close(*line);
      line = &open();
      text.erase(0, separator + 1);
    }
    line->Text += text;
    line->Runs.Append(text.size(), m_formats.CharacterOf(look));
  }
  close(*line);
}

std::size_t TextBlocks::LengthOf(const QTextFragment& fragment) const {
  const auto hidden = m_hidden.find(TextFormats::HiddenOf(fragment.charFormat()).value_or(0));
  return hidden == m_hidden.end() ? static_cast<std::size_t>(fragment.length()) : hidden->second.Text.size();
}

int TextBlocks::ToBlock(const QTextBlock& block, std::size_t lineLength, std::size_t offset, bool isEnd) const {
  const auto shown = static_cast<std::size_t>(block.length() - 1);
  if (shown == lineLength) return static_cast<int>(offset);
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment fragment = at.fragment();
    const std::size_t length = LengthOf(fragment);
    if (offset > length) {
      offset -= length;
      continue;
    }
    const int start = fragment.position() - block.position();
    if (length == static_cast<std::size_t>(fragment.length())) return start + static_cast<int>(offset);
    if (offset == 0 || (offset < length && !isEnd)) return start;
    return start + fragment.length();
  }
  return block.length() - 1;
}

std::size_t TextBlocks::FromBlock(const QTextBlock& block, std::size_t lineLength, int offset) const {
  if (static_cast<std::size_t>(block.length() - 1) == lineLength) return static_cast<std::size_t>(offset);
  std::size_t place = 0;
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment fragment = at.fragment();
    const int behind = offset - (fragment.position() - block.position());
    if (behind < fragment.length()) return place + static_cast<std::size_t>(behind);
    place += LengthOf(fragment);
  }
  return place;
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
