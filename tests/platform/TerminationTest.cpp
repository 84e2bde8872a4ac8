#include "platform/Termination.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

TEST(Termination, FiveValuesAreKnown) {
  EXPECT_EQ(ToTermination(0), Termination::Auto);
  EXPECT_EQ(ToTermination(10), Termination::LineFeed);
  EXPECT_EQ(ToTermination(11), Termination::CarriageReturnLineFeed);
  EXPECT_EQ(ToTermination(13), Termination::CarriageReturn);
  EXPECT_EQ(ToTermination(14), Termination::LineFeedCarriageReturn);
}

TEST(Termination, NoOtherValueIs) {
  for (std::int32_t value = -20; value < 300; ++value) {
    const bool known = value == 0 || value == 10 || value == 11 || value == 13 || value == 14;
    EXPECT_EQ(ToTermination(value).has_value(), known) << value;
  }
}

} // namespace
} // namespace portico
