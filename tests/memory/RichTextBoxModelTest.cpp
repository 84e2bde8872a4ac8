// Random use of the box against a model that does everything place by place.

#include "memory/NaiveRichText.h"
#include "memory/RichTextBox.h"

#include <gtest/gtest.h>

#include <random>

namespace portico::memory {
namespace {

using test::NaiveRichText;
using Slot = NaiveRichText::Slot;

class RichTextBoxModelTest : public ::testing::TestWithParam<unsigned> {
protected:
  RichTextBoxModelTest() {
    Box.Change().Connect([this] { ++Changes; });
  }

  std::int32_t Below(std::int32_t limit) { return static_cast<std::int32_t>(Random() % static_cast<unsigned>(limit)); }
  /// Half of the texts are short and many hold line ends.
  String AnyText() {
    String text;
    for (std::int32_t i = Below(Below(2) == 0 ? 4 : 30); i > 0; --i) {
      const StringView piece[] = {u"a", u"b", u"c", u" ", u"\u20AC", u"\r\n"};
      text += piece[Below(6)];
    }
    return text;
  }
  SelectionFormat AnyFormat() {
    SelectionFormat format;
    if (Below(2) == 0) format.SelColor = Below(3);
    if (Below(2) == 0) format.SelItalic = Below(2) == 1;
    if (Below(3) == 0) format.SelIndent = Below(3);
    return format;
  }

  /// The slots of a text in one look.
  static NaiveRichText::Slots Plain(StringView text, Slot look) {
    NaiveRichText::Slots slots;
    for (const char16_t unit : ReplaceAll(text, u"\r\n", u"\n")) {
      slots.push_back(look);
      slots.back().Unit = unit == u'\n' ? u'\0' : unit;
    }
    slots.push_back(look);
    return slots;
  }

  /// A fragment with random formatting, and its slots when it is read onto `look`.
  std::pair<String, NaiveRichText::Slots> AnyFragment(Slot look) {
    String fragment = u"{\\rtf1{\\colortbl;\\red1;\\red2;}";
    NaiveRichText::Slots slots;
    for (std::int32_t i = Below(8); i > 0; --i) {
      const std::int32_t value = Below(3);
      switch (Below(6)) {
      case 0:
        fragment += u"\\cf" + ToText(std::int64_t{value});
        look.Color = value;
        break;
      case 1:
        fragment += value > 0 ? u"\\i" : u"\\i0";
        look.Italic = value > 0;
        break;
      case 2:
        fragment += u"\\li" + ToText(std::int64_t{value});
        look.Indent = value;
        break;
      case 3:
        fragment += u"\\par";
        slots.push_back(look);
        break;
      default:
        fragment += u"\\'78";
        slots.push_back(look);
        slots.back().Unit = u'x';
        break;
      }
    }
    slots.push_back(look);
    return {fragment + u"}", slots};
  }

  void Step() {
    const std::int32_t length = Model.TextLength();
    switch (Below(12)) {
    case 0:
    case 1: {
      const std::int32_t start = Below(length + 3);
      Box.SelStart(start);
      Model.SelStart(start);
      break;
    }
    case 2:
    case 3: {
      const std::int32_t selected = Below(Below(3) == 0 ? length + 4 : 6);
      Box.SelLength(selected);
      Model.SelLength(selected);
      break;
    }
    case 4: {
      const String text = length > 200 ? String() : AnyText();
      Box.SelText(text);
      Model.Replace(Plain(text, Model.Insertion()));
      break;
    }
    case 5: {
      const auto [fragment, slots] = AnyFragment(Model.Insertion());
      Box.SelRTF(fragment);
      Model.Replace(slots);
      break;
    }
    case 6:
      Box.SelRTF(u"");
      Model.Replace({{}});
      break;
    case 7:
    case 8: {
      const SelectionFormat changes = AnyFormat();
      Box.SelFormat(changes);
      Model.SelFormat(changes);
      break;
    }
    case 9: {
      const String text = Below(2) == 0 ? u"\r\n" : AnyText();
      const std::int32_t start = Below(length + 4) - 2;
      const std::int32_t end = Below(length + 4) - 2;
      EXPECT_EQ(Box.Find(text, start, end), Model.Find(text, start, end));
      break;
    }
    case 10: {
      const String set = Below(2) == 0 ? u"\n" : AnyText();
      Box.Span(set);
      Model.Span(set);
      break;
    }
    default:
      if (Below(40) == 0) Reload();
      break;
    }
  }

  void Reload() {
    if (Below(2) == 0) {
      const String text = AnyText();
      Box.Text(text);
      Model.Load(Plain(text, Model.Insertion()));
    } else {
      const auto [fragment, slots] = AnyFragment({});
      Box.TextRTF(fragment);
      Model.Load(slots);
    }
  }

  void Compare() {
    ASSERT_EQ(Box.Text(), Model.Text());
    ASSERT_EQ(Box.TextLength(), Model.TextLength());
    ASSERT_EQ(Box.SelStart(), Model.Start);
    ASSERT_EQ(Box.SelLength(), Model.Length);
    ASSERT_EQ(Box.SelText(), Model.SelText());
    ASSERT_EQ(Box.SelTextLength(), static_cast<std::int32_t>(Model.SelText().size()));
    const SelectionFormat expected = Model.SelFormat();
    const SelectionFormat found = Box.SelFormat();
    ASSERT_EQ(found.SelColor, expected.SelColor);
    ASSERT_EQ(found.SelItalic, expected.SelItalic);
    ASSERT_EQ(found.SelIndent, expected.SelIndent);
    const std::int32_t position = Below(Model.TextLength() + 3);
    ASSERT_EQ(Box.GetLineFromChar(position), Model.LineOf(position));
  }

  std::mt19937 Random{GetParam()};
  RichTextBox Box;
  NaiveRichText Model;
  int Changes = 0;
};

TEST_P(RichTextBoxModelTest, RandomUseGivesWhatTheModelGives) {
  std::int32_t longest = 0;
  for (int step = 0; step < 5000; ++step) {
    const String before = Model.Text();
    const int changesBefore = Changes;
    Step();
    ASSERT_NO_FATAL_FAILURE(Compare()) << step;
    if (Changes == changesBefore) {
      ASSERT_EQ(Model.Text(), before) << step; // no change goes untold
    }
    longest = std::max(longest, Model.TextLength());
  }
  EXPECT_GT(longest, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RichTextBoxModelTest, ::testing::Range(1U, 9U));

} // namespace
} // namespace portico::memory
