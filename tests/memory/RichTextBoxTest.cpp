#include "memory/RichTextBox.h"

#include "memory/RichTextBox.h"

#include <gtest/gtest.h>

namespace portico::memory {
namespace {

TEST(RichTextBoxTest, TellsItsName) { EXPECT_EQ(RichTextBox().ClassName(), u"RichTextBox"); }

TEST(RichTextBoxTest, StandardFontIsSansOfTenPoints) {
  const RichTextBox box;
  EXPECT_EQ(box.SelFormat().SelFontName, u"Sans");
  EXPECT_EQ(box.SelFormat().SelFontSize, 10);
}

TEST(RichTextBoxTest, AFragmentIsLoadedInTheFontTheBoxWasMadeWith) {
  RichTextBox box(u"Mono", 8.2);
  box.SelFormat({.SelFontName = u"Other", .SelFontSize = 20});
  box.TextRTF(u"{\\rtf1 a}");
  EXPECT_EQ(box.SelFormat().SelFontName, u"Mono");
  EXPECT_EQ(box.SelFormat().SelFontSize, 8); // half points
}

TEST(RichTextBoxTest, EachFocusIsTold) {
  RichTextBox box;
  int told = 0;
  box.GotFocus().Connect([&] { ++told; });
  box.SetFocus();
  box.SetFocus();
  EXPECT_EQ(told, 2);
}

TEST(RichTextBoxTest, AHandlerMayLetTheBoxGo) {
  auto box = std::make_unique<RichTextBox>();
  box->Change().Connect([&] { box.reset(); });
  box->SelText(u"a");
  EXPECT_EQ(box, nullptr);
}

TEST(RichTextBoxTest, ManyLinesAreFoundAndTakenFromTheFront) {
  RichTextBox box;
  String text;
  for (std::int64_t i = 0; i < 3000; ++i) text += ToText(i) + u"\r\n";
  box.Text(text);
  EXPECT_EQ(box.TextLength(), static_cast<std::int32_t>(text.size()));
  EXPECT_EQ(box.GetLineFromChar(box.TextLength()), 3000);
  for (std::int64_t i = 0; i < 3000; ++i) {
    const std::int32_t found = box.Find(u"\r\n", 0);
    box.SelStart(0);
    box.SelLength(found);
    ASSERT_EQ(box.SelText(), ToText(i));
    box.SelLength(found + 2);
    box.SelRTF(u"");
  }
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(box.GetLineFromChar(0), 0);
}

TEST(RichTextBoxTest, ManyLinesAreAddedAtTheEnd) {
  RichTextBox box;
  String text;
  for (std::int64_t i = 0; i < 3000; ++i) {
    box.SelStart(box.TextLength() + 1);
    box.SelRTF(u"{\\rtf1 " + ToText(i) + u"\\par }");
    text += ToText(i) + u"\r\n";
  }
  EXPECT_EQ(box.Text(), text);
  EXPECT_EQ(box.Find(u"\r\n2999\r\n", 0), static_cast<std::int32_t>(text.size()) - 8);
}

} // namespace
} // namespace portico::memory
