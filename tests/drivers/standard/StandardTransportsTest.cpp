#include "drivers/standard/StandardTransports.h"

#include "drivers/SteadyClock.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using namespace drivers;

TEST(StandardTransports, ThereIsOneForEveryInterface) {
  SteadyClock clock;
  const TransportRegistry transports = StandardTransports({}, clock);
  for (const auto kind : {InterfaceKind::Socket, InterfaceKind::LanDevice, InterfaceKind::Usb, InterfaceKind::Serial,
                          InterfaceKind::Simulated}) {
    EXPECT_EQ(transports.count(kind), 1U) << static_cast<int>(kind);
  }
}

TEST(StandardTransports, AUsbDeviceIsLookedForOnThisMachine) {
  SteadyClock clock;
  InstrumentDriver driver(StandardTransports({}, clock), {clock});
  std::int32_t session = 0;
  EXPECT_EQ(driver.TVSCPI_init("USB::0xFFFF::0xFFFF::none such::INSTR", 0, 0, session), -1151011);
  std::string text(256, '\0');
  EXPECT_EQ(driver.TVSCPI_error_message(0, -1151011, text.data()), 0);
  EXPECT_STREQ(
      text.c_str(),
      "The connection could not be made: USB 0xFFFF::0xFFFF::none such, no such instrument is connected; check "
      "its cable and its name, and that it is switched on.\n");
}

} // namespace
} // namespace portico::test
