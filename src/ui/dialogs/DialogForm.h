#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IForm.h"
#include "ui/base/Tolerate.h"

#include <functional>
#include <memory>

namespace portico {

/// A dialog: the logic behind a form. Whoever shows it modally owns it; the form goes with it at the latest.
class DialogForm : public IObject, public std::enable_shared_from_this<DialogForm> {
public:
  ~DialogForm() override;

  /// To be called once, behind the constructor: connects the controls.
  virtual void Form_Initialize() = 0;
  /// Loads the dialog and shows it until it is hidden or unloaded. `Quit` passes.
  void ShowModal(IForm* Owner);
  /// Loads the dialog and shows it in front of its owner. It is kept until its form has been unloaded.
  void Show(IForm* Owner);
  void Hide();

protected:
  explicit DialogForm(const FormDesign& design);

  virtual void Form_Load() = 0;
  IForm& Form() const { return *m_form; }
  template <class Kind>
  Kind& Control(StringView name) const {
    return FindControl<Kind>(*m_form, name);
  }
  void Unload();

  /// Has an event handled as long as the dialog lives. A failure is written to the file of error reports under the
  /// label, which must be a literal, and nothing is shown.
  template <class... Args, class Handler>
  void On(Event<Args...>& event, StringView label, Handler handler) {
    event.Connect([dialog = weak_from_this(), label, handler](Args... args) {
      if (const auto alive = dialog.lock()) Filed(label, [&] { handler(args...); });
    });
  }
  /// Runs the body of such a handler.
  static void Filed(StringView label, const std::function<void()>& handler);

  /// Shows the application's help at a topic.
  static void ShowHelp(StringView topic);

private:
  Ref<IForm> m_form;
  std::shared_ptr<bool> m_loaded = std::make_shared<bool>(true);
};

/// A dialog, ready to be shown.
template <class Dialog>
Ref<Dialog> MakeDialog() {
  auto dialog = New<Dialog>();
  dialog->Form_Initialize();
  return dialog;
}

/// The same; one that cannot be made raises `CannotCarryOut` with the text.
template <class Dialog>
Ref<Dialog> MakeDialog(StringView FailureText) {
  Ref<Dialog> dialog;
  Tolerate([&] { dialog = MakeDialog<Dialog>(); });
  HuntERR::Check(bool(dialog), ErrorNumber::CannotCarryOut, FailureText);
  return dialog;
}

} // namespace portico
