#include "support/Allocation.h"

#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

class MainSelectionTest : public MainWindowFixture {};

TEST_F(MainSelectionTest, AnUpdateDoesNotCopyWhatIsSelected) {
  constexpr std::int32_t units = 1000000;
  Start();
  Past().Text(String(units, u'x'));
  Past().SetFocus();
  Past().SelLength(units);
  const std::size_t largest = LargestAllocation([this] { Window->UpdateUI({}, {}); });
  EXPECT_LT(largest, std::size_t{units});
  EXPECT_TRUE(Menu(u"mnuEditCopy").Enabled());
  EXPECT_TRUE(Menu(u"mnuCopyTo").Enabled());
}

TEST_F(MainSelectionTest, TheEndOfTheTextAloneIsNoSelection) {
  Start();
  Past().Text(u"x");
  Past().SetFocus();
  Past().SelStart(1);
  Past().SelLength(1);
  Window->UpdateUI({}, {});
  EXPECT_EQ(Past().SelLength(), 1);
  EXPECT_FALSE(Menu(u"mnuEditCopy").Enabled());
}

} // namespace
} // namespace portico::test
