#include "qt/text/RichTextBox.h"

#include "qt/loop/HandlerTurn.h"
#include "qt/text/TextPrinter.h"
#include "qt/values/QtText.h"

namespace portico::qt {

RichTextBox::RichTextBox(const ControlDesign& design, QWidget& parent, StringView fontName, double fontSize)
    : RichTextEditor(*new TextView(&parent), fontName, fontSize), ControlState(design), m_widget(&View()) {
  m_widget->setObjectName(ToQt(design.Name));
  m_widget->setAccessibleName(ToQt(design.Name));
  RichTextBox::ShowVisible();
  RichTextBox::ShowToolTipText();
}

RichTextBox::~RichTextBox() {
  if (m_margin) m_margin->LetGo();
}

void RichTextBox::SelPrint(const Ref<IDeviceContext>& hDC) {
  const Ref<IPrinterContext> context = Cast<IPrinterContext>(hDC);
  PrintText(context->SelectionOnly() && SelTextLength() > 0 ? Lines().Copy(From(), To()) : Lines().CopyAll(),
            Standard().Character, context->Printer());
}

void RichTextBox::ShowToolTipText() {
  if (m_widget) m_widget->setToolTip(ToQt(ToolTipText()));
}

void RichTextBox::ShowEnabled() {
  if (m_widget) m_widget->setEnabled(Enabled());
}

void RichTextBox::ShowVisible() {
  if (m_widget) m_widget->setVisible(Visible());
}

void RichTextBox::Put(const QRect& place) {
  if (m_widget) m_widget->setGeometry(place);
}

void RichTextBox::TabStop(bool newValue) {
  if (newValue == m_tabStop) return;
  m_tabStop = newValue;
  if (m_widget) m_widget->setFocusPolicy(newValue ? Qt::WheelFocus : Qt::ClickFocus);
}

void RichTextBox::Locked(bool newValue) {
  if (m_widget) m_widget->Lock(newValue);
}

void RichTextBox::OpenFind() {
  if (m_widget) m_widget->OpenFind();
}

void RichTextBox::FindAgain(bool backwards) {
  if (m_widget) m_widget->FindAgain(backwards);
}

void RichTextBox::ChangeZoom(ZoomChange change) {
  if (m_widget) m_widget->Zoom(change);
}

void RichTextBox::UnderlinesUnsendable(bool newValue) {
  if (m_widget) m_widget->UnderlinesUnsendable(newValue);
}

void RichTextBox::OnMarks() {
  if (m_margin) return m_margin->Show();
  if (m_widget) m_margin = new MarkMargin(*m_widget, *this); // which belongs to the view
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
