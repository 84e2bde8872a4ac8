#include "ui/commands/ReadingCommands.h"

#include "framework/shared/ICommand.h"
#include "memory/forms/RichTextControl.h"
#include "support/fixtures/WindowPlatform.h"

namespace portico::test {
namespace {

constexpr ControlDesign ReadingParts[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"first", .Caption = u"one two two"},
    {.Kind = ControlKind::RichTextBox, .Name = u"second", .Caption = u"one two two"},
};
constexpr FormDesign ReadingWindow = {.Name = u"frmMain", .Caption = u"", .Controls = ReadingParts};

class ReadingCommandsTest : public WindowTest {
protected:
  memory::RichTextControl& Box(StringView name) { return FindControl<memory::RichTextControl>(*m_form, name); }
  static void Execute(const CreatorRow& row) { Cast<ICommand>(MakeCreator(row)->Create({}))->Execute(); }

  Ref<IForm> m_form = gForms->Load(ReadingWindow);
};

TEST_F(ReadingCommandsTest, LookForATextInTheBoxThatHadTheFocusLast) {
  m_form->Show();
  auto& box = Box(u"second");
  box.SetFocus();
  Execute(CtorFind);
  EXPECT_EQ(box.SoughtText(), u"");
  box.LookFor(u"two");
  EXPECT_EQ(box.SelStart(), 4);
  Execute(CtorFindNext);
  EXPECT_EQ(box.SelStart(), 8);
  Execute(CtorFindPrevious);
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_EQ(Box(u"first").SoughtText(), std::nullopt);
}

TEST_F(ReadingCommandsTest, ZoomTheBoxThatHadTheFocusLast) {
  m_form->Show();
  auto& box = Box(u"second");
  box.SetFocus();
  Execute(CtorZoomIn);
  EXPECT_DOUBLE_EQ(box.ZoomFactor(), 1.1);
  Execute(CtorActualSize);
  EXPECT_EQ(box.ZoomFactor(), 1);
  Execute(CtorZoomOut);
  EXPECT_DOUBLE_EQ(box.ZoomFactor(), 1 / 1.1);
  EXPECT_EQ(Box(u"first").ZoomFactor(), 1);
}

TEST_F(ReadingCommandsTest, DoNothingWithoutABox) {
  ASSERT_EQ(gForms->ActiveControl(), nullptr);
  for (const CreatorRow* row :
       {&CtorFind, &CtorFindNext, &CtorFindPrevious, &CtorZoomIn, &CtorZoomOut, &CtorActualSize}) {
    Execute(*row);
  }
  EXPECT_EQ(Box(u"first").SoughtText(), std::nullopt);
  EXPECT_EQ(Box(u"first").ZoomFactor(), 1);
}

} // namespace
} // namespace portico::test
