#include "terminal/console/Diagnostic.h"

#include <gtest/gtest.h>

namespace portico::terminal {
namespace {

TEST(Diagnostic, BeginsWithTheProgramsName) { EXPECT_EQ(Diagnostic("a text"), "portico-run: a text"); }

TEST(Diagnostic, ControlCharactersDoNotBreakTheLine) {
  EXPECT_EQ(Diagnostic({"a\nb\r\tc\x7F\x1F\0d", 10}), "portico-run: a?b??c???d");
}

TEST(Diagnostic, OtherCharactersStay) { EXPECT_EQ(Diagnostic("5 \xC2\xB5V ~"), "portico-run: 5 \xC2\xB5V ~"); }

} // namespace
} // namespace portico::terminal
