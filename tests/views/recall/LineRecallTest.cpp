#include "views/recall/LineRecall.h"

#include "memory/forms/RichTextControl.h"
#include "support/fixtures/WindowPlatform.h"

namespace portico::test {
namespace {

constexpr ControlDesign RecallParts[] = {{.Kind = ControlKind::RichTextBox, .Name = u"text", .Caption = u""}};
constexpr FormDesign RecallWindow = {.Name = u"frmMain", .Caption = u"", .Controls = RecallParts};

class LineRecallTest : public WindowTest {
protected:
  std::string Earlier() {
    Recall->Earlier(*Text, Lines);
    return ToUtf8(Text->Text());
  }

  Ref<IForm> Form = gForms->Load(RecallWindow);
  Ref<memory::RichTextControl> Text = ShareControl<memory::RichTextControl>(Form, u"text");
  Ref<LineRecall> Recall = New<LineRecall>();
  std::deque<String> Lines;
};

TEST_F(LineRecallTest, BeginsAnewOnceTheCaretHasMovedWithinTheLine) {
  Lines = {u"A1", u"A2", u"B1"};
  EXPECT_EQ(Earlier(), "B1");
  Text->SelStart(1);
  EXPECT_EQ(Earlier(), "B1") << "no other begins with it";
}

TEST_F(LineRecallTest, BeginsAnewInALineThatLooksTheSame) {
  Lines = {u"*RST", u"*CLS"};
  Text->Text(u"\r\n*CLS");
  Text->SelStart(0);
  EXPECT_EQ(Earlier(), "*CLS\r\n*CLS");
  Text->SelStart(10);
  EXPECT_EQ(Earlier(), "*CLS\r\n*CLS") << "none but itself begins with what was typed there";
}

TEST_F(LineRecallTest, BeginsAnewOnceTheLineIsNoLongerAmongThoseSentAtItsPlace) {
  Lines = {u"one", u"two", u"three"};
  Earlier();
  EXPECT_EQ(Earlier(), "two");
  Lines = {u"zero", u"other", u"two and more"};
  EXPECT_EQ(Earlier(), "two and more");
}

} // namespace
} // namespace portico::test
