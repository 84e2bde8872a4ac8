#include "support/Labels.h"

namespace portico {
namespace {

using test::Bears;

TEST(Bears, MethodsAreComparedToTheLetter) {
  EXPECT_TRUE(Bears(u"C.M()", u"C.M()"));
  EXPECT_TRUE(Bears(u"C.M()", u"C.M"));
  EXPECT_FALSE(Bears(u"C.M()", u"C.m()"));
  EXPECT_FALSE(Bears(u"C.M()", u"C.Mo()"));
  EXPECT_FALSE(Bears(u"C.Mo()", u"C.M()"));
}

TEST(Bears, ALabelWithoutParametersMatchesNoCallWithSome) {
  for (const char16_t* label : {u"C.M()", u"C.M"}) {
    EXPECT_FALSE(Bears(u"C.M(A='x')", label));
    EXPECT_FALSE(Bears(u"C.M(A=3)", label));
    EXPECT_FALSE(Bears(u"C.M(A,B)", label));
  }
}

TEST(Bears, ALabelWithEmptyBracketsMayShowOneValueWithoutAName) {
  EXPECT_TRUE(Bears(u"C.M('x')", u"C.M()"));
  EXPECT_FALSE(Bears(u"C.M('x', 3)", u"C.M()"));
  EXPECT_FALSE(Bears(u"C.M('x')", u"C.M"));
}

TEST(Bears, ALabelWithParametersMatchesNoCallWithOthers) {
  EXPECT_TRUE(Bears(u"C.M(A,B)", u"C.M(A,B)"));
  EXPECT_TRUE(Bears(u"C.M(A='x', B={C})", u"C.M(A,B)"));
  EXPECT_TRUE(Bears(u"C.M(A=3)", u"C.M(A)"));
  EXPECT_FALSE(Bears(u"C.M()", u"C.M(A)"));
  EXPECT_FALSE(Bears(u"C.M(A='x')", u"C.M(A,B)"));
  EXPECT_FALSE(Bears(u"C.M(B='x', A={C})", u"C.M(A,B)"));
  for (const char16_t* call : {u"C.M(A='x', B={C})", u"C.M(A={C}, B='x')", u"C.M(A=3, B=4)", u"C.M(A='x', 'y')"}) {
    EXPECT_FALSE(Bears(call, u"C.M(A)")) << ToUtf8(call);
  }
}

TEST(Bears, AValueMayHoldWhatSeparatesParameters) {
  EXPECT_TRUE(Bears(u"C.M(A='x, B=y', C='z')", u"C.M(A,C)"));
  EXPECT_TRUE(Bears(u"C.M(A='it's (so), B=y')", u"C.M(A)"));
}

} // namespace
} // namespace portico
