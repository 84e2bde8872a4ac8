#include "qt/text/OfferList.h"

#include "qt/text/TextView.h"
#include "qt/values/Keys.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QTextBlock>

#include <algorithm>

namespace portico::qt {
namespace {

constexpr int MostRows = 10;
constexpr int Rim = 2; // between the texts and the list's edge, on each side

/// A key that the list may heed; 0 for any other.
std::int32_t PlainKey(const QKeyEvent& event) {
  const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == 0;
  return isPlain ? KeyCode(event.key()) : 0;
}

} // namespace

OfferList::OfferList(TextView& view, IOfferOwner& owner) : QListWidget(&view), m_view(view), m_owner(&owner) {
  hide();
  setObjectName(QStringLiteral("offers"));
  setAccessibleName(QStringLiteral("Completions"));
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::ArrowCursor);
  setFrameShape(QFrame::Box);
  setLineWidth(1);
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!m_state.IsOpen() || row < 0) return;
    m_state.Choose(row);
    ShowChoice();
  });
  const auto moved = [this] {
    if (m_state.IsOpen() && m_owner != nullptr) m_owner->OnCaretMoved();
  };
  // Behind whatever the view is at.
  connect(&view, &QPlainTextEdit::cursorPositionChanged, this, moved, Qt::QueuedConnection);
  connect(&view, &QPlainTextEdit::updateRequest, this, [this](const QRect& /*area*/, int dy) {
    if (dy != 0 && m_state.IsOpen()) Place();
  });
  view.installEventFilter(this);
}

void OfferList::LetGo() {
  Close();
  m_owner = nullptr;
}

void OfferList::Show(const std::vector<String>& offers, std::int32_t typed) {
  m_state.Show(offers);
  m_typed = typed;
  {
    const QSignalBlocker quiet(this);
    clear();
    for (const String& offer : m_state.Offers()) addItem(ToQt(offer));
    setCurrentRow(m_state.Chosen());
  }
  WearColors();
  Place();
  show();
  raise();
  scrollToItem(currentItem());
  ShowChoice();
}

void OfferList::Close() {
  if (!m_state.IsOpen()) return;
  m_state.Close();
  hide();
  m_view.setAccessibleDescription({});
}

void OfferList::ShowChoice() {
  const auto number = m_state.Chosen() + 1;
  m_view.setAccessibleDescription(QStringLiteral("%1, %2 of %3")
                                      .arg(ToQt(m_state.Offers()[static_cast<std::size_t>(m_state.Chosen())]))
                                      .arg(number)
                                      .arg(m_state.Offers().size()));
}

bool OfferList::Press(std::int32_t key) {
  const OfferState::Effect effect = m_state.EffectOf(key);
  const std::int32_t chosen = m_state.Chosen();
  switch (effect) {
  case OfferState::Effect::None:
    return false;
  case OfferState::Effect::Chooses:
    setCurrentRow(m_state.ChoiceBy(key, std::max(1, viewport()->height() / std::max(1, sizeHintForRow(0)))));
    return true;
  case OfferState::Effect::Closes:
    Close();
    return true;
  case OfferState::Effect::Takes:
    Close();
    if (m_owner != nullptr) m_owner->OnOfferTaken(chosen);
    return true;
  }
  return false;
}

bool OfferList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &m_view) return QListWidget::eventFilter(watched, event);
  if (!m_state.IsOpen()) return false;
  switch (event->type()) {
  case QEvent::ShortcutOverride:
    if (m_state.EffectOf(PlainKey(static_cast<const QKeyEvent&>(*event))) == OfferState::Effect::None) return false;
    event->accept();
    return true;
  case QEvent::KeyPress:
    return Press(PlainKey(static_cast<const QKeyEvent&>(*event)));
  case QEvent::FocusOut:
  case QEvent::Hide:
    Close();
    return false;
  case QEvent::Resize:
    Place();
    return false;
  default:
    return false;
  }
}

bool OfferList::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) WearColors();
  return QListWidget::event(event);
}

/// The view's own colours are for its text alone.
void OfferList::WearColors() {
  const QPalette desktop = QApplication::palette(this);
  QPalette colors = palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (const auto role : {QPalette::Base, QPalette::Text, QPalette::Window, QPalette::WindowText, QPalette::Highlight,
                            QPalette::HighlightedText, QPalette::Button, QPalette::ButtonText}) {
      colors.setBrush(group, role, desktop.brush(group, role));
    }
  }
  if (colors != palette()) setPalette(colors);
}

void OfferList::Place() {
  const QRect room = m_view.viewport()->geometry();
  QTextCursor start = m_view.textCursor();
  start.setPosition(std::max(start.block().position(), start.position() - static_cast<int>(m_typed)));
  const QRect line = m_view.cursorRect(start).translated(room.topLeft());
  const int frame = 2 * frameWidth();
  const int row = std::max(1, sizeHintForRow(0));
  const int above = std::clamp(line.top() - room.top(), 0, room.height());
  const int below = std::clamp(room.bottom() - line.bottom(), 0, room.height());
  const int wanted = std::min(count(), MostRows) * row + frame;
  const bool isBelow = below >= wanted || below >= above;
  // Where not even one line fits it covers the caret's own.
  const int height = std::min(room.height(), std::clamp(isBelow ? below : above, row + frame, wanted));
  const int top =
      isBelow ? std::min(line.bottom() + 1, room.bottom() + 1 - height) : std::max(line.top() - height, room.top());
  const int bar = height < wanted || count() > MostRows ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
  const int width = std::min(room.width(), sizeHintForColumn(0) + frame + bar + 2 * Rim);
  const int left = std::clamp(line.left(), room.left(), room.right() + 1 - width);
  setGeometry(left, std::max(top, room.top()), width, height);
}

} // namespace portico::qt
