#include "ui/viewer/ViewLogFixture.h"

namespace portico::test {

Ref<memory::Form> ViewLogFixture::View(const std::string& name) {
  const auto viewer = frmViewLog::Make();
  viewer->FileName(NameOf(name));
  viewer->Show(&Main->Form());
  return Platform.Screen->Find(u"frmViewLog");
}

Ref<memory::Form> ViewLogFixture::ViewOf(std::initializer_list<StringView> texts) {
  MakeLog("run.log", texts);
  return View("run.log");
}

memory::RichTextControl& ViewLogFixture::Past(const Ref<memory::Form>& form) {
  return Find<memory::RichTextControl>(form, u"txtPast");
}

memory::MenuItem& ViewLogFixture::Menu(const Ref<memory::Form>& form, StringView name) {
  return Find<memory::MenuItem>(form, name);
}

memory::ToolBar& ViewLogFixture::Bar(const Ref<memory::Form>& form) { return Find<memory::ToolBar>(form, ToolBarName); }

memory::StatusBar& ViewLogFixture::Status(const Ref<memory::Form>& form) {
  return Find<memory::StatusBar>(form, StatusBarName);
}

void ViewLogFixture::Select(memory::RichTextControl& box, std::int32_t start, std::int32_t length) {
  box.SelStart(start);
  box.SelLength(length);
}

void ViewLogFixture::ExpectBox(StringView sentence, StringView label, StringView description) {
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

} // namespace portico::test
