#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Characters that the instrument's code page lacks, in the window.
class UnsendableTest : public MainWindowFixture {
protected:
  UnsendableTest() { HasSpies = false; }
};

TEST_F(UnsendableTest, AreUnderlinedInTheCommandWindowAlone) {
  Start(u"DMM");
  Future().Text(u"DISP \u03A9 \u20AC\r\n");
  Past().Text(u"DISP \u03A9\r\n");
  EXPECT_THAT(Future().Underlined(), ElementsAre(u"\u03A9"));
  EXPECT_THAT(Past().Underlined(), IsEmpty());
}

TEST_F(UnsendableTest, GoOutAsQuestionMarksAsEver) {
  Start(u"DMM");
  Wire.clear();
  Future().Text(u"DISP \u03A9 \u20AC\r\n");
  Click(u"mnuRun");
  EXPECT_THAT(Wire, testing::Contains("write DISP ? \x80"));
  EXPECT_NE(Past().Text().find(u"DISP \u03A9 \u20AC"), String::npos);
  EXPECT_THAT(Future().Underlined(), IsEmpty());
}

} // namespace
} // namespace portico::test
