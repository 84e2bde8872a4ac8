#include "drivers/session/InstrumentDriver.h"

#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedTransport.h"

#include <array>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;

class InstrumentDriverTest : public testing::Test {
protected:
  std::string Message(std::int32_t session, std::int32_t status) {
    std::array<char, ErrorMessageBufferSize> text = {};
    EXPECT_EQ(driver.TVSCPI_error_message(session, status, text.data()), 0);
    return text.data();
  }

  ManualClock clock;
  system::Cancellation cancellation;
  ScriptedTransport::Record transport;
  std::vector<std::string> names;
  InstrumentDriver driver{{{InterfaceKind::Serial,
                            [this](const ResourceName& name) {
                              names.push_back(name.Canonical());
                              return std::make_unique<ScriptedTransport>(transport);
                            }}},
                          {clock, std::chrono::milliseconds(5000), nullptr, &cancellation}};
};

TEST_F(InstrumentDriverTest, MakesTheTransportThatIsRegisteredForTheInterface) {
  std::int32_t session = 0;
  EXPECT_EQ(driver.TVSCPI_init("asrl1::instr", 0, 0, session), 0);
  EXPECT_THAT(names, testing::ElementsAre("ASRL1::INSTR"));
  EXPECT_EQ(transport.opened, 1);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "*RST\r"), 0);
  EXPECT_THAT(transport.written, testing::ElementsAre("*RST\r\n"));
}

TEST_F(InstrumentDriverTest, AnInterfaceWithoutTransportIsNotSupported) {
  std::int32_t session = 0;
  EXPECT_EQ(driver.TVSCPI_init("SIM::dmm::INSTR", 0, 0, session), Number(DriverStatus::UnsupportedInterface));
  EXPECT_EQ(Message(0, Number(DriverStatus::UnsupportedInterface)),
            "The interface is not supported yet: SIM::dmm::INSTR.\n");
  EXPECT_THAT(names, testing::IsEmpty());
}

TEST_F(InstrumentDriverTest, AFailedOpenUsesUpNoHandle) {
  transport.openResult = {DriverStatus::ConnectTimeout, "ttyS0"};
  std::int32_t session = 0;
  EXPECT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), Number(DriverStatus::ConnectTimeout));
  EXPECT_EQ(session, 0);
  EXPECT_EQ(Message(0, Number(DriverStatus::ConnectTimeout)),
            "Timeout expired before the connection was made: ttyS0; check address, port, cable and firewall.\n");
  transport.openResult = {};
  EXPECT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), 0);
  EXPECT_EQ(session, 1);
}

TEST_F(InstrumentDriverTest, AMessageGivesTheParticularsOfTheLastFailureOnly) {
  std::int32_t session = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), 0);
  transport.writeResult = {DriverStatus::ConnectionLost, "ttyS0"};
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "A\r"), Number(DriverStatus::ConnectionLost));
  EXPECT_EQ(Message(session, Number(DriverStatus::ConnectionLost)), "The connection was lost: ttyS0.\n");
  EXPECT_EQ(Message(session, Number(DriverStatus::ConnectionClosed)), "The instrument closed the connection.\n");
  // Neither session 0 nor a session that is not open knows of it.
  EXPECT_EQ(Message(0, Number(DriverStatus::ConnectionLost)), "The connection was lost.\n");
  EXPECT_EQ(Message(7, Number(DriverStatus::ConnectionLost)), "The connection was lost.\n");
}

TEST_F(InstrumentDriverTest, AReadOnNoSessionCountsNothing) {
  std::int32_t count = 9;
  std::array<char, 2> buffer = {'x'};
  EXPECT_EQ(driver.TVSCPI_ReadInstrData(1, 2, buffer.data(), count), Number(DriverStatus::InvalidSession));
  EXPECT_EQ(count, 0);
}

