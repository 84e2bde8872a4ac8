#pragma once

#include "framework/text/text.h"
#include "platform/MouseEvent.h"

#include <QMimeData>
#include <QPlainTextEdit>
#include <QPoint>
#include <QTextCursor>

#include <memory>
#include <optional>

namespace portico::qt {

class FindBar;
class TextLayout;

/// The box whose text a view shows. It outlives no event of the view's that it is told of.
class ITextViewOwner {
public:
  virtual ~ITextViewOwner() = default;

  /// Comes before all that the user does or asks: the document is to be as the box is.
  virtual void Show() = 0;
  /// Comes behind it, outside of the toolkit's own work: the box is to be as the document is, and handlers may run.
  virtual void Settle() = 0;
  virtual std::unique_ptr<QMimeData> Selection() = 0;
  /// Puts text in place of the selection, as one step of the user's undo.
  virtual void Insert(const QMimeData& data) = 0;
  virtual void InsertText(StringView text) = 0;
  /// The same at a place of the document; then takes away what `moved` selects, if anything.
  virtual void Drop(const QMimeData& data, const QTextCursor& place, const QTextCursor& moved) = 0;
  /// What is typed in place of the selection looks like this.
  virtual QTextCharFormat TypingFormat() = 0;
  virtual void Zoom(double factor) = 0;
  virtual void OnFocus(bool hasFocus) = 0;
  virtual void OnMouseDown(const MouseEvent& event) = 0;
  virtual void OnMouseUp(const MouseEvent& event) = 0;
};

/// The widget of a rich text box: black on white in every theme, without wrapping. It belongs to its window, and works
/// for an owner for as long as that one likes.
class TextView final : public QPlainTextEdit {
public:
  explicit TextView(QWidget* parent = nullptr);

  /// Null for none.
  void Owner(ITextViewOwner* owner) { m_owner = owner; }
  /// The user can select and copy, and cannot change.
  void Lock(bool isLocked);
  TextLayout& Layout() const { return *m_layout; }
  /// What the size of the standard text is multiplied with to make it larger or smaller.
  void Zoom(double factor);
  double Zoom() const { return m_zoom; }
  /// What is still to be shown is shown.
  void BringUpToDate() const;

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
  /// What an owner is told of it: its place is one within the whole of the view.
  MouseEvent Told(const QMouseEvent& event) const;
  void Drag();

  ITextViewOwner* m_owner = nullptr;
  TextLayout* m_layout;
  FindBar* m_find = nullptr; // once it has been asked for
  double m_zoom = 1;
  double m_pointSize = 0; // before it is zoomed
  std::optional<QPoint> m_dragFrom;
  QTextCursor m_dragged; // while the drag lasts
};

} // namespace portico::qt
