#include "memory/forms/RichTextControl.h"

#include "memory/forms/DeviceContext.h"

#include <utility>

namespace portico::memory {

RichTextControl::RichTextControl(ControlOwner& form, const ControlDesign& design, Control* container)
    : FocusControl(form, design, container), Placement({}) {
  m_box->Text(design.Caption);
  m_box->Change().Connect([this] { Fire(m_change); });
}

void RichTextControl::SelPrint(const Ref<IDeviceContext>& hDC) {
  const auto context = Cast<DeviceContext>(hDC);
  context->Print(context->IsForSelection() && SelTextLength() > 0 ? SelText() : Text());
}

bool RichTextControl::Type(StringView text) {
  const Turn turn(Life());
  if (!IsUsable() || m_locked) return false;
  TakeFocus();
  m_box->SelText(text);
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
