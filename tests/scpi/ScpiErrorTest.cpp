#include "scpi/ScpiError.h"

#include <gtest/gtest.h>

#include <utility>

namespace portico::scpi {
namespace {

TEST(ErrorText, IsTheStandards) {
  const std::pair<int, const char*> expected[] = {
      {-101, "Invalid character"},       {-108, "Parameter not allowed"},
      {-109, "Missing parameter"},       {-114, "Header suffix out of range"},
      {-131, "Invalid suffix"},          {-161, "Invalid block data"},
      {-224, "Illegal parameter value"}, {-350, "Queue overflow"},
      {-363, "Input buffer overrun"},    {-410, "Query INTERRUPTED"},
      {-430, "Query DEADLOCKED"},        {-440, "Query UNTERMINATED after indefinite response"},
  };
  for (const auto& [number, text] : expected) EXPECT_EQ(ErrorText(static_cast<ErrorCode>(number)), text);
}

TEST(ErrorText, AnUnknownNumberHasNoneAndTheDevicesOwnHaveOurs) {
  EXPECT_EQ(ErrorText(static_cast<ErrorCode>(-199)), "");
  EXPECT_EQ(ErrorText(static_cast<ErrorCode>(42)), "Simulated device error");
}

TEST(ScpiErrorException, CarriesItsCode) {
  const ScpiError error(ErrorCode::MissingParameter);
  EXPECT_EQ(error.Code(), ErrorCode::MissingParameter);
  EXPECT_STREQ(error.what(), "Missing parameter");
}

} // namespace
} // namespace portico::scpi
