#pragma once

#include "memory/forms/Areas.h"
#include "memory/forms/DialogControls.h"
#include "ui/LogFixture.h"
#include "ui/viewer/frmViewLog.h"

namespace portico::test {

/// Viewers of logs.
class ViewLogFixture : public LogFixture {
protected:
  /// A viewer of a log of that name.
  Ref<memory::Form> View(const std::string& name) {
    const auto viewer = frmViewLog::Make();
    viewer->FileName(NameOf(name));
    viewer->Show(&Main->Form());
    return Platform.Screen->Find(u"frmViewLog");
  }
  Ref<memory::Form> ViewOf(std::initializer_list<StringView> texts) {
    MakeLog("run.log", texts);
    return View("run.log");
  }
  static memory::RichTextControl& Past(const Ref<memory::Form>& form) {
    return Find<memory::RichTextControl>(form, u"txtPast");
  }
  static memory::MenuItem& Menu(const Ref<memory::Form>& form, StringView name) {
    return Find<memory::MenuItem>(form, name);
  }
  static memory::ToolBar& Bar(const Ref<memory::Form>& form) { return Find<memory::ToolBar>(form, ToolBarName); }
  static memory::StatusBar& Status(const Ref<memory::Form>& form) {
    return Find<memory::StatusBar>(form, StatusBarName);
  }
  template <class Control>
  static Control& Find(const Ref<memory::Form>& form, StringView name) {
    return FindControl<Control>(*form, name);
  }
  static void Select(memory::RichTextControl& box, std::int32_t start, std::int32_t length) {
    box.SelStart(start);
    box.SelLength(length);
  }
  /// That one box has come up, with the sentence and the report of an error that has passed the label last.
  void ExpectBox(StringView sentence, StringView label, StringView description) {
    ASSERT_EQ(Platform.MessageBox->Calls().size(), 1U);
    const auto& box = Platform.MessageBox->Calls().front();
    EXPECT_EQ(box.Title, u"Tolvane Portico");
    EXPECT_EQ(box.Buttons, MessageBoxButtons::OKOnly);
    EXPECT_EQ(box.Icon, MessageBoxIcon::None);
    const String start = String(sentence).append(NewLine);
    EXPECT_EQ(ToUtf8(box.Prompt.substr(0, start.size())), ToUtf8(start));
    const String report = box.Prompt.substr(std::min(start.size(), box.Prompt.size()));
    EXPECT_EQ(ToUtf8(FirstDescription(report)), ToUtf8(description));
    ASSERT_FALSE(Labels(report).empty());
    EXPECT_EQ(ToUtf8(Labels(report).back()), ToUtf8(label) + "()");
  }
};

} // namespace portico::test
