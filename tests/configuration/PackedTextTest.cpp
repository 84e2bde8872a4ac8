#include "configuration/PackedText.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

TEST(PackedTextTest, GivesBackWhatItHolds) {
  for (const String& text :
       {String(), String(u"abc"), String(u"\u00FF"), String(u"\u0100"), String(u"\u0100x"), String(1, u'\0')}) {
    EXPECT_EQ(PackedText(text).ToString(), text);
    EXPECT_EQ(PackedText(text).Length(), text.size());
    EXPECT_TRUE(PackedText(text).Equals(text));
    EXPECT_EQ(PackedText(text), PackedText(text));
  }
}

TEST(PackedTextTest, StampsAndNumbersComeBackUnitByUnit) {
  for (const String& text : {String(u"2004-11-01T16:42:09.000000003-5:00"), String(u"0123456789-T:.+ "), String(u"0"),
                             String(u"00"), String(u"12345")}) {
    const PackedText packed(text);
    EXPECT_EQ(packed.ToString(), text);
    EXPECT_TRUE(packed.Equals(text));
    EXPECT_TRUE(EqualNoCase(packed, text));
    for (std::size_t i = 0; i < text.size(); ++i) EXPECT_EQ(packed[i], text[i]) << i;
    String seen;
    packed.ForEach([&seen](char16_t unit) { seen += unit; });
    EXPECT_EQ(seen, text);
  }
  EXPECT_FALSE(PackedText(u"1") == PackedText(u"10"));
  EXPECT_FALSE(PackedText(u"10") == PackedText(u"12"));
  EXPECT_FALSE(PackedText(u"123").Equals(u"12x"));
  EXPECT_TRUE(EqualNoCase(PackedText(u"1T"), PackedText(u"1t"))) << "packed in two ways";
}

TEST(PackedTextTest, TellsTextsApart) {
  EXPECT_FALSE(PackedText(u"abc") == PackedText(u"abd"));
  EXPECT_FALSE(PackedText(u"abc") == PackedText(u"ab"));
  EXPECT_FALSE(PackedText(u"a") == PackedText());
  EXPECT_FALSE(PackedText() == PackedText(u"a"));
  EXPECT_FALSE(PackedText(u"a\u0100") == PackedText(u"b\u0100"));
  EXPECT_FALSE(PackedText(u"\u0001") == PackedText(u"\u0101"));
  EXPECT_FALSE(PackedText(u"abc").Equals(u"abd"));
  EXPECT_FALSE(PackedText(u"\u0101").Equals(u"\u0001"));
  EXPECT_FALSE(PackedText().Equals(u"a"));
}

TEST(PackedTextTest, UnitsAreReadOneByOne) {
  EXPECT_EQ(PackedText(u"a\u00FF")[1], u'\u00FF');
  EXPECT_EQ(PackedText(u"a\u0416")[1], u'\u0416');
}

TEST(PackedTextTest, CaseIsIgnoredAsInTexts) {
  EXPECT_FALSE(EqualNoCase(PackedText(u"2004"), PackedText(u"2005")));
  EXPECT_FALSE(EqualNoCase(PackedText(u"12T"), PackedText(u"13t")));
  EXPECT_TRUE(EqualNoCase(PackedText(u"Timestamp"), PackedText(u"TIMESTAMP")));
  EXPECT_TRUE(EqualNoCase(PackedText(u"\u0416"), PackedText(u"\u0436")));
  EXPECT_TRUE(EqualNoCase(PackedText(u"\u0178"), u"\u00FF")) << "one wide, the other not";
  EXPECT_FALSE(EqualNoCase(PackedText(u"a"), PackedText(u"b")));
  EXPECT_FALSE(EqualNoCase(PackedText(u"a"), PackedText(u"ab")));
  EXPECT_FALSE(EqualNoCase(PackedText(u"a"), u"ab"));
  EXPECT_TRUE(EqualNoCase(PackedText(), u""));
}

TEST(PackedTextTest, CopiesShareAndOutliveEachOther) {
  PackedText copy;
  {
    const PackedText text(u"shared");
    copy = text;
    EXPECT_EQ(copy, text);
  }
  EXPECT_EQ(copy.ToString(), u"shared");
  PackedText moved(std::move(copy));
  EXPECT_EQ(moved.ToString(), u"shared");
  const PackedText& itself = moved;
  moved = itself;
  EXPECT_EQ(moved.ToString(), u"shared");
}

TEST(PackedTextTest, SharedTextsAreTheirOwnHoweverManyThereAre) {
  for (int turn = 0; turn < 2; ++turn) {
    for (std::int64_t i = 0; i < 1000; ++i) EXPECT_EQ(Shared(u"name" + ToText(i)).ToString(), u"name" + ToText(i));
  }
  EXPECT_EQ(Shared(u"").ToString(), u"");
  EXPECT_EQ(Shared(String(100, u'x')).ToString(), String(100, u'x'));
}

} // namespace
} // namespace portico
