#include "drivers/TVSCPI_32.h"

#include "platform/IInstrumentDriver.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

namespace portico::drivers {
namespace {

/// What a C++ parameter of the seam is in the C header.
template <typename Type>
struct InC {
  using type = Type;
};
template <>
struct InC<const std::string&> {
  using type = const char*;
};
template <>
struct InC<std::int32_t&> {
  using type = std::int32_t*;
};

template <typename Member>
struct Shape;
template <typename... Parameters>
struct Shape<std::int32_t (IInstrumentDriver::*)(Parameters...)> {
  using type = std::int32_t (*)(typename InC<Parameters>::type...);
};

template <typename Member, typename Function>
constexpr bool SameShape = std::is_same_v<typename Shape<Member>::type, Function>;

#define EXPECT_SAME_SHAPE(name) static_assert(SameShape<decltype(&IInstrumentDriver::name), decltype(&::name)>)

EXPECT_SAME_SHAPE(TVSCPI_init);
EXPECT_SAME_SHAPE(TVSCPI_close);
EXPECT_SAME_SHAPE(TVSCPI_WriteInstrData);
EXPECT_SAME_SHAPE(TVSCPI_ReadInstrData);
EXPECT_SAME_SHAPE(TVSCPI_GetAttributeViInt32);
EXPECT_SAME_SHAPE(TVSCPI_GetAttributeViString);
EXPECT_SAME_SHAPE(TVSCPI_SetAttributeViInt32);
EXPECT_SAME_SHAPE(TVSCPI_SetAttributeViString);
EXPECT_SAME_SHAPE(TVSCPI_error_message);

TEST(TVSCPI_32, ALibraryInCServesACallerInCpp) {
  std::int32_t session = 0;
  ASSERT_EQ(::TVSCPI_init("ECHO", 0, 0, &session), 0);
  EXPECT_EQ(session, 1);
  EXPECT_EQ(::TVSCPI_WriteInstrData(session, "*IDN?\r"), 0);
  std::array<char, 16> buffer = {};
  std::int32_t count = 0;
  EXPECT_EQ(::TVSCPI_ReadInstrData(session, 16, buffer.data(), &count), 0);
  EXPECT_STREQ(buffer.data(), "*IDN?\r");
  EXPECT_EQ(count, 7);
  EXPECT_EQ(::TVSCPI_close(session), 0);
}

TEST(TVSCPI_32, AttributesCrossBothWays) {
  EXPECT_EQ(::TVSCPI_SetAttributeViInt32(1, 0, TVSCPI_ATTR_TERMCHAR, 13), 0);
  std::int32_t value = 0;
  EXPECT_EQ(::TVSCPI_GetAttributeViInt32(1, 0, TVSCPI_ATTR_TERMCHAR, &value), 0);
  EXPECT_EQ(value, 13);
  EXPECT_EQ(::TVSCPI_SetAttributeViString(1, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), 0);
  std::array<char, 8> text = {};
  EXPECT_EQ(::TVSCPI_GetAttributeViString(1, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 8, text.data()), 0);
  EXPECT_STREQ(text.data(), "E?");
}

TEST(TVSCPI_32, AFailedOpenHasAMessage) {
  std::int32_t session = 0;
  const std::int32_t status = ::TVSCPI_init("OTHER", 0, 0, &session);
  EXPECT_LT(status, 0);
  EXPECT_EQ(session, 0);
  std::array<char, 256> message = {};
  EXPECT_EQ(::TVSCPI_error_message(0, status, message.data()), 0);
  EXPECT_STREQ(message.data(), "There is only ECHO.\n");
}

} // namespace
} // namespace portico::drivers
