#include "qt/text/RichTextBox.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "qt/loop/HandlerTurn.h"
#include "qt/text/TextPrinter.h"
#include "qt/values/QtText.h"

namespace portico::qt {

RichTextBox::RichTextBox(const ControlDesign& design, QWidget& parent, StringView fontName, double fontSize)
    : RichTextEditor(*new TextView(&parent), fontName, fontSize),
      m_widget(&View()),
      m_name(design.Name),
      m_tag(design.Tag),
      m_visible(design.Visible) {
  m_widget->setObjectName(ToQt(design.Name));
  m_widget->setAccessibleName(ToQt(design.Name));
  m_widget->setVisible(m_visible);
  RichTextBox::ToolTipText(String(design.ToolTipText));
}

RichTextBox::~RichTextBox() = default;

void RichTextBox::SelPrint(const Ref<IDeviceContext>& hDC) {
  const Ref<IPrinterContext> context = Cast<IPrinterContext>(hDC);
  PrintText(context->SelectionOnly() && SelTextLength() > 0 ? Lines().Copy(From(), To()) : Lines().CopyAll(),
            Standard().Character, context->Printer());
}

void RichTextBox::Caption(const String& /*newValue*/) { HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound); }

void RichTextBox::ToolTipText(const String& newValue) {
  m_toolTipText = newValue;
  if (m_widget) m_widget->setToolTip(ToQt(newValue));
}

void RichTextBox::Enabled(bool newValue) {
  m_enabled = newValue;
  if (m_widget) m_widget->setEnabled(newValue);
}

void RichTextBox::Visible(bool newValue) {
  m_visible = newValue;
  if (m_widget) m_widget->setVisible(newValue);
}

void RichTextBox::Put(const QRect& place) {
  if (m_widget) m_widget->setGeometry(place);
}

void RichTextBox::TabStop(bool newValue) {
  m_tabStop = newValue;
  if (m_widget) m_widget->setFocusPolicy(newValue ? Qt::WheelFocus : Qt::ClickFocus);
}

void RichTextBox::Locked(bool newValue) {
  if (m_widget) m_widget->Lock(newValue);
}

// Handlers may let the box go.

void RichTextBox::OnUserChange() {
  const Event<> event = Change();
  Enter([&] { event(); });
}

void RichTextBox::OnFocus(bool hasFocus) {
  const Event<> event = hasFocus ? m_gotFocus : m_lostFocus;
  Enter([&] { event(); });
}

void RichTextBox::OnMouseDown(const MouseEvent& event) {
  const Event<const MouseEvent&> mouseDown = m_mouseDown;
  Enter([&] { mouseDown(event); });
}

void RichTextBox::OnMouseUp(const MouseEvent& event) {
  const Event<const MouseEvent&> mouseUp = m_mouseUp;
  Enter([&] { mouseUp(event); });
}

} // namespace portico::qt
