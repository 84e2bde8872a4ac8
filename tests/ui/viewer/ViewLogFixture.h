#pragma once

#include "memory/desktop/Screen.h"
#include "memory/forms/Areas.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/RichTextControl.h"
#include "support/Labels.h"
#include "ui/LogFixture.h"
#include "ui/viewer/frmViewLog.h"

namespace portico::test {

/// Viewers of logs.
class ViewLogFixture : public LogFixture {
protected:
  /// A viewer of a log of that name.
  Ref<memory::Form> View(const std::string& name);
  Ref<memory::Form> ViewOf(std::initializer_list<StringView> texts);
  static memory::RichTextControl& Past(const Ref<memory::Form>& form);
  static memory::MenuItem& Menu(const Ref<memory::Form>& form, StringView name);
  static memory::ToolBar& Bar(const Ref<memory::Form>& form);
  static memory::StatusBar& Status(const Ref<memory::Form>& form);
  template <class Control>
  static Control& Find(const Ref<memory::Form>& form, StringView name) {
    return FindControl<Control>(*form, name);
  }
  static void Select(memory::RichTextControl& box, std::int32_t start, std::int32_t length);
  /// That one box has come up, with the sentence and the report of an error that has passed the label last.
  void ExpectBox(StringView sentence, StringView label, StringView description);
};

} // namespace portico::test
