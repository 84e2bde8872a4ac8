#include "drivers/exported/SharedDriver.h"

#include "support/EnvironmentVariable.h"
#include "support/doubles/ScriptedServer.h"

#include <array>
#include <gtest/gtest.h>
#include <thread>

namespace portico::test {
namespace {

using namespace drivers;

class SharedDriverTest : public testing::Test {
protected:
  std::int32_t Open(const std::string& name) {
    std::int32_t session = 0;
    EXPECT_EQ(driver.Init(name.c_str(), &session), 0) << Message(0, driver.Init(name.c_str(), &session));
    return session;
  }
  std::string Query(std::int32_t session, const std::string& command) {
    EXPECT_EQ(driver.WriteInstrData(session, (command + "\r").c_str()), 0);
    std::array<char, 64> buffer = {};
    std::int32_t count = 0;
    EXPECT_EQ(driver.ReadInstrData(session, 64, buffer.data(), &count), 0);
    return buffer.data();
  }
  std::string Message(std::int32_t session, std::int32_t status) {
    std::string text(256, '~');
    EXPECT_EQ(driver.ErrorMessage(session, status, text.data()), 0);
    const std::size_t end = text.find('\0');
    EXPECT_EQ(text.find_first_not_of('~', end + 1), std::string::npos) << "more than the message was written";
    return text.substr(0, end);
  }

