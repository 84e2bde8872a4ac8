#include "drivers/MockObserver.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/Files.h"
#include "support/doubles/SerialInstrument.h"

#include <array>
#include <filesystem>
#include <gmock/gmock.h>
#include <utility>

namespace portico::test {
namespace {

using namespace drivers;

/// The driver against an instrument behind an adapter that is pulled out and plugged in: as the system does, its link
/// goes, and comes back for another device file.
class SerialFailureTest : public testing::Test {
protected:
  void SetUp() override {
    PlugIn();
    ASSERT_EQ(driver.TVSCPI_init("ASRL" + link + "::INSTR", 0, 0, session), 0);
  }

  void PlugIn() {
    instrument = std::make_unique<SerialInstrument>(InstrumentScript{{"Q?", Reaction::Answer("1\n")}});
    std::filesystem::create_symlink(instrument->Path(), link);
  }
  void PullOut() {
    instrument->Unplug();
    std::filesystem::remove(link);
  }

  std::int32_t Write(const std::string& command) { return driver.TVSCPI_WriteInstrData(session, command + "\r"); }
  std::int32_t Read() { return driver.TVSCPI_ReadInstrData(session, 64, buffer.data(), count); }
  std::string Query(const std::string& command) {
    EXPECT_EQ(Write(command), 0);
    EXPECT_EQ(Read(), 0);
    return buffer.data();
  }
  std::string Message(std::int32_t status) {
    std::array<char, ErrorMessageBufferSize> text = {};
    EXPECT_EQ(driver.TVSCPI_error_message(session, status, text.data()), 0);
    return text.data();
  }

  const TemporaryFolder folder;
  const std::string link = folder.At("usb-Maker_Adapter-if00");
  std::unique_ptr<SerialInstrument> instrument;
  SteadyClock clock;
  InstrumentDriver driver{StandardTransports({}, clock), {clock, std::chrono::seconds(2)}};
  std::int32_t session = 0;
  std::array<char, 64> buffer = {};
  std::int32_t count = 0;
};

TEST_F(SerialFailureTest, AnAdapterPulledOutIsReportedInWords) {
  EXPECT_EQ(Query("Q?"), "1");
  PullOut();
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionLost));
  EXPECT_EQ(Message(Number(DriverStatus::ConnectionLost)),
            "The connection was lost: " + link + ", the port is gone; plug it in again.\n");
  EXPECT_EQ(Write("Q?"), Number(DriverStatus::ConnectFailed));
  const std::string reason = link + ", there is no such serial port; check its name and that it is plugged in.\n";
  EXPECT_EQ(Message(Number(DriverStatus::ConnectFailed)), "The connection could not be made: " + reason);
  EXPECT_EQ(Read(), Number(DriverStatus::NotConnected));
  EXPECT_EQ(Message(Number(DriverStatus::NotConnected)), "There is no connection: " + reason);
}

TEST_F(SerialFailureTest, AnAdapterPluggedInAgainServesTheNextCommand) {
  EXPECT_EQ(Query("Q?"), "1");
  PullOut();
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionLost));
  PlugIn();
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_F(SerialFailureTest, ACommandToAnAdapterPulledOutFailsAndIsNotLostInSilence) {
  PullOut();
  EXPECT_EQ(Write("Q?"), Number(DriverStatus::ConnectionLost));
  PlugIn();
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(instrument->Received(), "Q?\r\n");
}

TEST(SerialFailure, AfterACommandThatWasHeldUpTheLineIsListenedTo) {
  SerialInstrument instrument({{"Q?", Reaction::Answer("1\n")}});
  SteadyClock clock;
  testing::NiceMock<MockObserver> observer;
  InstrumentDriver driver{StandardTransports({}, clock), {clock, std::chrono::milliseconds(500), &observer}};
  std::int32_t session = 0;
  ASSERT_EQ(driver.TVSCPI_init("ASRL" + instrument.Path() + "::9600,8N1,xonxoff::INSTR", 0, 0, session), 0);
  instrument.Send("\x13held\n");
  std::array<char, 16> buffer = {};
  std::int32_t count = 0;
  ASSERT_EQ(driver.TVSCPI_ReadInstrData(session, 16, buffer.data(), count), 0);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "SLOW?\r"), Number(DriverStatus::WriteTimeout));
  bool late = false; // comes when the port is open again
  ON_CALL(observer, Waits).WillByDefault([&] {
    if (!std::exchange(late, true)) instrument.Send("\x11late\n");
  });
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "Q?\r"), 0);
  EXPECT_EQ(driver.TVSCPI_ReadInstrData(session, 16, buffer.data(), count), 0);
  EXPECT_STREQ(buffer.data(), "1");
}

} // namespace
} // namespace portico::test
