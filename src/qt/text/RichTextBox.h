#pragma once

#include "platform/IRichTextControl.h"
#include "qt/text/RichTextEditor.h"
#include "qt/values/Placed.h"

namespace portico::qt {

/// The rich text box of a form. It is shown by a `TextView`, a child of `parent` that bears the design's name; that one
/// belongs to its window, and may go before the box, which then has no place any more.
class RichTextBox final : public RichTextEditor, public Placed, public virtual IRichTextControl {
public:
  /// The font is that of the standard formatting. Its size is in points.
  RichTextBox(const ControlDesign& design, QWidget& parent, StringView fontName, double fontSize);
  ~RichTextBox() override;
  StringView ClassName() const override { return u"RichTextBox"; }

  /// Null when the window has gone.
  TextView* Widget() const { return m_widget; }

  void SelPrint(const Ref<IDeviceContext>& hDC) override;

  StringView Name() const override { return m_name; }
  ControlKind Kind() const override { return ControlKind::RichTextBox; }
  String Tag() const override { return m_tag; }
  String Caption() const override { return {}; }
  void Caption(const String& newValue) override;
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override;
  bool Enabled() const override { return m_enabled; }
  void Enabled(bool newValue) override;
  bool Visible() const override { return m_visible; }
  void Visible(bool newValue) override;

  bool TabStop() const override { return m_tabStop; }
  void TabStop(bool newValue) override;
  void Locked(bool newValue) override;

  Event<>& GotFocus() override { return m_gotFocus; }
  Event<>& LostFocus() override { return m_lostFocus; }
  Event<const MouseEvent&>& MouseDown() override { return m_mouseDown; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouseUp; }

private:
  QRect Place() const override { return m_widget ? m_widget->geometry() : QRect(0, 0, 0, 0); }
  void Put(const QRect& place) override;

  void OnUserChange() override;
  void OnFocus(bool hasFocus) override;
  void OnMouseDown(const MouseEvent& event) override;
  void OnMouseUp(const MouseEvent& event) override;

  QPointer<TextView> m_widget;
  StringView m_name; // of the design, which is a constant
  String m_tag;
  String m_toolTipText;
  bool m_enabled = true;
  bool m_visible;
  bool m_tabStop = true;
  Event<> m_gotFocus;
  Event<> m_lostFocus;
  Event<const MouseEvent&> m_mouseDown;
  Event<const MouseEvent&> m_mouseUp;
};

} // namespace portico::qt
