#include "drivers/loaded/LoadedDriver.h"

#include "drivers/DriverStatus.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;

constexpr auto CancelledStatus = Number(DriverStatus::Cancelled);

class NewsBook final : public IDriverObserver {
public:
  void Waits() override { ++waits; }
  void Reconnected(const std::string&) override {}
  void AnswerFilledBuffer(const std::string& name, std::size_t length) override {
    filled.push_back(name + ", " + std::to_string(length));
  }

  int waits = 0;
  std::vector<std::string> filled;
};

/// The driver over a library that takes liberties.
class LoadedDriverTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_EQ(driver.TVSCPI_init("BENCH 7", 0, 0, session), 0); }

  /// The status of a read, which leaves `buffer` and `count` behind.
  std::int32_t ReadAnswerTo(const std::string& command) {
    EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, command + "\r"), 0);
    buffer.assign(20, '~');
    count = -1;
    return driver.TVSCPI_ReadInstrData(session, 20, buffer.data(), count);
  }
  std::string Message(std::int32_t status) {
    std::string text(256, ' ');
    EXPECT_EQ(driver.TVSCPI_error_message(session, status, text.data()), 0);
    return text;
  }

  NewsBook news;
  system::Cancellation cancellation;
  LoadedDriver driver{std::get<DriverFunctions>(LoadDriverLibrary(AWKWARD_LIBRARY)), &news, &cancellation};
  std::int32_t session = 0;
  std::string buffer;
  std::int32_t count = 0;
};

TEST_F(LoadedDriverTest, TheLibraryGivesHandlesAndStatuses) {
  EXPECT_EQ(session, 5);
  std::int32_t other = 77;
  EXPECT_EQ(driver.TVSCPI_init("FAIL", 0, 0, other), -9);
  EXPECT_EQ(other, 77);
  EXPECT_EQ(driver.TVSCPI_init("WARN", 0, 0, other), 3);
  EXPECT_EQ(other, 5);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "WRITE WARN\r"), 4);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(6, "*RST\r"), -2);
  EXPECT_EQ(driver.TVSCPI_close(6), -2);
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
}

TEST_F(LoadedDriverTest, OnlyTheCountedBytesAreHandedOn) {
  EXPECT_EQ(ReadAnswerTo("BEHIND?"), 0);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(buffer, std::string("1.5\0", 4) + std::string(16, '~'));
}

TEST_F(LoadedDriverTest, ACountThatClaimsMoreThanWasWrittenShowsZerosAndNoOldAnswer) {
  EXPECT_EQ(ReadAnswerTo("SECRET?"), 0);
  EXPECT_EQ(buffer.substr(0, 14), std::string("secret answer\0", 14));
  EXPECT_EQ(ReadAnswerTo("CLAIM?"), 0);
  EXPECT_EQ(count, 14);
  EXPECT_EQ(buffer, "1.5" + std::string(11, '\0') + std::string(6, '~'));
}

TEST_F(LoadedDriverTest, WhatStoodBehindACountDoesNotComeBackWithALaterOne) {
  EXPECT_EQ(ReadAnswerTo("BEHIND?"), 0);
  EXPECT_EQ(ReadAnswerTo("CLAIM?"), 0);
  EXPECT_EQ(buffer.substr(0, 14), "1.5" + std::string(11, '\0'));
}

TEST_F(LoadedDriverTest, ANegativeCountOrNoneHandsNothingOn) {
  EXPECT_EQ(ReadAnswerTo("NEGATIVE?"), 0);
  EXPECT_EQ(count, -4);
  EXPECT_EQ(buffer, std::string(20, '~'));
  EXPECT_EQ(ReadAnswerTo("SILENT?"), 0);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(buffer, std::string(20, '~'));
}

TEST_F(LoadedDriverTest, AFullBufferIsToldWithWhatIsKnownOfTheLength) {
  EXPECT_EQ(ReadAnswerTo("FULL?"), 0);
  EXPECT_EQ(count, 20);
  EXPECT_EQ(buffer, std::string(20, 'x'));
  EXPECT_EQ(ReadAnswerTo("BEYOND?"), 0);
  EXPECT_EQ(count, 120);
  EXPECT_EQ(buffer, std::string(20, 'x'));
  EXPECT_THAT(news.filled, testing::ElementsAre("BENCH 7, 19", "BENCH 7, 119"));
}

