#include "contract/UserEditBench.h"

#include "memory/desktop/Screen.h"
#include "memory/forms/Form.h"
#include "memory/forms/RichTextControl.h"

namespace portico::test {
namespace {

constexpr ControlDesign EditParts[] = {{.Kind = ControlKind::RichTextBox, .Name = u"text", .Caption = u""},
                                       {.Kind = ControlKind::RichTextBox, .Name = u"other", .Caption = u""}};
constexpr FormDesign EditWindow = {.Name = u"frmText", .Caption = u"", .Controls = EditParts};

class MemoryUserEditBench final : public UserEditBench {
public:
  MemoryUserEditBench() { m_form->Show(); }
  IRichTextControl& Box() override { return m_box; }
  void Type(StringView text) override { EXPECT_TRUE(m_box.Type(text)); }
  void Undo() override { m_box.Undo(); }
  void Press(std::int32_t code) override { EXPECT_TRUE(dynamic_cast<memory::Form&>(*m_form).PressKey(code)); }
  void Left() override { EXPECT_TRUE(m_box.MoveCaret(m_box.SelStart() - 1)); }
  void Leave() override { FindControl<memory::RichTextControl>(*m_form, u"other").SetFocus(); }
  bool HasFocus() override { return m_box.HasFocus(); }

private:
  memory::Screen m_screen{[] { return false; }};
  Ref<IForm> m_form = m_screen.Load(EditWindow);
  memory::RichTextControl& m_box = FindControl<memory::RichTextControl>(*m_form, u"text");
};

} // namespace

std::vector<UserEditBenchKind> AllUserEditBenches() {
  return {{"Memory", []() -> std::unique_ptr<UserEditBench> { return std::make_unique<MemoryUserEditBench>(); }}};
}

} // namespace portico::test
