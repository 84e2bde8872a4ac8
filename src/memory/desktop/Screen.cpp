#include "memory/desktop/Screen.h"

#include "framework/errors/Quit.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace portico::memory {

Screen::~Screen() {
  for (const auto& form : m_forms) {
    form->m_screen = nullptr;
    form->m_life.LetGo();
  }
}

Ref<IForm> Screen::Load(const FormDesign& design) {
  const auto form = New<Form>(*this, design);
  form->Keep(form); // until it is unloaded and none of its handlers is running
  m_forms.push_back(form);
  return form;
}

std::vector<Ref<IForm>> Screen::Forms() const { return {m_forms.begin(), m_forms.end()}; }

IControl* Screen::ActiveControl() const {
  return m_shown.empty() ? nullptr : dynamic_cast<IControl*>(m_shown.back()->Focus().Active());
}

Ref<Form> Screen::Find(StringView name) const {
  const auto found =
      std::find_if(m_forms.rbegin(), m_forms.rend(), [&](const auto& form) { return form->Name() == name; });
  return found == m_forms.rend() ? Ref<Form>() : *found;
}

void Screen::SwitchAway() {
  if (std::exchange(m_isAway, true)) return;
  if (Form* front = InFront(); front != nullptr) front->Deactivate();
}

void Screen::SwitchBack() {
  if (!std::exchange(m_isAway, false)) return;
  if (Form* front = InFront(); front != nullptr) front->Activate();
}

std::vector<String> Screen::Unplayed() const {
  std::vector<String> names = m_modalScript.Names();
  for (String& name : m_popupScript.Names()) names.push_back(std::move(name));
  return names;
}

void Screen::Show(Form& form) {
  Form* const front = InFront();
  if (front == &form) return;
  if (!IsShown(form)) form.KeepOnScreen();
  std::erase(m_shown, &form);
  m_shown.push_back(&form);
  if (front != nullptr) front->Deactivate();
  if (std::exchange(form.m_resizeIsDue, false)) form.Fire(form.m_events.Resize);
  if (HasFocus(form)) form.Activate();
}

void Screen::ShowModal(Form& form) {
  CloseIfQuitting(form);
  const Script<Form>::Act act = m_modalScript.Take(form.Name());
  if (!act) {
    m_unexpected.emplace_back(form.Name());
    throw std::logic_error("nobody expects the modal form " + ToUtf8(form.Name()));
  }
  const auto end = [&] {
    std::erase(m_modal, &form);
    Hide(form);
  };
  m_modal.push_back(&form);
  try {
    Show(form);
    act(form);
    CloseIfQuitting(form);
    if (IsShown(form)) throw std::logic_error("nobody closes the modal form " + ToUtf8(form.Name()));
  } catch (...) {
    end();
    throw;
  }
}

void Screen::CloseIfQuitting(Form& form) const {
  if (!IsQuitting()) return;
  form.Unload();
  throw Quit{};
}

void Screen::Hide(Form& form) {
  const bool hadFocus = HasFocus(form);
  std::erase(m_modal, &form);
  if (std::erase(m_shown, &form) == 0) return;
  form.Deactivate();
  if (Form* front = InFront(); hadFocus && front != nullptr && HasFocus(*front)) front->Activate();
}

void Screen::Forget(Form& form) {
  form.m_screen = nullptr;
  const auto found =
      std::find_if(m_forms.begin(), m_forms.end(), [&](const auto& held) { return held.Get() == &form; });
  const Ref<Form> last = *found; // for as long as it takes
  m_forms.erase(found);
  form.m_life.LetGo();
}

bool Screen::IsShown(const Form& form) const {
  return std::find(m_shown.begin(), m_shown.end(), &form) != m_shown.end();
}

bool Screen::TakesInput(const Form& form) const {
  return !m_isAway && IsShown(form) && (m_modal.empty() || m_modal.back() == &form);
}

void Screen::PlayPopup(MenuItem& menu) {
  if (IsQuitting()) throw Quit{};
  if (const auto act = m_popupScript.Take(menu.Name())) act(menu);
  if (IsQuitting()) throw Quit{};
}

} // namespace portico::memory
