#include "qt/text/FindBar.h"

#include <QKeyEvent>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace portico::qt {
namespace {

constexpr int WidestBar = 220;
const QColor NotFound(0xFF, 0xD0, 0xD0);

} // namespace

FindBar::FindBar(QPlainTextEdit& view, std::function<void()> bringUpToDate)
    : QLineEdit(&view), m_view(view), m_bringUpToDate(std::move(bringUpToDate)) {
  setPlaceholderText(QStringLiteral("Find"));
  setAccessibleName(QStringLiteral("Find"));
  setClearButtonEnabled(true);
  QObject::connect(this, &QLineEdit::textEdited, this, [this] { Find(Begin::AtSelection, false); });
  hide();
}

void FindBar::Open() {
  const QString selected = m_view.textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) setText(selected);
  Place();
  show();
  selectAll();
  setFocus(Qt::ShortcutFocusReason);
}

void FindBar::Place() {
  const QRect area = m_view.viewport()->geometry();
  const int width = std::min(WidestBar, area.width());
  setGeometry(area.right() + 1 - width, area.bottom() + 1 - sizeHint().height(), width, sizeHint().height());
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return FindAgain(event->modifiers().testFlag(Qt::ShiftModifier));
  case Qt::Key_Escape:
    hide();
    return m_view.setFocus(Qt::OtherFocusReason);
  default:
    QLineEdit::keyPressEvent(event);
  }
}

/// Beyond the end of the text it goes on at the other one.
void FindBar::Find(Begin begin, bool backwards) {
  m_bringUpToDate(); // which moves the selection within the document
  const QTextDocument& text = *m_view.document();
  const QTextCursor cursor = m_view.textCursor();
  const bool behind = begin == Begin::BesideSelection && !backwards;
  const int from = behind ? cursor.selectionEnd() : cursor.selectionStart();
  const QTextDocument::FindFlags flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  const int end = text.characterCount() - 1;
  QTextCursor found = text.find(this->text(), std::min(from, end), flags);
  if (found.isNull()) found = text.find(this->text(), backwards ? end : 0, flags);
  QPalette colors = m_view.palette();
  if (found.isNull() && !this->text().isEmpty()) colors.setColor(QPalette::Base, NotFound);
  setPalette(colors);
  if (!found.isNull()) m_view.setTextCursor(found);
}

} // namespace portico::qt
