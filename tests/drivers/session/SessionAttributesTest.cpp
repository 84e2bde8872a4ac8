#include "drivers/session/SessionAttributes.h"

#include "platform/IInstrumentDriver.h"

#include <gtest/gtest.h>

namespace portico::drivers {
namespace {

TEST(SessionAttributes, HaveTheirDefaults) {
  const SessionAttributes attributes;
  std::int32_t value = -1;
  EXPECT_TRUE(attributes.Get(TVSCPI_ATTR_TERMCHAR, value).Succeeded());
  EXPECT_EQ(value, 0);
  std::string text;
  EXPECT_TRUE(attributes.Get(TVSCPI_ATTR_ERRORQUERYSCPI, text).Succeeded());
  EXPECT_EQ(text, "SYST:ERR?");
  EXPECT_EQ(attributes.Termination(), Termination::Auto);
}

TEST(SessionAttributes, TermcharSetsTheTermination) {
  SessionAttributes attributes;
  EXPECT_TRUE(attributes.Set(TVSCPI_ATTR_TERMCHAR, 14).Succeeded());
  EXPECT_EQ(attributes.Termination(), Termination::LineFeedCarriageReturn);
}

TEST(SessionAttributes, ABadTermcharLeavesTheOldOne) {
  SessionAttributes attributes;
  EXPECT_TRUE(attributes.Set(TVSCPI_ATTR_TERMCHAR, 13).Succeeded());
  const DriverResult result = attributes.Set(TVSCPI_ATTR_TERMCHAR, 12);
  EXPECT_EQ(result.Status, DriverStatus::InvalidAttributeValue);
  EXPECT_EQ(result.Detail, "TERMCHAR 12, which is none of 0, 10, 11, 13 and 14");
  EXPECT_EQ(attributes.Termination(), Termination::CarriageReturn);
}

TEST(SessionAttributes, TheErrorQueryMayBeEmpty) {
  SessionAttributes attributes;
  EXPECT_TRUE(attributes.Set(TVSCPI_ATTR_ERRORQUERYSCPI, std::string()).Succeeded());
  std::string text = "old";
  EXPECT_TRUE(attributes.Get(TVSCPI_ATTR_ERRORQUERYSCPI, text).Succeeded());
  EXPECT_EQ(text, "");
}

TEST(SessionAttributes, AnAttributeHasOneType) {
  SessionAttributes attributes;
  std::int32_t value = 7;
  std::string text = "old";
  EXPECT_EQ(attributes.Get(TVSCPI_ATTR_ERRORQUERYSCPI, value).Status, DriverStatus::UnknownAttribute);
  EXPECT_EQ(attributes.Get(TVSCPI_ATTR_TERMCHAR, text).Status, DriverStatus::UnknownAttribute);
  EXPECT_EQ(attributes.Set(TVSCPI_ATTR_ERRORQUERYSCPI, 1).Status, DriverStatus::UnknownAttribute);
  EXPECT_EQ(attributes.Set(TVSCPI_ATTR_TERMCHAR, text).Detail, "1150007");
  EXPECT_EQ(value, 7);
  EXPECT_EQ(text, "old");
}

} // namespace
} // namespace portico::drivers
