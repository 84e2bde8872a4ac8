#include "document/log/LogText.h"
#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

TEST(LogTextTest, NamesBeginWithALetterOrALowLine) {
  for (const char16_t* name : {u"A", u"_", u"a1", u"a-b.c_d", u"\u00E9", u"a\u00B7", u"\u00F8", u"\u0131"}) {
    EXPECT_TRUE(LogText::IsName(name));
    EXPECT_TRUE(LogText::IsName(PackedText(name)));
  }
  for (const char16_t* name :
       {u"", u"1", u"-", u".", u"a b", u"a:b", u"a<", u"\u00D7", u"\u00F7", u"\u0132", u"\u2028", u"\xD800"}) {
    EXPECT_FALSE(LogText::IsName(name));
    EXPECT_FALSE(LogText::IsName(PackedText(name)));
  }
}

TEST(LogTextTest, AttributesAreEscaped) {
  std::string out;
  LogText::AppendAttribute(out, PackedText(u"n"), PackedText(u"<>&\"'\t\n\r\u20AC"));
  EXPECT_EQ(out, " n=\"&lt;&gt;&amp;&quot;'&#9;&#10;&#13;\xE2\x82\xAC\"");
}

TEST(LogTextTest, CharacterDataIsSplitWhereItMust) {
  const auto written = [](StringView text) {
    std::string out;
    LogText::AppendCharacterData(out, text);
    return out;
  };
  EXPECT_EQ(written(u""), "<![CDATA[]]>");
  EXPECT_EQ(written(u"a<b&]]"), "<![CDATA[a<b&]]]]>");
  EXPECT_EQ(written(u"a]]>b"), "<![CDATA[a]]]]><![CDATA[>b]]>");
  EXPECT_EQ(written(u"a\r\n"), "<![CDATA[a]]>&#13;<![CDATA[\n]]>");
  EXPECT_EQ(written(u"\u0001"), "<![CDATA[\xEF\xBF\xBD]]>");
}

TEST(LogTextTest, ASessionsTagHasTheSameLengthOpenAndClosed) {
  const std::string open = LogText::SessionTag(u"2004-11-01T16:42:09.000000001-5:00", u"");
  const std::string closed =
      LogText::SessionTag(u"2004-11-01T16:42:09.000000001-5:00", u"2004-11-01T16:42:15.000000000-5:00");
  EXPECT_EQ(open.size(), closed.size());
  EXPECT_EQ(open, "\n<Session SessionOpenTimeStamp=\"2004-11-01T16:42:09.000000001-5:00\"" +
                      std::string(LogText::CloseStampRoom, ' ') + ">");
  EXPECT_NE(closed.find(" SessionCloseTimeStamp=\"2004-11-01T16:42:15.000000000-5:00\" "), std::string::npos);
}

class CloseStampTest : public FrameworkTest {};

TEST_F(CloseStampTest, OneThatDoesNotFitIsRefused) {
  const std::size_t most = LogText::CloseStampRoom - std::string(" SessionCloseTimeStamp=\"\"").size();
  EXPECT_EQ(LogText::CloseStampField(String(most, u'x')).back(), '"');
  ExpectError(Raised([&] { LogText::CloseStampField(String(most + 1, u'x')); }), 51,
              u"The session's closing time stamp is too long.");
}

} // namespace
} // namespace portico::test
