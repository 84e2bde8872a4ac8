#include "system/NetworkInterfaces.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::system {
namespace {

TEST(NetworkInterfacesTest, LoopbackIsOneOfThem) {
  const auto interfaces = NetworkInterfaces();
  const auto loopback = std::find_if(interfaces.begin(), interfaces.end(),
                                     [](const auto& interface) { return interface.Address == "127.0.0.1"; });
  ASSERT_NE(loopback, interfaces.end());
  EXPECT_NE(loopback->Index, 0U);
  EXPECT_EQ(loopback->Broadcast, "");
}

} // namespace
} // namespace portico::system
