#include "qt/text/TextView.h"

#include "qt/text/FindBar.h"
#include "qt/text/TextClipboard.h"
#include "qt/text/TextLayout.h"
#include "qt/text/UnsendableUnderline.h"
#include "qt/values/Mouse.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace portico::qt {
namespace {

constexpr double ZoomStep = 1.1;
constexpr double LeastZoom = 0.3;
constexpr double MostZoom = 8;
constexpr int WheelNotch = 120;

const QColor SelectionGround(0x2A, 0x6F, 0xC4);
const QColor IdleSelectionGround(0xB8, 0xCF, 0xEA);

/// The markers of a conversation are white on white.
QPalette BlackOnWhite(QPalette palette) {
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Highlight, SelectionGround);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, IdleSelectionGround);
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
  return palette;
}

bool IsMenu(Qt::FocusReason reason) { return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason; }

bool IsTyped(const QKeyEvent& event) {
  constexpr int commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return !event.text().isEmpty() && event.text().front().isPrint() && (event.modifiers() & commands) == 0;
}

bool IsLineEnd(const QKeyEvent& event) {
  return event.matches(QKeySequence::InsertParagraphSeparator) || event.matches(QKeySequence::InsertLineSeparator);
}

/// Whether the user does something with the text that a viewport shows.
bool IsAction(const QEvent& event) {
  switch (event.type()) {
  case QEvent::MouseMove:
    return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseButtonRelease:
  case QEvent::Wheel:
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
    return true;
  default:
    return false;
  }
}

} // namespace

TextView::TextView(QWidget* parent) : QPlainTextEdit(parent), m_layout(new TextLayout(document())) {
  document()->setDocumentLayout(m_layout);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setContextMenuPolicy(Qt::NoContextMenu);
  setTabChangesFocus(true);
  setPalette(BlackOnWhite(palette()));
  connect(verticalScrollBar(), &QAbstractSlider::sliderPressed, this, &TextView::BringUpToDate);
  connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this, &TextView::BringUpToDate);
}

void TextView::Lock(bool isLocked) {
  setTextInteractionFlags(isLocked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                   : Qt::TextEditorInteraction);
}

void TextView::Zoom(double factor) {
  m_zoom = std::clamp(factor, LeastZoom, MostZoom);
  if (m_pointSize == 0) m_pointSize = font().pointSizeF();
  QFont zoomed = font();
  zoomed.setPointSizeF(m_pointSize * m_zoom);
  m_layout->Zoom(m_zoom);
  setFont(zoomed);
  if (m_owner != nullptr) m_owner->Zoom(m_zoom);
}

void TextView::BringUpToDate() const {
  if (m_owner != nullptr) m_owner->Show();
}

void TextView::VisitSeen(const std::function<void(int block, double top, double height)>& see) const {
  QTextBlock block = firstVisibleBlock();
  double top = block.isValid() ? blockBoundingGeometry(block).translated(contentOffset()).top() : 0;
  for (int number = block.blockNumber(); block.isValid() && top < viewport()->height(); ++number) {
    const double height = blockBoundingRect(block).height();
    see(number, top, height);
    top += height;
    block = block.next();
  }
}

template <class Call>
bool TextView::Around(Call&& call) {
  BringUpToDate();
  const bool isDone = call();
  if (m_owner != nullptr) m_owner->Settle();
  return isDone;
}

bool TextView::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::InputMethod:
    return Around([&] { return QPlainTextEdit::event(event); });
  default:
    return QPlainTextEdit::event(event);
  }
}

bool TextView::viewportEvent(QEvent* event) {
  const auto handle = [&] { return QPlainTextEdit::viewportEvent(event); };
  return IsAction(*event) ? Around(handle) : handle();
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query != Qt::ImEnabled) BringUpToDate(); // which is asked of whoever gets the focus
  return QPlainTextEdit::inputMethodQuery(query);
}

void TextView::Zoom(ZoomChange change) {
  switch (change) {
  case ZoomChange::In:
    return Zoom(m_zoom * ZoomStep);
  case ZoomChange::Out:
    return Zoom(m_zoom / ZoomStep);
  case ZoomChange::ActualSize:
    return Zoom(1);
  }
}

bool TextView::ZoomKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::ZoomIn) ||
      (event.key() == Qt::Key_Equal && event.modifiers() == Qt::ControlModifier)) {
    Zoom(ZoomChange::In);
  } else if (event.matches(QKeySequence::ZoomOut)) {
    Zoom(ZoomChange::Out);
  } else if (event.key() == Qt::Key_0 && event.modifiers() == Qt::ControlModifier) {
    Zoom(ZoomChange::ActualSize);
  } else {
    return false;
  }
  return true;
}

void TextView::OpenFind() {
  if (m_find == nullptr) m_find = new FindBar(*this, [this] { BringUpToDate(); });
  m_find->Open();
}

void TextView::FindAgain(bool backwards) {
  if (m_find == nullptr || m_find->text().isEmpty()) return OpenFind();
  m_find->FindAgain(backwards);
}

bool TextView::FindKey(const QKeyEvent& event) {
  if (!event.matches(QKeySequence::Find)) return false;
  OpenFind();
  return true;
}

/// Keys whose text the box itself puts in, since its look there differs from what the toolkit would choose.
bool TextView::EditKey(const QKeyEvent& event) {
  if (m_owner == nullptr || isReadOnly()) return false;
  if (IsLineEnd(event)) {
    m_owner->InsertText(NewLine);
  } else if (event.key() == Qt::Key_Tab && event.modifiers() == Qt::ControlModifier) {
    m_owner->InsertText(u"\t");
  } else if (IsTyped(event) && textCursor().hasSelection()) {
    QTextCursor cursor = textCursor();
    cursor.insertText(event.text(), m_owner->TypingFormat());
    setTextCursor(cursor);
  } else {
    return false;
  }
  ensureCursorVisible();
  return true;
}

