#include "drivers/DriverStatus.h"

#include <array>
#include <gmock/gmock.h>
#include <set>

namespace portico::drivers {
namespace {

struct StatusRow {
  std::int32_t number;
  std::string_view name;
  std::string_view message;
};

/// Numbers and names are a promise to whoever stores or compares them, so they stand here once more.
constexpr std::array Rows = {
    StatusRow{0, "TVSCPI_SUCCESS", "No error."},
    StatusRow{-1151001, "TVSCPI_ERROR_INVALID_SESSION", "The session is not open."},
    StatusRow{-1151002, "TVSCPI_ERROR_INVALID_RESOURCE_NAME", "The instrument name is not valid."},
    StatusRow{-1151003, "TVSCPI_ERROR_UNSUPPORTED_INTERFACE", "The interface is not supported yet."},
    StatusRow{-1151004, "TVSCPI_ERROR_UNKNOWN_SIMULATED_DEVICE", "There is no such simulated instrument."},
    StatusRow{-1151005, "TVSCPI_ERROR_UNKNOWN_ATTRIBUTE", "There is no such attribute of that type."},
    StatusRow{-1151006, "TVSCPI_ERROR_INVALID_ATTRIBUTE_VALUE", "The attribute does not take that value."},
    StatusRow{-1151007, "TVSCPI_ERROR_INVALID_BUFFER", "The buffer has no room for an answer."},
    StatusRow{-1151008, "TVSCPI_ERROR_UNKNOWN_HOST", "The host is not known."},
    StatusRow{-1151009, "TVSCPI_ERROR_CONNECTION_REFUSED", "The instrument refused the connection."},
    StatusRow{-1151010, "TVSCPI_ERROR_CONNECT_TIMEOUT", "Timeout expired before the connection was made."},
    StatusRow{-1151011, "TVSCPI_ERROR_CONNECT_FAILED", "The connection could not be made."},
    StatusRow{-1151012, "TVSCPI_ERROR_CONNECTION_CLOSED", "The instrument closed the connection."},
    StatusRow{-1151013, "TVSCPI_ERROR_CONNECTION_LOST", "The connection was lost."},
    StatusRow{-1151014, "TVSCPI_ERROR_NOT_CONNECTED", "There is no connection."},
    StatusRow{-1151015, "TVSCPI_ERROR_WRITE_TIMEOUT", "Timeout expired before the command was sent completely."},
    StatusRow{-1151016, "TVSCPI_ERROR_READ_TIMEOUT", "Timeout expired before the answer was complete."},
    StatusRow{-1151017, "TVSCPI_ERROR_CANCELLED", "The program is about to end."},
    StatusRow{-1151018, "TVSCPI_ERROR_PROTOCOL", "The instrument broke the protocol."},
    StatusRow{-1151019, "TVSCPI_ERROR_LIBRARY_NOT_LOADED", "The driver library could not be loaded."},
    StatusRow{-1151020, "TVSCPI_ERROR_INTERNAL", "The driver failed."},
    StatusRow{-1151021, "TVSCPI_ERROR_NOT_POSSIBLE", "This cannot be done."},
    StatusRow{-1151022, "TVSCPI_ERROR_GIVEN_UP", "The answer was given up."},
};

TEST(DriverStatus, EveryStatusHasItsNumberNameAndMessage) {
  for (const StatusRow& row : Rows) {
    EXPECT_EQ(StatusName(row.number), row.name);
    EXPECT_EQ(StatusMessage(row.number), row.message);
  }
}

TEST(DriverStatus, NamesAreUnique) {
  std::set<std::string_view> names;
  for (const StatusRow& row : Rows) names.insert(StatusName(row.number));
  EXPECT_EQ(names.size(), Rows.size());
}

TEST(DriverStatus, AnUnknownNumberHasNoNameButAMessage) {
  EXPECT_EQ(StatusName(-1), "");
  EXPECT_EQ(StatusMessage(-1), "Unknown status -1.");
  EXPECT_EQ(StatusMessage(2147483647), "Unknown status 2147483647.");
  EXPECT_EQ(StatusMessage(-1, "a detail"), "Unknown status -1: a detail.");
}

TEST(DriverStatus, ADetailFollowsBehindAColon) {
  EXPECT_EQ(StatusMessage(-1151012, "bench, port 5025"), "The instrument closed the connection: bench, port 5025.");
}

TEST(DriverStatus, OneThatTheUserCanMendSaysHow) {
  EXPECT_EQ(StatusMessage(-1151008, "bench"), "The host is not known: bench; check its name, or use its address.");
  EXPECT_EQ(
      StatusMessage(-1151009, "bench, port 5025"),
      "The instrument refused the connection: bench, port 5025; check the port, and that the instrument serves it.");
  EXPECT_EQ(
      StatusMessage(-1151010, "bench, port 5025"),
      "Timeout expired before the connection was made: bench, port 5025; check address, port, cable and firewall.");
}

TEST(DriverStatus, ControlCharactersInADetailBecomeQuestionMarks) {
  EXPECT_EQ(StatusMessage(-1151012, std::string_view("a\0b\nc\rd\x7F\xE9", 9)),
            "The instrument closed the connection: a?b?c?d?\xE9.");
}

TEST(DriverStatus, AFailureIsTheReasonWhyThereIsNoConnection) {
  const auto reason = [](DriverStatus status, std::string detail) { return ReasonFor({status, std::move(detail)}); };
  EXPECT_EQ(reason(DriverStatus::ConnectionRefused, "bench, port 5025"), "bench, port 5025, refused it");
  EXPECT_EQ(reason(DriverStatus::ConnectTimeout, "bench, port 5025"), "bench, port 5025, timed out");
  EXPECT_EQ(reason(DriverStatus::ConnectionClosed, "bench, port 5025"), "bench, port 5025, closed it");
  EXPECT_EQ(reason(DriverStatus::ReadTimeout, "bench"), "bench, gave no whole answer in time");
  EXPECT_EQ(reason(DriverStatus::WriteTimeout, "bench"), "bench, took no whole command in time");
  // The system's own words follow the place already.
  EXPECT_EQ(reason(DriverStatus::ConnectFailed, "bench, No route to host"), "bench, No route to host");
  EXPECT_EQ(reason(DriverStatus::ConnectionLost, "bench, Connection reset by peer"), "bench, Connection reset by peer");
  EXPECT_EQ(reason(DriverStatus::UnknownHost, "bench, Name or service not known"), "bench, Name or service not known");
  EXPECT_EQ(reason(DriverStatus::ConnectionRefused, ""), "refused it");
  EXPECT_EQ(reason(DriverStatus::NotConnected, ""), "");
}

TEST(DriverStatus, ALongMessageIsCut) {
  const std::string message = StatusMessage(-1151008, std::string(300, 'x'));
  EXPECT_EQ(message, "The host is not known: " + std::string(231, 'x'));
  EXPECT_EQ(message.size(), MaxErrorMessage);
}

TEST(DriverStatus, AMessageOfAFailureIsKnownAsOne) {
  for (const StatusRow& row : Rows) {
    const bool isFailure = row.number != 0;
    EXPECT_EQ(IsStatusMessage(row.message), isFailure) << row.message;
    EXPECT_EQ(IsStatusMessage(StatusMessage(row.number, "bench")), isFailure) << row.message;
    EXPECT_EQ(IsStatusMessage(StatusMessage(row.number, std::string(300, 'x'))), isFailure) << row.message;
  }
  for (const char* text : {"", ".", "The connection was lost", "The connection was lost!", "The connection was lost: x",
                           "The connection was lost by me.", " The connection was lost.", "0,\"No error\""}) {
    EXPECT_FALSE(IsStatusMessage(text)) << text;
  }
}

TEST(DriverStatus, AMessageIsWrittenWithLineFeedAndZeroByteAndNothingBehind) {
  std::array<char, ErrorMessageBufferSize> buffer = {};
  buffer.fill('~');
  WriteErrorMessage("No error.", buffer.data());
  EXPECT_EQ(std::string(buffer.data(), 12), std::string("No error.\n\0~", 12));
}

TEST(DriverStatus, TheLongestMessageFillsTheBuffer) {
  std::array<char, ErrorMessageBufferSize + 1> buffer = {};
  buffer.fill('~');
  WriteErrorMessage(std::string(300, 'x'), buffer.data());
  EXPECT_EQ(std::string(buffer.data(), 257), std::string(254, 'x') + std::string("\n\0~", 3));
}

TEST(DriverResult, OnlySuccessIsSuccess) {
  EXPECT_TRUE(DriverResult().Succeeded());
  EXPECT_FALSE((DriverResult{DriverStatus::ReadTimeout, "x"}).Succeeded());
}

} // namespace
} // namespace portico::drivers