  SharedDriver driver;
};

TEST_F(SharedDriverTest, SessionsOfAllKindsAreTheirHandles) {
  const ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  const std::int32_t socket = Open(server.ResourceName());
  const std::int32_t simulated = Open("SIM::dmm::INSTR");
  EXPECT_EQ(socket, 1);
  EXPECT_EQ(simulated, 2);
  EXPECT_EQ(Query(socket, "Q?"), "1");
  EXPECT_EQ(Query(simulated, "SYST:VERS?"), "1999.0");
  EXPECT_EQ(driver.Close(socket), 0);
  EXPECT_EQ(driver.Close(socket), -1151001);
  EXPECT_EQ(driver.WriteInstrData(socket, "Q?\r"), -1151001);
  EXPECT_EQ(Message(socket, -1151001), "The session is not open.\n");
  EXPECT_EQ(Query(simulated, "SYST:VERS?"), "1999.0");
  EXPECT_EQ(Open(server.ResourceName()), 3);
}

TEST_F(SharedDriverTest, ASimulatedInstrumentIsTheSameInEverySession) {
  const std::int32_t first = Open("SIM::psu::INSTR");
  EXPECT_EQ(driver.WriteInstrData(first, "FOO\r"), 0);
  EXPECT_EQ(driver.Close(first), 0);
  EXPECT_EQ(Query(Open("sim::PSU::INSTR"), "SYST:ERR?"), "-113,\"Undefined header\"");
}

TEST_F(SharedDriverTest, AttributesCrossBothWays) {
  const std::int32_t session = Open("SIM::dmm::INSTR");
  std::int32_t value = -1;
  EXPECT_EQ(driver.SetAttribute(session, TVSCPI_ATTR_TERMCHAR, 13), 0);
  EXPECT_EQ(driver.GetAttribute(session, TVSCPI_ATTR_TERMCHAR, &value), 0);
  EXPECT_EQ(value, 13);
  EXPECT_EQ(driver.SetAttribute(session, TVSCPI_ATTR_TERMCHAR, 12), -1151006);
  EXPECT_EQ(Message(session, -1151006),
            "The attribute does not take that value: TERMCHAR 12, which is none of 0, 10, 11, 13 and 14.\n");
  EXPECT_EQ(driver.SetAttribute(session, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), 0);
  std::array<char, 8> text = {};
  EXPECT_EQ(driver.GetAttribute(session, TVSCPI_ATTR_ERRORQUERYSCPI, 8, text.data()), 0);
  EXPECT_STREQ(text.data(), "E?");
}

TEST_F(SharedDriverTest, AFailedOpenLeavesTheHandleAloneAndHasItsMessage) {
  std::int32_t session = 77;
  EXPECT_EQ(driver.Init("TCPIP::bench::5025", &session), -1151002);
  EXPECT_EQ(session, 77);
  const std::string message =
      "The instrument name is not valid: a port needs the class SOCKET; write TCPIP::bench::5025::SOCKET.\n";
  EXPECT_EQ(Message(0, -1151002), message);
  EXPECT_EQ(Message(0, -1151009), "The instrument refused the connection.\n");
  std::thread([this] { EXPECT_EQ(Message(0, -1151002), "The instrument name is not valid.\n"); }).join();
  EXPECT_EQ(Message(0, -1151002), message);
}

TEST_F(SharedDriverTest, AnotherOpensSuccessDoesNotTakeTheFailuresMessageAway) {
  std::int32_t session = 0;
  EXPECT_EQ(driver.Init("TCPIP::bench::SOCKET", &session), -1151002);
  Open("SIM::dmm::INSTR");
  EXPECT_EQ(Message(0, -1151002),
            "The instrument name is not valid: the port is missing; write TCPIP::bench::5025::SOCKET.\n");
}

TEST_F(SharedDriverTest, NullPointersAreRefused) {
  const std::int32_t session = Open("SIM::dmm::INSTR");
  std::int32_t number = 9;
  std::array<char, 8> buffer = {};
  EXPECT_EQ(driver.Init(nullptr, &number), -1151002);
  EXPECT_EQ(driver.Init("SIM::dmm::INSTR", nullptr), -1151007);
  EXPECT_EQ(driver.WriteInstrData(session, nullptr), -1151007);
  EXPECT_EQ(driver.ReadInstrData(session, 8, nullptr, &number), -1151007);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(driver.ReadInstrData(session, 8, buffer.data(), nullptr), -1151007);
  EXPECT_EQ(driver.GetAttribute(session, TVSCPI_ATTR_TERMCHAR, nullptr), -1151007);
  EXPECT_EQ(driver.GetAttribute(session, TVSCPI_ATTR_ERRORQUERYSCPI, 8, nullptr), -1151007);
  EXPECT_EQ(driver.SetAttribute(session, TVSCPI_ATTR_ERRORQUERYSCPI, nullptr), -1151007);
  EXPECT_EQ(driver.ErrorMessage(session, 0, nullptr), -1151007);
}

TEST_F(SharedDriverTest, ASessionThatWaitsKeepsNoOtherWaiting) {
  ScriptedServer slow({});
  const ScriptedServer quick({{"Q?", Reaction::Answer("1\n")}});
  const std::int32_t waiting = Open(slow.ResourceName());
  const std::int32_t other = Open(quick.ResourceName());
  std::thread reader([&] { EXPECT_EQ(Query(waiting, "SLOW?"), "late"); });
  slow.WaitForReceived("SLOW?\r\n");
  EXPECT_EQ(Query(other, "Q?"), "1");
  EXPECT_EQ(Query(Open("SIM::dmm::INSTR"), "SYST:VERS?"), "1999.0");
  slow.Send("late\n");
  reader.join();
}

TEST_F(SharedDriverTest, ManyThreadsOpenAskAndCloseAtOnce) {
  const ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&, simulated = i % 2 == 0] {
      for (int round = 0; round < 20; ++round) {
        const std::int32_t session = Open(simulated ? "SIM::dmm::INSTR" : server.ResourceName());
        EXPECT_EQ(Query(session, simulated ? "SYST:VERS?" : "Q?"), simulated ? "1999.0" : "1");
        EXPECT_EQ(driver.Close(session), 0);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_F(SharedDriverTest, TheTimeoutIsThatOfTheEnvironment) {
  const EnvironmentVariable timeout("PORTICO_DRIVER_TIMEOUT", "20");
  const ScriptedServer server({});
  const std::int32_t session = Open(server.ResourceName());
  std::array<char, 8> buffer = {};
  std::int32_t count = -1;
  EXPECT_EQ(driver.ReadInstrData(session, 8, buffer.data(), &count), -1151016);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(Message(session, -1151016),
            "Timeout expired before the answer was complete: 127.0.0.1, port " + std::to_string(server.Port()) + ".\n");
}

TEST_F(SharedDriverTest, ATimeoutThatIsNoNumberOfMillisecondsIsNone) {
  const ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  for (const char* text : {"", "0", "-5", "5 s", "99999999999"}) {
    const EnvironmentVariable timeout("PORTICO_DRIVER_TIMEOUT", text);
    EXPECT_EQ(Query(Open(server.ResourceName()), "Q?"), "1") << text;
  }
}

} // namespace
} // namespace portico::test
