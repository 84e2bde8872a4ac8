#include "drivers/usbtmc/UsbtmcList.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using namespace drivers;

TEST(UsbtmcList, ADeviceHasItsCanonicalName) {
  EXPECT_EQ(InstrumentName({"/dev/usbtmc0", 0x1234, 0x5, "SN 1", 0, "Maker", "Model"}),
            "USB0::0x1234::0x0005::SN 1::0::INSTR");
  EXPECT_EQ(InstrumentName({"", 0xABCD, 0xFFFF, "x", 2, "", ""}), "USB0::0xABCD::0xFFFF::x::2::INSTR");
}

TEST(UsbtmcList, ADeviceWithoutSerialNumberHasANameWithoutOne) {
  EXPECT_EQ(InstrumentName({"", 1, 2, "", 0, "", ""}), "USB0::0x0001::0x0002::::0::INSTR");
}

TEST(UsbtmcList, ASerialNumberThatNoNameCanHoldIsLeftOut) {
  for (const std::string serial : {"a::b", "a:", "a\tb", "a\x7F"}) {
    EXPECT_EQ(InstrumentName({"", 1, 2, serial, 0, "", ""}), "USB0::0x0001::0x0002::::0::INSTR") << serial;
  }
}

} // namespace
} // namespace portico::test
