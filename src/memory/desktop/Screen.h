#pragma once

#include "memory/desktop/Script.h"
#include "memory/forms/Bars.h"
#include "memory/forms/Form.h"
#include "memory/forms/FormScreen.h"

#include <functional>
#include <utility>
#include <vector>

namespace portico::memory {

/// Forms without windows, one in front of the other. What the user does with a modal form and with a popup menu is laid
/// down before it is shown.
class Screen final : public IForms, public FormScreen {
public:
  /// `isQuitting`: the program has been told to end, and modal forms and popup menus throw `Quit`.
  explicit Screen(std::function<bool()> isQuitting = {}) : m_isQuitting(std::move(isQuitting)) {}
  /// Forms that are still loaded are let go of; no event of theirs fires.
  ~Screen() override;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// A parent that stands behind its child in a table, or nowhere, throws `std::logic_error`.
  Ref<IForm> Load(const FormDesign& design) override;
  std::vector<Ref<IForm>> Forms() const override;
  IControl* ActiveControl() const override;

  /// The form of a name that was loaded last; none if there is none.
  Ref<Form> Find(StringView name) const;
  /// Null if no form is on the screen.
  Form* InFront() const { return m_shown.empty() ? nullptr : m_shown.back(); }

  /// Played when the form of that name is shown modally; it must hide or unload the form before it returns. A modal
  /// form without such a script throws `std::logic_error`.
  void OnShowModal(StringView form, Script<Form>::Act act) { m_modalScript.Add(form, std::move(act)); }
  /// Played when that menu pops up.
  void OnPopup(StringView menu, Script<MenuItem>::Act act) { m_popupScript.Add(menu, std::move(act)); }
  /// The user turns to another program, and back.
  void SwitchAway();
  void SwitchBack();

  /// Modal forms that were shown without a script, and scripts that were not played.
  const std::vector<String>& Unexpected() const { return m_unexpected; }
  std::vector<String> Unplayed() const;

private:
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  void Forget(Form& form) override;
  void PlayPopup(MenuItem& menu) override;
  bool IsShown(const Form& form) const override;
  bool HasFocus(const Form& form) const override { return !m_isAway && InFront() == &form; }
  bool TakesInput(const Form& form) const override;
  void CloseIfQuitting(Form& form) const;
  bool IsQuitting() const { return m_isQuitting && m_isQuitting(); }

  std::function<bool()> m_isQuitting;
  std::vector<Ref<Form>> m_forms;
  std::vector<Form*> m_shown; // the one in front last
  std::vector<Form*> m_modal; // the innermost last
  bool m_isAway = false;
  Script<Form> m_modalScript;
  Script<MenuItem> m_popupScript;
  std::vector<String> m_unexpected;
};

} // namespace portico::memory