void TextView::keyPressEvent(QKeyEvent* event) {
  if (ZoomKey(*event) || FindKey(*event) || EditKey(*event)) {
    event->accept();
    return;
  }
  if (m_owner != nullptr && !textCursor().hasSelection()) setCurrentCharFormat(m_owner->TypingFormat());
  QPlainTextEdit::keyPressEvent(event);
}

void TextView::inputMethodEvent(QInputMethodEvent* event) {
  if (isReadOnly()) return event->ignore();
  if (m_owner != nullptr) {
    const QTextCharFormat format = m_owner->TypingFormat();
    if (textCursor().hasSelection() && !(event->commitString().isEmpty() && event->preeditString().isEmpty())) {
      textCursor().removeSelectedText();
    }
    if (!textCursor().hasSelection()) setCurrentCharFormat(format);
  }
  QPlainTextEdit::inputMethodEvent(event);
}

MouseEvent TextView::Told(const QMouseEvent& event) const {
  return ToMouseEvent(event, event.button(), viewport()->mapTo(this, event.position().toPoint()));
}

void TextView::mousePressEvent(QMouseEvent* event) {
  m_dragFrom.reset();
  if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier) {
    const QTextCursor selected = textCursor();
    const int place = cursorForPosition(event->position().toPoint()).position();
    if (place > selected.selectionStart() && place < selected.selectionEnd()) m_dragFrom = event->position().toPoint();
  }
  const MouseEvent told = Told(*event);
  QPlainTextEdit::mousePressEvent(event);
  if (m_owner != nullptr) m_owner->OnMouseDown(told);
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
  if (m_dragFrom && (event->buttons() & Qt::LeftButton) && textCursor().hasSelection()) {
    if ((event->position().toPoint() - *m_dragFrom).manhattanLength() > QApplication::startDragDistance()) {
      m_dragFrom.reset();
      Drag();
    }
    return;
  }
  QPlainTextEdit::mouseMoveEvent(event);
}

void TextView::mouseReleaseEvent(QMouseEvent* event) {
  m_dragFrom.reset();
  const MouseEvent told = Told(*event);
  QPlainTextEdit::mouseReleaseEvent(event);
  if (m_owner != nullptr) m_owner->OnMouseUp(told);
}

/// The toolkit's own drag would take away what is selected at its end, which the program may have changed meanwhile.
void TextView::Drag() {
  m_dragged = textCursor();
  const QString text = m_dragged.selectedText();
  auto* drag = new QDrag(this); // which deletes itself
  drag->setMimeData(createMimeDataFromSelection());
  const Qt::DropActions actions = isReadOnly() ? Qt::DropActions(Qt::CopyAction) : Qt::CopyAction | Qt::MoveAction;
  const Qt::DropAction action = drag->exec(actions, isReadOnly() ? Qt::CopyAction : Qt::MoveAction);
  const bool isOwnTarget = drag->target() == this || drag->target() == viewport();
  if (action == Qt::MoveAction && !isOwnTarget && m_dragged.selectedText() == text) m_dragged.removeSelectedText();
  m_dragged = {};
}

void TextView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QPlainTextEdit::wheelEvent(event);
  const double notches = static_cast<double>(event->angleDelta().y()) / WheelNotch;
  Zoom(m_zoom * std::pow(ZoomStep, notches));
  event->accept();
}

void TextView::UnderlinesUnsendable(bool newValue) {
  m_underlinesUnsendable = newValue;
  viewport()->update();
}

void TextView::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  if (!m_underlinesUnsendable) return;
  QPainter painter(viewport());
  for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
    const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    if (place.top() > event->rect().bottom()) return;
    UnderlineUnsendable(painter, block, place.topLeft());
  }
}

void TextView::dropEvent(QDropEvent* event) {
  if (m_owner == nullptr || isReadOnly() || !canInsertFromMimeData(event->mimeData())) return event->ignore();
  const bool isOwn = event->source() == this || event->source() == viewport();
  const bool isMove = isOwn && event->dropAction() == Qt::MoveAction;
  const QTextCursor place = cursorForPosition(event->position().toPoint());
  QDragLeaveEvent leave; // takes the mark away that shows where it would drop
  QPlainTextEdit::dragLeaveEvent(&leave);
  m_owner->Drop(*event->mimeData(), place, isMove ? m_dragged : QTextCursor());
  event->acceptProposedAction();
}

void TextView::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  if (m_find != nullptr) m_find->Place();
}

void TextView::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  ensureCursorVisible();
}

void TextView::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  if (m_owner != nullptr && !IsMenu(event->reason())) m_owner->OnFocus(true);
}

void TextView::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  if (m_owner != nullptr && !IsMenu(event->reason())) m_owner->OnFocus(false);
}

bool TextView::canInsertFromMimeData(const QMimeData* source) const { return HasText(*source); }

QMimeData* TextView::createMimeDataFromSelection() const {
  return m_owner == nullptr ? QPlainTextEdit::createMimeDataFromSelection() : m_owner->Selection().release();
}

void TextView::insertFromMimeData(const QMimeData* source) {
  if (m_owner == nullptr || isReadOnly()) return;
  m_owner->Insert(*source);
  ensureCursorVisible();
}

} // namespace portico::qt
