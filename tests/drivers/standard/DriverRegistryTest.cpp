#include "drivers/standard/DriverRegistry.h"

#include <gtest/gtest.h>

namespace portico::drivers {
namespace {

constexpr char16_t DriverKey[] = u"SOFTWARE\\Tolvane Instruments Inc.\\TolvaneIOLayer\\InstalledDrivers\\TVSCPI";
constexpr std::int32_t Access = 0x2003F;

class DriverRegistryTest : public testing::Test {
protected:
  std::int32_t Open(std::int32_t root, const String& name) { return registry.RegOpenKeyExA(root, name, Access, key); }
  std::int32_t Query(const String& name) { return registry.RegQueryValueExA(key, name, type, value, size); }

  DriverRegistry registry{"1.2.3"};
  std::int32_t key = 0;
  std::int32_t type = 0;
  std::int32_t size = 1024;
  std::string value;
};

TEST_F(DriverRegistryTest, TellsTheVersionAsATextThatEndsInAZero) {
  ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, DriverKey), 0);
  EXPECT_EQ(Query(u"Version"), 0);
  EXPECT_EQ(type, 1);
  EXPECT_EQ(size, 6);
  EXPECT_EQ(value, std::string("1.2.3\0", 6));
  EXPECT_EQ(registry.RegCloseKey(key), 0);
}

TEST_F(DriverRegistryTest, NamesAreFoundInAnyCase) {
  ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, ToUpper(DriverKey)), 0);
  EXPECT_EQ(Query(u"VERSION"), 0);
}

TEST_F(DriverRegistryTest, NoOtherKeyIsThere) {
  EXPECT_NE(Open(HKEY_LOCAL_MACHINE, u"SOFTWARE"), 0);
  EXPECT_NE(Open(static_cast<std::int32_t>(0x80000001), DriverKey), 0);
  EXPECT_EQ(key, 0);
}

TEST_F(DriverRegistryTest, NoOtherValueIsThere) {
  ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, DriverKey), 0);
  EXPECT_NE(Query(u"Vendor"), 0);
  EXPECT_EQ(value, "");
}

TEST_F(DriverRegistryTest, ATooSmallBufferIsToldWhatItTakes) {
  ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, DriverKey), 0);
  size = 5;
  EXPECT_NE(Query(u"Version"), 0);
  EXPECT_EQ(size, 6);
  EXPECT_EQ(value, "");
}

TEST_F(DriverRegistryTest, AKeyThatIsNotOpenHasNoValuesAndCannotBeClosed) {
  EXPECT_NE(Query(u"Version"), 0);
  EXPECT_NE(registry.RegCloseKey(key), 0);
}

} // namespace
} // namespace portico::drivers
