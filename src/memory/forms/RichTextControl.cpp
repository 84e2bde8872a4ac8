#include "memory/forms/RichTextControl.h"

#include "memory/forms/DeviceContext.h"
#include "richtext/Unsendable.h"

#include <algorithm>
#include <utility>

namespace portico::memory {

RichTextControl::RichTextControl(ControlOwner& form, const ControlDesign& design, Control* container)
    : FocusControl(form, design, container), Placement({}) {
  m_box->Text(design.Caption);
  m_box->Change().Connect([this] {
    if (!std::exchange(m_isUsers, false)) m_steps.clear();
    Fire(m_change);
  });
  FocusControl::LostFocus().Connect([this] { m_offers.Close(); });
}

void RichTextControl::SelPrint(const Ref<IDeviceContext>& hDC) {
  const auto context = Cast<DeviceContext>(hDC);
  context->Print(context->IsForSelection() && SelTextLength() > 0 ? SelText() : Text());
}

void RichTextControl::OpenFind() {
  const String selected = SelText();
  const bool isWithinALine = selected.find_first_of(NewLine) == String::npos;
  if (!m_sought) m_sought = String();
  if (!selected.empty() && isWithinALine) m_sought = selected;
}

bool RichTextControl::SelectIfThere(std::int32_t position, StringView text) {
  if (!EqualNoCase(StringView(Text()).substr(static_cast<std::size_t>(position), text.size()), text)) return false;
  SelStart(position);
  SelLength(static_cast<std::int32_t>(text.size()));
  return true;
}

void RichTextControl::LookFor(StringView text) {
  m_sought = String(text);
  if (!SelectIfThere(SelStart(), text)) FindNext();
}

void RichTextControl::FindNext() {
  if (!m_sought || m_sought->empty()) return OpenFind();
  const std::int32_t count = TextLength() + 1;
  const std::int32_t behind = SelStart() + SelTextLength();
  for (std::int32_t i = 0; i < count; ++i) {
    if (SelectIfThere((behind + i) % count, *m_sought)) return;
  }
}

void RichTextControl::FindPrevious() {
  if (!m_sought || m_sought->empty()) return OpenFind();
  const std::int32_t count = TextLength() + 1;
  const std::int32_t start = SelStart();
  for (std::int32_t i = 1; i <= count; ++i) {
    if (SelectIfThere((start + count - i) % count, *m_sought)) return;
  }
}

void RichTextControl::ChangeZoom(ZoomChange change) {
  constexpr double step = 1.1;
  if (change == ZoomChange::ActualSize) m_zoom = 1;
  if (change == ZoomChange::In) m_zoom = std::min(m_zoom * step, 8.0);
  if (change == ZoomChange::Out) m_zoom = std::max(m_zoom / step, 0.3);
}

std::vector<String> RichTextControl::Underlined() const {
  std::vector<String> underlined;
  if (!m_underlinesUnsendable) return underlined;
  const String text = Text();
  for (const auto& span : richtext::UnsendableSpans(text)) underlined.push_back(text.substr(span.Start, span.Length));
  return underlined;
}

bool RichTextControl::Type(StringView text) {
  const Turn turn(Life());
  if (!IsUsable() || m_locked) return false;
  TakeFocus();
  AsUser([&] { m_box->SelText(text); });
  if (m_offers.IsOpen()) Fire(m_caretMoved);
  return true;
}

bool RichTextControl::MoveCaret(std::int32_t position) {
  const Turn turn(Life());
  if (!IsUsable()) return false;
  TakeFocus();
  SelStart(position);
  if (m_offers.IsOpen()) Fire(m_caretMoved);
  return true;
}

void RichTextControl::ShowOffers(const std::vector<String>& offers, std::int32_t /*start*/) {
  if (!HasFocus()) return m_offers.Close();
  m_offers.Show(offers);
}

bool RichTextControl::PressOfferKey(std::int32_t code) {
  constexpr std::int32_t page = 10;
  const Turn turn(Life());
  const OfferState::Effect effect = m_offers.EffectOf(code);
  if (effect == OfferState::Effect::None) return false;
  const std::int32_t chosen = m_offers.Chosen();
  if (effect == OfferState::Effect::Chooses) {
    m_offers.Choose(m_offers.ChoiceBy(code, page));
  } else {
    m_offers.Close();
  }
  if (effect == OfferState::Effect::Takes) Fire(m_offerTaken, chosen);
  return true;
}

void RichTextControl::AsUser(const std::function<void()>& edit) {
  struct Step {
    explicit Step(RichTextControl& box) : Box(box) {
      Box.m_steps.push_back({Box.TextRTF(), Box.SelStart()});
      Box.m_isUsers = true;
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step() { // what has changed nothing is no step
      if (std::exchange(Box.m_isUsers, false)) Box.m_steps.pop_back();
    }
    RichTextControl& Box;
  };
  const Turn turn(Life());
  const Step step(*this);
  m_box->EditAtOnce(edit);
}

bool RichTextControl::Undo() {
  if (m_steps.empty()) return false;
  const Before before = m_steps.back();
  m_steps.pop_back();
  m_isUsers = true;
  m_box->EditAtOnce([&] {
    m_box->TextRTF(before.Fragment);
    m_box->SelStart(before.Caret);
  });
  m_isUsers = false;
  return true;
}

bool RichTextControl::PressMouse(const MouseEvent& event) {
  const Turn turn(Life());
  if (!IsUsable()) return false;
  m_isPressed = true;
  if (event.Button == LeftButton) TakeFocus();
  Fire(m_mouseDown, event);
  return true;
}

bool RichTextControl::ReleaseMouse(const MouseEvent& event) {
  const Turn turn(Life());
  if (!std::exchange(m_isPressed, false)) return false;
  Fire(m_mouseUp, event);
  return true;
}

} // namespace portico::memory
