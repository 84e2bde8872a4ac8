#pragma once

#include "memory/forms/Areas.h"
#include "memory/forms/Bars.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/RichTextControl.h"
#include "support/ErrorReports.h"
#include "support/fixtures/WindowPlatform.h"

#include <gmock/gmock.h>

namespace portico::memory {

/// Forms, and a journal of their events.
class FormBench : public test::WindowTest {
protected:
  /// Writes an event down.
  std::function<void()> Note(const std::string& name) {
    return [this, name] { Calls.push_back(name); };
  }
  /// Writes the focus of a control down.
  void WatchFocus(FocusControl& control) {
    const std::string name = ToUtf8(control.Name());
    control.GotFocus().Connect(Note(name + " got"));
    control.LostFocus().Connect(Note(name + " lost"));
  }
  static Form& Shown(const Ref<IForm>& form) {
    form->Show();
    return dynamic_cast<Form&>(*form);
  }
  template <class Call>
  static std::int32_t NumberOf(Call&& call) {
    return test::Raised(call).Number;
  }

  std::vector<std::string> Calls;
};

} // namespace portico::memory
