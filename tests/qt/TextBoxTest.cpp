#include "qt/TextBench.h"

namespace portico::test {
namespace {

class TextBoxTest : public testing::Test, protected TextWindow {};

TEST_F(TextBoxTest, TypingReachesTheBoxAtOnce) {
  Type("ab");
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace portico::test
