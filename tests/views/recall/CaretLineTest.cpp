#include "views/recall/CaretLine.h"

#include "memory/RichTextBox.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

class CaretLineTest : public FrameworkTest {
protected:
  CaretLineTest() { Box->Text(u"one\r\ntwo\r\nthree"); }

  Ref<memory::RichTextBox> Box = New<memory::RichTextBox>();
};

TEST_F(CaretLineTest, IsThatInWhichTheSelectionBegins) {
  Box->SelStart(6);
  Box->SelLength(7);
  const CaretLine line = CaretLineOf(*Box);
  EXPECT_EQ(line.Start, 5);
  EXPECT_EQ(line.Caret, 6);
  EXPECT_EQ(line.Text, u"two");
  EXPECT_EQ(line.Head(), u"t");
}

TEST_F(CaretLineTest, TheSelectionStays) {
  Box->SelStart(6);
  Box->SelLength(7);
  CaretLineOf(*Box);
  EXPECT_EQ(Box->SelStart(), 6);
  EXPECT_EQ(Box->SelLength(), 7);
}

} // namespace
} // namespace portico::test
