#include "simulator/connection/RackClient.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace portico::simulator {
namespace {

constexpr TimePoint Now{std::chrono::hours(1)};

class RackClientTest : public testing::Test {
protected:
  static std::string Ask(const std::unique_ptr<SimulatedConnection>& connection) {
    connection->Write("*ESE?\n", Now);
    return connection->Read(Now).value_or("(none)");
  }

  std::vector<std::string> m_paths; ///< of the logs that were asked for
  const RackClient m_anybody{std::make_shared<DeviceRack>(1, [this](const std::string& path) {
    m_paths.push_back(path);
    return Device::Make("psu", 1);
  })};
};

TEST_F(RackClientTest, ConnectsToTheDevicesThatAllShare) {
  RackClient one = m_anybody;
  RackClient other = m_anybody;
  one("dmm")->Write("*ESE 1\n", Now);
  EXPECT_EQ(Ask(other("DMM")), "1\n");
  EXPECT_EQ(one("toaster"), nullptr);
  EXPECT_TRUE(m_paths.empty());
}

TEST_F(RackClientTest, HasAnInstrumentOfALogOfItsOwn) {
  RackClient one = m_anybody;
  RackClient other = m_anybody;
  one("replay:a log:1.log")->Write("*ESE 1\n", Now);
  EXPECT_EQ(Ask(other("RePlay:a log:1.log")), "0\n");
  EXPECT_EQ(m_paths, (std::vector<std::string>{"a log:1.log", "a log:1.log"}));
}

TEST_F(RackClientTest, FindsItAsItWasLeftWhenItConnectsAnew) {
  RackClient client = m_anybody;
  client("replay:a.log")->Write("*ESE 1\n", Now);
  EXPECT_EQ(Ask(client("replay:a.log")), "1\n");
  EXPECT_EQ(Ask(client("replay:b.log")), "0\n") << "another log";
  EXPECT_EQ(m_paths, (std::vector<std::string>{"a.log", "b.log"}));
}

TEST_F(RackClientTest, KnowsNoLogsWhereNobodyMakesTheirInstruments) {
  RackClient client(std::make_shared<DeviceRack>(1));
  EXPECT_EQ(client("replay:a.log"), nullptr);
  RackClient other = m_anybody;
  EXPECT_EQ(other("replay"), nullptr);
}

} // namespace
} // namespace portico::simulator