TEST_F(LoadedDriverTest, ASessionThatOpenedWithAWarningHasItsNameInTheNews) {
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
  EXPECT_EQ(driver.TVSCPI_init("WARN", 0, 0, session), 3);
  EXPECT_EQ(ReadAnswerTo("FULL?"), 0);
  EXPECT_THAT(news.filled, testing::ElementsAre("WARN, 19"));
}

TEST_F(LoadedDriverTest, APositiveStatusKeepsItsBytes) {
  EXPECT_EQ(ReadAnswerTo("WARN?"), 3);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(buffer.substr(0, 4), std::string("2.5\0", 4));
}

TEST_F(LoadedDriverTest, AttributesAndMessagesAreTheLibrarysAsTheyStand) {
  std::int32_t value = 0;
  EXPECT_EQ(driver.TVSCPI_GetAttributeViInt32(session, 0, 1150007, value), 0);
  EXPECT_EQ(value, 1150012);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViInt32(session, 0, 1150007, 13), 0);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViInt32(session, 0, 1150007, 12), 6);
  std::string text(12, ' ');
  EXPECT_EQ(driver.TVSCPI_GetAttributeViString(session, 0, 1150002, 12, text.data()), 0);
  EXPECT_EQ(text, "SYST:ERR?   ");
  EXPECT_EQ(driver.TVSCPI_SetAttributeViString(session, 0, 1150002, "E?"), 0);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViString(session, 0, 1150002, "F?"), -8);
  EXPECT_EQ(Message(3), std::string("A warning\0", 10) + std::string(246, ' '));
  EXPECT_EQ(Message(-1151017), std::string(256, ' '));
}

TEST_F(LoadedDriverTest, WhoeverListensHearsOfEachWait) {
  EXPECT_EQ(news.waits, 1);
  ReadAnswerTo("SECRET?");
  EXPECT_EQ(news.waits, 3);
}

TEST_F(LoadedDriverTest, OnceCancelledAllButCloseIsRefused) {
  cancellation.Request();
  std::int32_t number = 7;
  std::string text = "~";
  EXPECT_EQ(driver.TVSCPI_init("BENCH 8", 0, 0, number), CancelledStatus);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "*RST\r"), CancelledStatus);
  EXPECT_EQ(driver.TVSCPI_GetAttributeViInt32(session, 0, 1150007, number), CancelledStatus);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViInt32(session, 0, 1150007, 13), CancelledStatus);
  EXPECT_EQ(driver.TVSCPI_GetAttributeViString(session, 0, 1150002, 1, text.data()), CancelledStatus);
  EXPECT_EQ(driver.TVSCPI_SetAttributeViString(session, 0, 1150002, "E?"), CancelledStatus);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(driver.TVSCPI_ReadInstrData(session, 1, text.data(), number), CancelledStatus);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(text, "~");
  EXPECT_EQ(news.waits, 1);
  EXPECT_STREQ(Message(CancelledStatus).c_str(), "The program is about to end.\n");
  EXPECT_STREQ(Message(3).c_str(), "A warning");
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
}

TEST(LoadedDriver, NobodyNeedsToListenOrToCancel) {
  LoadedDriver driver(std::get<DriverFunctions>(LoadDriverLibrary(AWKWARD_LIBRARY)), nullptr, nullptr);
  std::int32_t session = 0;
  EXPECT_EQ(driver.TVSCPI_init("BENCH", 0, 0, session), 0);
  EXPECT_EQ(driver.TVSCPI_WriteInstrData(session, "FULL?\r"), 0);
  char byte = '~';
  std::int32_t count = 0;
  EXPECT_EQ(driver.TVSCPI_ReadInstrData(session, 1, &byte, count), 0);
  EXPECT_EQ(byte, 'x');
  EXPECT_EQ(driver.TVSCPI_close(session), 0);
}

} // namespace
} // namespace portico::test
