#include "framework/text/Printable.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

TEST(Printable, ControlCharactersThatSpoilATerminalAreQuestionMarks) {
  EXPECT_EQ(Printable(StringView(u"\0\a\n\x1B\x1F\x7F\x80\x9B\x9F", 9)), "?????????");
}

TEST(Printable, EverythingElseStays) { EXPECT_EQ(Printable(u" a\tb~ \u00A0\u00B5V"), " a\tb~ \xC2\xA0\xC2\xB5V"); }

} // namespace
} // namespace portico
