#include "simulator/connection/ServedLine.h"

#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace portico::simulator {
namespace {

TEST(ServedLine, BeginsAnewWhereAConnectionWouldBeClosed) {
  const auto device = Device::Make("dmm", 1);
  ServedLine line(ServedStream::Factory(*device));
  std::string output;
  line.Receive("*ESE 3\nSIM:CLOS\n", {});
  line.Collect(output, {});
  EXPECT_FALSE(line.Finished(false));
  line.Receive("*ESE?\n", {});
  line.Collect(output, {});
  EXPECT_EQ(output, "3\n");
}

TEST(ServedLine, EndsWithItsWire) {
  const auto device = Device::Make("dmm", 1);
  const ServedLine line(ServedStream::Factory(*device));
  EXPECT_TRUE(line.Finished(true));
}

} // namespace
} // namespace portico::simulator
