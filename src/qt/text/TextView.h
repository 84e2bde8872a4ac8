#pragma once

#include "framework/text/text.h"
#include "platform/IReadingAids.h"
#include "platform/MouseEvent.h"

#include <QMimeData>
#include <QPlainTextEdit>
#include <QPoint>
#include <QTextCursor>

#include <functional>
#include <memory>
#include <optional>

namespace portico::qt {

class FindBar;
class TextLayout;

/// The box whose text a view shows. While the view tells it of an event it may go.
class ITextViewOwner {
public:
  virtual ~ITextViewOwner() = default;

  /// Called before whatever the user does or asks: the document must be brought up to what the box holds.
  virtual void Show() = 0;
  /// Called after it, outside of the toolkit's own work: the box must be brought up to what the document holds, and
  /// handlers may run.
  virtual void Settle() = 0;
  virtual std::unique_ptr<QMimeData> Selection() = 0;
  /// Puts text in place of the selection, as one step of the user's undo.
  virtual void Insert(const QMimeData& data) = 0;
  virtual void InsertText(StringView text) = 0;
  /// Puts text at a place of the document, and removes what `moved` selects, if anything.
  virtual void Drop(const QMimeData& data, const QTextCursor& place, const QTextCursor& moved) = 0;
  /// The look of what is typed in place of the selection.
  virtual QTextCharFormat TypingFormat() = 0;
  virtual void Zoom(double factor) = 0;
  virtual void OnFocus(bool hasFocus) = 0;
  virtual void OnMouseDown(const MouseEvent& event) = 0;
  virtual void OnMouseUp(const MouseEvent& event) = 0;
};

/// The widget of a rich text box: black on white in every theme, without wrapping. It belongs to its window. The
/// box that owns its text may go before it.
class TextView final : public QPlainTextEdit {
public:
  explicit TextView(QWidget* parent = nullptr);

  /// With null the view has no owner any more.
  void Owner(ITextViewOwner* owner) { m_owner = owner; }
  /// The user can select and copy, and cannot change.
  void Lock(bool isLocked);
  TextLayout& Layout() const { return *m_layout; }
  /// The factor that all text is enlarged by; 1 is its own size.
  void Zoom(double factor);
  double Zoom() const { return m_zoom; }
  void Zoom(ZoomChange change);
  /// Draws a line under each character that the instrument's code page lacks.
  void UnderlinesUnsendable(bool newValue);
  /// Opens the field at the lower edge in which the user says what to look for.
  void OpenFind();
  /// The next place of what stands in that field, or the one before; opens the field if nothing does.
  void FindAgain(bool backwards);
  /// Shows what the owner has not yet shown.
  void BringUpToDate() const;
  /// Room for others beside the text, in pixels.
  void SideMargins(int left, int right) { setViewportMargins(left, 0, right, 0); }
  /// `see` of each line in sight: its block's number, and where it stands in the viewport.
  void VisitSeen(const std::function<void(int block, double top, double height)>& see) const;

  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

  bool canInsertFromMimeData(const QMimeData* source) const override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

private:
  template <class Call>
  bool Around(Call&& call);
  bool ZoomKey(const QKeyEvent& event);
  bool FindKey(const QKeyEvent& event);
  bool EditKey(const QKeyEvent& event);
  /// What the owner is told of a mouse event, whose place is counted from the corner of the viewport: there it is
  /// counted from the corner of the view.
  MouseEvent Told(const QMouseEvent& event) const;
  void Drag();

  ITextViewOwner* m_owner = nullptr;
  TextLayout* m_layout;
  FindBar* m_find = nullptr; // made when it is first asked for
  double m_zoom = 1;
  bool m_underlinesUnsendable = false;
  double m_pointSize = 0; // before it is zoomed
  std::optional<QPoint> m_dragFrom;
  QTextCursor m_dragged; // while the drag lasts
};

} // namespace portico::qt
