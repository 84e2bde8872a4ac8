#include "views/CSCPICmdPolicy.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

int KindOf(const String& line) { return static_cast<int>(CSCPICmdPolicy().CmdType(line)); }

TEST(CmdPolicy, CommentCharacterIsEmptyAndThenWhatItIsSetTo) {
  CSCPICmdPolicy policy;
  EXPECT_EQ(policy.CharComment(), u"");
  policy.CharComment(u"|");
  EXPECT_EQ(policy.CharComment(), u"|");
}

TEST(CmdPolicy, CommentCharacterHasNoEffect) {
  CSCPICmdPolicy policy;
  policy.CharComment(u"|");
  EXPECT_EQ(policy.CmdType(u"| text"), LineKind::CmdInstruction);
}

TEST(CmdPolicy, EmptyLineIsBlank) {
  EXPECT_EQ(KindOf(u""), 1);
  EXPECT_EQ(KindOf(u"  "), 3);
}

TEST(CmdPolicy, FirstCharacter26IsTheEnd) {
  EXPECT_EQ(KindOf(u"\x1A"), 6);
  EXPECT_EQ(KindOf(u"\x1A\u00AE REM "), 6);
  EXPECT_EQ(KindOf(u"a\x1A"), 3);
}

TEST(CmdPolicy, ResponseMarkerCountsAnywhere) {
  EXPECT_EQ(KindOf(u"\u00AEok"), 5);
  EXPECT_EQ(KindOf(u"o\u00AEk"), 5);
  EXPECT_EQ(KindOf(u"REM \u00AE"), 5);
}

TEST(CmdPolicy, RemarkCountsAnywhere) {
  EXPECT_EQ(KindOf(u"REM a"), 4);
  EXPECT_EQ(KindOf(u"*IDN? REM who"), 4);
  EXPECT_EQ(KindOf(u"TREM a"), 4);
  EXPECT_EQ(KindOf(u"rem a"), 3);
  EXPECT_EQ(KindOf(u"REM"), 3);
}

TEST(CmdPolicy, KnowsNoAutomaticLines) { EXPECT_EQ(KindOf(u"\u00A9*OPC?"), 3); }

TEST(CmdPolicy, EverythingElseIsAnInstruction) { EXPECT_EQ(KindOf(u"*IDN?"), 3); }

} // namespace
} // namespace portico::test
