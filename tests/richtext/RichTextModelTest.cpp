// What a box that shows its text is told, and what it can put in.

#include "richtext/RichTextModel.h"

#include <gtest/gtest.h>

#include <random>

namespace portico::richtext {
namespace {

/// Keeps a copy of the lines by what it is told alone.
class Mirror final : public RichTextModel {
public:
  Mirror() : RichTextModel(u"Sans", 10), Copy{Lines()[0]} {}
  StringView ClassName() const override { return u"Mirror"; }
  void SetFocus() override {}

  bool Take(std::size_t first, std::size_t count, FormattedText lines) {
    return TakeLines(first, count, std::move(lines));
  }
  bool PutPlain(StringView text) { return Put(FormatPlain(text, InsertionFormat())); }
  bool IsUpToDate() const {
    if (Copy.size() != Lines().Count()) return false;
    for (std::size_t i = 0; i < Copy.size(); ++i) {
      if (Copy[i] != Lines()[i]) return false;
    }
    return true;
  }
  FormattedText Plain(StringView text) const { return FormatPlain(text, Standard()); }

  FormattedText Copy;
  int Selections = 0;

private:
  void OnLines(std::size_t first, std::size_t before, std::size_t after) override {
    const auto at = Copy.begin() + static_cast<std::ptrdiff_t>(first);
    auto hole = Copy.erase(at, at + static_cast<std::ptrdiff_t>(before));
    for (std::size_t i = 0; i < after; ++i) hole = Copy.insert(hole, Lines()[first + after - 1 - i]);
  }
  void OnSelection() override { ++Selections; }
};

TEST(RichTextModelTest, TellsEveryLineThatChanges) {
  std::mt19937 random(3);
  const auto below = [&](int limit) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit)); };
  constexpr StringView Texts[] = {u"", u"a", u"b\r\n", u"\r\nc\r\n\r\n", u"d\r\ne"};
  Mirror box;
  box.Change().Connect([&] { EXPECT_TRUE(box.IsUpToDate()); });
  for (int i = 0; i < 3000; ++i) {
    box.SelStart(below(box.TextLength() + 2));
    box.SelLength(below(6));
    switch (below(i % 50 == 0 ? 5 : 4)) {
    case 0:
      box.SelText(Texts[below(5)]);
      break;
    case 1:
      box.SelFormat({.SelIndent = below(3), .SelColor = below(3)});
      break;
    case 2:
      box.SelFormat({.SelBold = below(2) == 1});
      break;
    case 3:
      box.SelRTF(box.SelRTF());
      break;
    default:
      box.Text(Texts[below(5)]);
    }
    ASSERT_TRUE(box.IsUpToDate()) << i;
  }
}

TEST(RichTextModelTest, TellsEverySelectionAndLookOfTheCaret) {
  Mirror box;
  box.SelText(u"ab");
  box.Selections = 0;
  box.SelStart(1);
  EXPECT_EQ(box.Selections, 1);
  box.SelFormat({.SelBold = true});
  EXPECT_EQ(box.Selections, 2);
  EXPECT_EQ(box.Find(u"b", 0), 1);
  EXPECT_EQ(box.Selections, 3);
}

TEST(RichTextModelTest, TakesLinesInPlaceOfOthers) {
  Mirror box;
  int changes = 0;
  box.Change().Connect([&] { ++changes; });
  box.Text(u"a\r\nb\r\nc");
  EXPECT_TRUE(box.Take(1, 1, box.Plain(u"x\r\ny")));
  EXPECT_EQ(box.Text(), u"a\r\nx\r\ny\r\nc");
  EXPECT_TRUE(box.Take(2, 2, box.Plain(u"z")));
  EXPECT_EQ(box.Text(), u"a\r\nx\r\nz");
  EXPECT_EQ(box.TextLength(), 7);
  EXPECT_TRUE(box.Take(0, 3, box.Plain(u"")));
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(changes, 1);
}

TEST(RichTextModelTest, ALookAloneIsNoChangeOfTheText) {
  Mirror box;
  box.Text(u"a\r\nb");
  FormattedText line = box.Plain(u"a");
  line.front().Paragraph.Indent = 150;
  EXPECT_FALSE(box.Take(0, 1, line));
  EXPECT_EQ(box.SelFormat().SelIndent, 150);
}

TEST(RichTextModelTest, TextIsPutInWithoutBeingTold) {
  Mirror box;
  int changes = 0;
  box.Change().Connect([&] { ++changes; });
  EXPECT_TRUE(box.PutPlain(u"a\r\nb"));
  EXPECT_EQ(box.Text(), u"a\r\nb");
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_FALSE(box.PutPlain(u""));
  EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace portico::richtext
