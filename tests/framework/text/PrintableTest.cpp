#include "framework/text/Printable.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

TEST(Printable, ControlCharactersThatSpoilATerminalAreQuestionMarks) {
  EXPECT_EQ(Printable(StringView(u"\0\a\n\x1B\x1F\x7F\x80\x9B\x9F", 9)), "?????????");
}

TEST(Printable, EverythingElseStays) { EXPECT_EQ(Printable(u" a\tb~ \u00A0\u00B5V"), " a\tb~ \xC2\xA0\xC2\xB5V"); }

TEST(Diagnostic, BeginsWithTheProgramsName) { EXPECT_EQ(Diagnostic("portico-x", "a text"), "portico-x: a text"); }

TEST(Diagnostic, NoControlCharacterStays) {
  EXPECT_EQ(Diagnostic("x", {"a\nb\r\tc\x7F\x1F\0d\xC2\x9B!", 13}), "x: a?b??c???d?!");
}

TEST(Diagnostic, OtherCharactersStay) { EXPECT_EQ(Diagnostic("x", "5 \xC2\xB5V ~"), "x: 5 \xC2\xB5V ~"); }

TEST(Diagnostic, BytesThatAreNoUtf8Stay) { EXPECT_EQ(Diagnostic("x", "a\xFF\x9B \xC2"), "x: a\xFF\x9B \xC2"); }

} // namespace
} // namespace portico
