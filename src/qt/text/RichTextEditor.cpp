#include "qt/text/RichTextEditor.h"

#include "framework/errors/ErrorRecord.h"
#include "qt/text/TextClipboard.h"
#include "qt/text/TextLayout.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>
#include <utility>

namespace portico::qt {
namespace {

constexpr int FrameMilliseconds = 16;
// Beside those in sight: while the program goes on editing, and once it pauses.
constexpr std::size_t LinesAFrame = 256;
constexpr std::size_t LinesAFrameAtRest = 2048;

int Narrow(std::size_t count) { return static_cast<int>(count); }

} // namespace

RichTextEditor::RichTextEditor(TextView& view, StringView fontName, double fontSize)
    : RichTextModel(fontName, fontSize),
      m_view(&view),
      m_document(*view.document()),
      m_blocks(m_document, Standard().Character),
      m_standIn(richtext::FormatPlain({}, Standard()).front()) {
  QFont font(ToQt(Standard().Character.FontName));
  font.setPointSizeF(Standard().Character.FontSize);
  view.setFont(font);
  m_frame.setSingleShot(true);
  m_frame.setInterval(FrameMilliseconds);
  QObject::connect(&m_frame, &QTimer::timeout, [this] { ShowFrame(); });
  QObject::connect(&m_document, &QTextDocument::contentsChange, &m_frame,
                   [this](int position, int /*removed*/, int added) { ReadContents(position, added); });
  QObject::connect(&view, &QPlainTextEdit::cursorPositionChanged, &m_frame, [this] { ReadSelection(); });
  QObject::connect(&view, &QPlainTextEdit::selectionChanged, &m_frame, [this] { ReadSelection(); });
  m_changes.Add(0, 1, 1); // the first line has its look yet to come
  RichTextEditor::Show();
  view.Owner(this);
}

RichTextEditor::~RichTextEditor() {
  if (m_view) m_view->Owner(nullptr);
}

void RichTextEditor::SetFocus() {
  if (m_view) m_view->setFocus(Qt::OtherFocusReason);
}

/// The caret goes to the line's start, so that of a long line the start is in sight.
void RichTextEditor::GoToLine(std::int32_t line) {
  RichTextModel::GoToLine(line);
  if (!m_view) return;
  Show();
  QTextCursor cursor = m_view->textCursor();
  const int start = cursor.selectionStart();
  cursor.setPosition(cursor.selectionEnd());
  cursor.setPosition(start, QTextCursor::KeepAnchor);
  m_view->setTextCursor(cursor);
  m_view->ensureCursorVisible();
}

std::optional<std::size_t> RichTextEditor::ShownLine(int block) const {
  return m_changes.InText(static_cast<std::size_t>(block));
}

// What the program changes.

void RichTextEditor::OnLines(std::size_t first, std::size_t before, std::size_t after) {
  m_changes.Add(first, before, after);
  m_isAtRest = false;
  Await();
}

void RichTextEditor::OnSelection() {
  if (m_isReading) return;
  m_awaitsSelection = true;
  Await();
}

void RichTextEditor::Await() {
  if (!m_frame.isActive()) m_frame.start();
}

void RichTextEditor::Show() {
  if (m_isWriting || !m_view) return;
  if (!m_changes.IsEmpty() || m_awaitsSelection) Flush(Undo::Never);
}

void RichTextEditor::ShowFrame() {
  if (m_isWriting || !m_view) return;
  const std::size_t most = std::exchange(m_isAtRest, true) ? LinesAFrameAtRest : LinesAFrame;
  Flush(Undo::Never, [&] { WriteFrame(most); });
  if (!m_changes.IsEmpty()) Await();
}

void RichTextEditor::Flush(Undo undo) {
  Flush(undo, [this] { WriteAll(); });
}

template <class Write>
void RichTextEditor::Flush(Undo undo, Write&& write) {
  const QScopedValueRollback writing(m_isWriting, true);
  m_frame.stop();
  const QTextCursor before = m_view->textCursor();
  const Range seen{before.selectionStart(), before.selectionEnd()};
  const bool isBackwards = !m_awaitsSelection && before.position() < before.anchor();
  const bool onlySelects = m_changes.IsEmpty();
  if (!onlySelects) {
    if (undo == Undo::Never) m_document.setUndoRedoEnabled(false);
    QTextCursor cursor(&m_document);
    undo == Undo::WithStepBefore ? cursor.joinPreviousEditBlock() : cursor.beginEditBlock();
    write();
    cursor.endEditBlock();
    if (undo == Undo::Never) {
      m_blocks.ForgetHidden();
      m_document.setUndoRedoEnabled(true);
    }
  }
  ShowSelection(isBackwards);
  // Text that comes in behind the selection leaves the user where he has scrolled to.
  if ((onlySelects || m_selected != seen) && m_view->isVisible()) m_view->ensureCursorVisible();
}

void RichTextEditor::WriteAll() {
  const std::size_t count = Lines().Count();
  while (const auto part = m_changes.Take(0, count, count)) WritePart(*part);
}

/// What the caret brings into sight, and then of what waits the first lines, so that no frame takes long however many
/// there are.
void RichTextEditor::WriteFrame(std::size_t most) {
  const std::size_t count = Lines().Count();
  const auto rows = static_cast<std::size_t>(2 * m_view->viewport()->height() / m_view->fontMetrics().lineSpacing());
  const std::size_t top = From().Line - std::min(From().Line, rows);
  while (const auto part = m_changes.Take(top, To().Line + rows + 1, count)) WritePart(*part);
  for (std::size_t left = most; left > 0 && !m_changes.IsEmpty();) {
    const std::size_t first = m_changes.All().front().First;
    const auto part = m_changes.Take(first - std::min<std::size_t>(first, 1), first + left, count);
    WritePart(*part);
    left -= std::min(left, part->Lines.Count);
  }
}

void RichTextEditor::WritePart(const richtext::LineChanges::Part& part) {
  const auto& lines = part.Lines;
  const std::size_t before = part.WaitsBefore ? 1 : 0;
  const std::size_t behind = part.WaitsBehind ? 1 : 0;
  m_blocks.Write(Narrow(lines.OldFirst), Narrow(lines.OldCount), before + lines.Count + behind,
                 [&](std::size_t i) -> const richtext::FormattedLine& {
                   const bool stands = i < before || i - before >= lines.Count;
                   return stands ? m_standIn : Lines()[lines.First + i - before];
                 });
}

void RichTextEditor::ShowSelection(bool isBackwards) {
  const Place from = From();
  const Place to = To();
  const bool isCaret = from.Line == to.Line && from.Offset == to.Offset;
  const Range selected{ToDocument(from, false), ToDocument(to, !isCaret)};
  QTextCursor cursor = m_view->textCursor();
  if (Range{cursor.selectionStart(), cursor.selectionEnd()} != selected) {
    cursor.setPosition(isBackwards ? selected.End : selected.Start);
    cursor.setPosition(isBackwards ? selected.Start : selected.End, QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
  }
  m_selected = selected;
  m_awaitsSelection = false;
}

int RichTextEditor::ToDocument(Place place, bool isEnd) const {
  const QTextBlock block = m_document.findBlockByNumber(Narrow(m_changes.InCopy(place.Line)));
  return block.position() + m_blocks.ToBlock(block, Lines()[place.Line].Text.size(), place.Offset, isEnd);
}

RichTextEditor::Place RichTextEditor::FromDocument(int position) const {
  const QTextBlock block = m_document.findBlock(position);
  const auto line = static_cast<std::size_t>(block.blockNumber());
  const std::size_t length = Lines()[line].Text.size();
  return {line, std::min(length, m_blocks.FromBlock(block, length, position - block.position()))};
}

// What the user changes.

void RichTextEditor::ReadContents(int position, int added) {
  if (m_isWriting || !m_view) return;
  if (!m_changes.IsEmpty()) { // somebody has edited a text that was not up to date: it becomes what it should be
    m_changes.Clear();
    return OnLines(0, static_cast<std::size_t>(m_document.blockCount()), Lines().Count());
  }
  const int end = m_document.characterCount() - 1;
  const QTextBlock first = m_document.findBlock(std::min(position, end));
  const QTextBlock last = m_document.findBlock(std::min(position + added, end));
  const auto firstLine = static_cast<std::size_t>(first.blockNumber());
  const auto behind = static_cast<std::size_t>(m_document.blockCount() - 1 - last.blockNumber());
  richtext::FormattedText lines;
  for (QTextBlock block = first; block.isValid(); block = block.next()) {
    m_blocks.Read(block, lines);
    if (block == last) break;
  }
  const auto blocks = static_cast<std::size_t>(last.blockNumber() - first.blockNumber()) + 1;
  const std::size_t read = lines.size();
  m_isChanged |= TakeLines(firstLine, Lines().Count() - behind - firstLine, std::move(lines));
  m_selected.reset();
  ReadSelection();
  if (read != blocks) {
    m_changes.Add(firstLine, blocks, read);
    Await();
  }
  const int start = m_edited.isNull() ? position : std::min(position, m_edited.selectionStart());
  const int changed = m_edited.isNull() ? 0 : m_edited.selectionEnd();
  m_edited = QTextCursor(&m_document);
  m_edited.setPosition(std::min(start, end));
  m_edited.setPosition(std::min(std::max(position + added, changed), end), QTextCursor::KeepAnchor);
  // For an edit that comes with no event of the view's.
  if (m_isChanged) QTimer::singleShot(0, &m_frame, [this] { Settle(); });
}

void RichTextEditor::ReadSelection() {
  if (m_isWriting || !m_view || m_awaitsSelection || !m_changes.IsEmpty()) return;
  const QTextCursor cursor = m_view->textCursor();
  const Range selected{cursor.selectionStart(), cursor.selectionEnd()};
  if (m_selected == selected) return;
  // On the way to a whole edit the document may be ahead of the lines.
  if (m_document.blockCount() != Narrow(Lines().Count())) return;
  const QScopedValueRollback reading(m_isReading, true);
  const std::int64_t start = Lines().PositionOf(FromDocument(selected.Start));
  Select(start, Lines().PositionOf(FromDocument(selected.End)) - start);
  m_selected = selected;
}

/// What the user's edits have left of long lines shows too much of them, or too little.
void RichTextEditor::CutAnew() {
  if (m_edited.isNull() || !m_changes.IsEmpty()) return;
  const QTextBlock behind = m_document.findBlock(m_edited.selectionEnd()).next();
  for (QTextBlock block = m_document.findBlock(m_edited.selectionStart()); block != behind; block = block.next()) {
    const auto line = static_cast<std::size_t>(block.blockNumber());
    if (!m_blocks.IsWellCut(block, Lines()[line].Text.size())) m_changes.Add(line, 1, 1);
  }
  m_edited = {};
  if (!m_changes.IsEmpty()) Flush(Undo::WithStepBefore);
}

void RichTextEditor::Settle() {
  ReadSelection();
  CutAnew();
  if (std::exchange(m_isChanged, false)) OnUserChange();
}

std::unique_ptr<QMimeData> RichTextEditor::Selection() {
  ReadSelection();
  return ToClipboard(Lines().Copy(From(), To()));
}

QTextCharFormat RichTextEditor::TypingFormat() { return m_blocks.Formats().Of(InsertionFormat().Character); }

void RichTextEditor::UserPut(richtext::FormattedText text) {
  try {
    m_isChanged |= Put(std::move(text));
  } catch (const Error&) { // longer than a text can be
    QApplication::beep();
  }
}

void RichTextEditor::Insert(const QMimeData& data) {
  Show();
  ReadSelection();
  UserPut(FromClipboard(data, InsertionFormat()));
  Flush(Undo::Step);
}

void RichTextEditor::InsertText(StringView text) {
  UserPut(richtext::FormatPlain(text, InsertionFormat()));
  Flush(Undo::Step);
}

void RichTextEditor::EditAsUser(const std::function<void()>& edit) {
  Show();
  ReadSelection();
  EditAtOnce(edit, [this] {
    if (!m_view || m_changes.IsEmpty()) return;
    Flush(Undo::Step, [this] {
      WriteAll();
      // Changes nothing; without it the toolkit takes what is typed right behind an insertion for a part of the step.
      QTextCursor cursor(m_document.findBlockByNumber(Narrow(From().Line)));
      cursor.setBlockFormat(cursor.blockFormat());
    });
  });
}

void RichTextEditor::Drop(const QMimeData& data, const QTextCursor& place, const QTextCursor& moved) {
  const int at = place.position();
  if (!moved.isNull() && at >= moved.selectionStart() && at <= moved.selectionEnd()) return; // onto itself
  std::int64_t position = Lines().PositionOf(FromDocument(at));
  if (!moved.isNull() && moved.hasSelection()) {
    const std::int64_t from = Lines().PositionOf(FromDocument(moved.selectionStart()));
    const std::int64_t to = Lines().PositionOf(FromDocument(moved.selectionEnd()));
    Select(from, to - from);
    UserPut(richtext::FormatPlain({}, Standard()));
    if (position >= to) position -= to - from;
  }
  Select(position, 0);
  UserPut(FromClipboard(data, InsertionFormat()));
  Flush(Undo::Step);
}

void RichTextEditor::Zoom(double factor) {
  m_blocks.Formats().Zoom(factor);
  if (!m_blocks.Formats().HasOwnSizes()) return;
  OnLines(0, Lines().Count(), Lines().Count());
}

} // namespace portico::qt
