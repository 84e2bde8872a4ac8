#pragma once

namespace portico::memory {

class Form;
class MenuItem;

/// The screen, as its forms see it.
class FormScreen {
public:
  virtual ~FormScreen() = default;

  virtual void Show(Form& form) = 0;
  virtual void ShowModal(Form& form) = 0;
  virtual void Hide(Form& form) = 0;
  /// The form is none of the screen's any more.
  virtual void Forget(Form& form) = 0;
  virtual void PlayPopup(MenuItem& menu) = 0;

  virtual bool IsShown(const Form& form) const = 0;
  virtual bool HasFocus(const Form& form) const = 0;
  /// What the user does reaches the form.
  virtual bool TakesInput(const Form& form) const = 0;
};

} // namespace portico::memory
