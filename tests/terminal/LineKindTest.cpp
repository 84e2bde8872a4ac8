#include "terminal/LineKind.h"

#include <gtest/gtest.h>

namespace portico::terminal {
namespace {

TEST(LineKind, EmptyLineIsBlank) { EXPECT_EQ(KindOf(u""), LineKind::Blank); }

TEST(LineKind, RemAndABlankMakeARemark) {
  EXPECT_EQ(KindOf(u"REM a remark"), LineKind::Remark);
  EXPECT_EQ(KindOf(u"REM "), LineKind::Remark);
}

TEST(LineKind, AnythingButExactlyRemAndABlankIsSent) {
  for (const StringView line : {u"REM", u"rem x", u"Rem x", u"REMOTE", u"REM\tx", u"REM:STAT?"}) {
    EXPECT_EQ(KindOf(line), LineKind::Instruction) << ToUtf8(line);
  }
}

TEST(LineKind, HistoryMarkersTellResponsesAndAutomaticInstructions) {
  EXPECT_EQ(KindOf(u"\u00AE+1.0"), LineKind::Response);
  EXPECT_EQ(KindOf(u"\u00AE"), LineKind::Response);
  EXPECT_EQ(KindOf(u"\u00A9*OPC?"), LineKind::Automatic);
  EXPECT_EQ(KindOf(u"\u00A9"), LineKind::Automatic);
}

TEST(LineKind, MarkersBehindTheFirstCharacterAreText) {
  EXPECT_EQ(KindOf(u"DISP:TEXT \"\u00AE\u00A9\""), LineKind::Instruction);
}

TEST(LineKind, ATabIsText) { EXPECT_EQ(KindOf(u"\t"), LineKind::Instruction); }

} // namespace
} // namespace portico::terminal
