#include "system/FirstLine.h"

#include "support/Files.h"

#include <gtest/gtest.h>

namespace portico::system {
namespace {

TEST(FirstLineTest, IsTheFileUpToItsFirstLineFeed) {
  const test::TemporaryFolder folder;
  folder.Write("product", "Meter 7 \nsecond\n");
  folder.Write("serial", "SN1");
  EXPECT_EQ(FirstLine(folder.At("product")), "Meter 7 ");
  EXPECT_EQ(FirstLine(folder.At("serial")), "SN1");
}

TEST(FirstLineTest, IsEmptyWhereThereIsNone) {
  const test::TemporaryFolder folder;
  folder.Write("empty", "");
  EXPECT_EQ(FirstLine(folder.At("empty")), "");
  EXPECT_EQ(FirstLine(folder.At("missing")), "");
  EXPECT_EQ(FirstLine(folder.Path()), "");
}

} // namespace
} // namespace portico::system