TEST_F(InstrumentDriverTest, OnceTheProgramIsToEndAllButClosingAndMessagesIsRefused) {
  std::int32_t session = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), 0);
  transport.Piece("1\n");
  cancellation.Request();
  const std::int32_t cancelled = Number(DriverStatus::Cancelled);
  std::int32_t other = 77;
  std::int32_t number = 5;
  std::array<char, 4> buffer = {'x'};
  EXPECT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, other), cancelled);
  EXPECT_EQ(Message(0, cancelled), "The program is about to end.\n");
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "A\r"), cancelled);
  EXPECT_EQ(driver.TVSCPI_GetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, number), cancelled);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, 10), cancelled);
  EXPECT_EQ(driver.TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 4, buffer.data()), cancelled);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), cancelled);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(driver.TVSCPI_ReadInstrData(session, 4, buffer.data(), number), cancelled);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(buffer.front(), 'x');
  EXPECT_EQ(Message(session, cancelled), "The program is about to end.\n");
  EXPECT_EQ(other, 77);
  EXPECT_EQ(transport.opened, 1);
  EXPECT_THAT(transport.written, testing::IsEmpty());
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
  EXPECT_EQ(transport.closed, 1);
  EXPECT_THAT(transport.returns, testing::IsEmpty());
}

TEST_F(InstrumentDriverTest, ClosingGivesLocalControlBack) {
  std::int32_t session = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), 0);
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
  EXPECT_THAT(transport.returns, testing::SizeIs(1));
  EXPECT_EQ(transport.closed, 1);
}

TEST_F(InstrumentDriverTest, ATimeoutIsThatOfAllSessionsNowAndLater) {
  constexpr auto longer = std::chrono::milliseconds(90'000);
  std::int32_t earlier = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, earlier), 0);
  EXPECT_EQ(driver.SetTimeout(longer), 0);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(earlier, "A\r"), 0);
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + longer);
  std::int32_t later = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL2::INSTR", 0, 0, later), 0);
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + longer);
  clock.Advance(std::chrono::milliseconds(1));
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(later, "A\r"), 0);
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + longer);
}

TEST_F(InstrumentDriverTest, WhatItRefusesBeyondTheNineFunctionsHasItsMessage) {
  std::int32_t session = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL1::INSTR", 0, 0, session), 0);
  transport.returnResult = {DriverStatus::NotPossible};
  EXPECT_EQ(driver.GoToLocal(session), Number(DriverStatus::NotPossible));
  EXPECT_EQ(Message(session, Number(DriverStatus::NotPossible)),
            "This cannot be done: ASRL1::INSTR has no means for it.\n");
  cancellation.Request();
  EXPECT_EQ(driver.Clear(session), Number(DriverStatus::Cancelled));
  EXPECT_EQ(driver.GoToLocal(session), Number(DriverStatus::Cancelled));
  EXPECT_THAT(transport.clearings, testing::IsEmpty());
}

TEST(InstrumentDriver, SessionsThatAreOpenTogetherDoNotMix) {
  ManualClock clock;
  std::array<ScriptedTransport::Record, 4> records;
  std::size_t next = 0;
  InstrumentDriver driver({{InterfaceKind::Simulated,
                            [&](const ResourceName&) { return std::make_unique<ScriptedTransport>(records[next++]); }}},
                          {clock});
  std::array<std::int32_t, 4> sessions{};
  for (std::int32_t& session : sessions) EXPECT_EQ(driver.TVSCPI_init("SIM::dmm::INSTR", 0, 0, session), 0);
  for (int round = 0; round < 3; ++round) {
    for (const std::int32_t session : sessions) {
      EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, std::to_string(session) + "\r"), 0);
    }
  }
  for (const ScriptedTransport::Record& record : records) {
    ASSERT_EQ(record.written.size(), 3U);
    EXPECT_THAT(record.written, testing::Each(record.written.front()));
  }
  EXPECT_NE(records[0].written.front(), records[1].written.front());
}

} // namespace
} // namespace portico::test
