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
  if (m_offers) m_offers->LetGo();
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

void RichTextBox::ShowOffers(const std::vector<String>& offers, std::int32_t start) {
  if (!m_widget || !m_widget->hasFocus() || offers.empty()) return CloseOffers();
  Show();
  if (!m_offers) m_offers = new OfferList(*m_widget, *this); // which belongs to the view
  m_offers->Show(offers, SelStart() - start);
}

void RichTextBox::CloseOffers() {
  if (m_offers) m_offers->Close();
}

const std::vector<String>& RichTextBox::Offers() const {
  static const std::vector<String> none;
  return m_offers ? m_offers->State().Offers() : none;
}

std::int32_t RichTextBox::ChosenOffer() const { return m_offers ? m_offers->State().Chosen() : -1; }

// Handlers may let the box go.

void RichTextBox::OnOfferTaken(std::int32_t offer) {
  const Event<std::int32_t> event = m_offerTaken;
  Enter([&] { event(offer); });
}

void RichTextBox::OnCaretMoved() {
  const Event<> event = m_caretMoved;
  Enter([&] { event(); });
}

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
