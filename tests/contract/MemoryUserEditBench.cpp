#include "contract/UserEditBench.h"

#include "memory/desktop/Screen.h"
#include "memory/forms/RichTextControl.h"

namespace portico::test {
namespace {

constexpr ControlDesign Parts[] = {{.Kind = ControlKind::RichTextBox, .Name = u"text", .Caption = u""}};
constexpr FormDesign Window = {.Name = u"frmText", .Caption = u"", .Controls = Parts};

class MemoryUserEditBench final : public UserEditBench {
public:
  MemoryUserEditBench() { m_form->Show(); }
  IRichTextControl& Box() override { return m_box; }
  void Type(StringView text) override { EXPECT_TRUE(m_box.Type(text)); }
  void Undo() override { m_box.Undo(); }

private:
  memory::Screen m_screen{[] { return false; }};
  Ref<IForm> m_form = m_screen.Load(Window);
  memory::RichTextControl& m_box = FindControl<memory::RichTextControl>(*m_form, u"text");
};

} // namespace

std::vector<UserEditBenchKind> AllUserEditBenches() {
  return {{"Memory", []() -> std::unique_ptr<UserEditBench> { return std::make_unique<MemoryUserEditBench>(); }}};
}

} // namespace portico::test
