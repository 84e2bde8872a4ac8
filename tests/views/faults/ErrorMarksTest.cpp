#include "views/faults/ErrorMarks.h"

#include "memory/forms/RichTextControl.h"
#include "support/fixtures/WindowPlatform.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

constexpr ControlDesign MarksParts[] = {{.Kind = ControlKind::RichTextBox, .Name = u"text", .Caption = u"head\r\n"}};
constexpr FormDesign MarksWindow = {.Name = u"frmMain", .Caption = u"", .Controls = MarksParts};

class ErrorMarksTest : public WindowTest {
protected:
  ErrorMarksTest() {
    Marks->Changed.Connect([this] { ++Changes; });
  }
  void Append(StringView text) const {
    Text->SelStart(Text->TextLength());
    Text->SelText(text);
  }
  /// Each at the end, as a run writes them.
  void AppendError(StringView answer) const {
    Append(u"\u00AE");
    Append(answer);
    Marks->MarkNewest(u"VOLT 5\r\n", answer);
  }
  std::int32_t CaretLine() const { return Text->GetLineFromChar(Text->SelStart()); }

  Ref<IForm> Form = gForms->Load(MarksWindow);
  Ref<memory::RichTextControl> Text = ShareControl<memory::RichTextControl>(Form, u"text");
  Ref<ErrorMarks> Marks = New<ErrorMarks>(Text);
  int Changes = 0;
};

TEST_F(ErrorMarksTest, MarkTheLineInWhichTheNewestTextBegins) {
  AppendError(u"-113,\"x\"\r\n");
  Append(u"fine\r\n");
  AppendError(u"first\r\nsecond\r\n");
  EXPECT_THAT(Text->MarkedLines(), ElementsAre(1, 3));
  ASSERT_EQ(Marks->All().size(), 2U);
  EXPECT_EQ(Marks->All()[0].Line, 1);
  EXPECT_EQ(Marks->All()[0].Instruction, u"VOLT 5");
  EXPECT_EQ(Marks->All()[0].Answer, u"-113,\"x\"");
  EXPECT_EQ(Marks->All()[1].Line, 3);
  EXPECT_EQ(Changes, 1) << "at the first";
}

TEST_F(ErrorMarksTest, ALineIsAnErrorOnce) {
  AppendError(u"-113\r\n");
  Marks->MarkNewest(u"", u"the same");
  EXPECT_EQ(Marks->All().size(), 1U);
}

TEST_F(ErrorMarksTest, WithoutOneThereIsNowhereToGo) {
  Text->SelStart(2);
  Marks->GoToNext();
  Marks->GoToPrevious();
  Marks->GoTo(0);
  EXPECT_EQ(Text->SelStart(), 2);
}

TEST_F(ErrorMarksTest, LeadFromTheCaretsLineRoundTheEnd) {
  AppendError(u"-1\r\n");
  Append(u"fine\r\n");
  AppendError(u"-2\r\n");
  std::vector<std::int32_t> lines;
  Text->SelStart(0);
  for (int i = 0; i < 3; ++i) {
    Marks->GoToNext();
    lines.push_back(CaretLine());
  }
  for (int i = 0; i < 3; ++i) {
    Marks->GoToPrevious();
    lines.push_back(CaretLine());
  }
  EXPECT_THAT(lines, ElementsAre(1, 3, 1, 3, 1, 3));
  EXPECT_EQ(Text->SelText(), u"\u00AE-2");
}

TEST_F(ErrorMarksTest, TheNearestIsThatOfTheCaretsLineOrTheNextOrTheLast) {
  AppendError(u"-1\r\n");
  Append(u"fine\r\n");
  AppendError(u"-2\r\n");
  const auto nearest = [&](std::int32_t line) {
    Text->GoToLine(line);
    return Marks->Nearest();
  };
  EXPECT_EQ(nearest(0), 0U);
  EXPECT_EQ(nearest(1), 0U);
  EXPECT_EQ(nearest(2), 1U);
  EXPECT_EQ(nearest(4), 1U);
}

TEST_F(ErrorMarksTest, GoWithTheText) {
  AppendError(u"-1\r\n");
  Text->Text({});
  EXPECT_TRUE(Marks->All().empty());
  EXPECT_THAT(Text->MarkedLines(), ElementsAre());
  EXPECT_EQ(Changes, 2);
  AppendError(u"-2\r\n");
  EXPECT_THAT(Text->MarkedLines(), ElementsAre(0));
}

TEST_F(ErrorMarksTest, HearNothingOfTheTextOnceTheyAreGone) {
  AppendError(u"-1\r\n");
  Marks = nullptr;
  Append(u"more");
  EXPECT_EQ(Text->Text(), u"head\r\n\u00AE-1\r\nmore");
}

} // namespace
} // namespace portico::test
