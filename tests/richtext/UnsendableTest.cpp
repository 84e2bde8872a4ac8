#include "richtext/Unsendable.h"

#include <gmock/gmock.h>

namespace portico::richtext {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Unsendable, WhatTheCodePageHasIsSent) {
  EXPECT_THAT(UnsendableSpans(u""), IsEmpty());
  EXPECT_THAT(UnsendableSpans(u"DISP:TEXT \"5 \u20AC, 20 \u00B0C, \u00B5V \u2026\"\t"), IsEmpty());
}

TEST(Unsendable, WhatItLacksIsTheSpansAsLongAsTheyCome) {
  EXPECT_THAT(UnsendableSpans(u"R = 5 k\u03A9"), ElementsAre(TextSpan{7, 1}));
  EXPECT_THAT(UnsendableSpans(u"\u03A9\u03A9 \u2126a\u0394"),
              ElementsAre(TextSpan{0, 2}, TextSpan{3, 1}, TextSpan{5, 1}));
}

TEST(Unsendable, ACharacterOfTwoUnitsIsOneSpan) {
  EXPECT_THAT(UnsendableSpans(u"a\U0001F600b"), ElementsAre(TextSpan{1, 2}));
}

} // namespace
} // namespace portico::richtext
