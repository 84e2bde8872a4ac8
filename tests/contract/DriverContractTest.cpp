#include "contract/DriverBench.h"

#include <array>

namespace portico::test {
namespace {

constexpr std::int32_t NoSuchAttribute = 1150003;

INSTANTIATE_TEST_SUITE_P(AllDrivers, DriverContract, testing::ValuesIn(AllDriverBenches()), BenchName);

TEST_P(DriverContract, ALineFeedGoesOutBehindTheTextsCarriageReturn) {
  Start({});
  EXPECT_EQ(Write("CONF:VOLT\r"), Success);
  EXPECT_EQ(Write("INIT\r"), Success);
  EXPECT_EQ(bench->ReceivedUpTo("INIT\r\n"), "CONF:VOLT\r\nINIT\r\n");
}

TEST_P(DriverContract, AQueryIsAnswered) {
  Start({{"*IDN?", Reaction::Answer("Maker,Model,0,1.0\n")}});
  EXPECT_EQ(Query("*IDN?"), "Maker,Model,0,1.0");
}

TEST_P(DriverContract, HandlesStartAtOneAndAreNotUsedAgain) {
  Start({});
  EXPECT_EQ(session, 1);
  EXPECT_EQ(OpenSecond(), 2);
  EXPECT_EQ(Driver().TVSCPI_close(2), Success);
  EXPECT_EQ(OpenSecond(), 3);
}

TEST_P(DriverContract, AFailedOpenLeavesTheHandleAlone) {
  Start({});
  std::int32_t handle = 77;
  EXPECT_EQ(Driver().TVSCPI_init("nonsense", 0, 0, handle), Number(DriverStatus::InvalidResourceName));
  EXPECT_EQ(handle, 77);
}

TEST_P(DriverContract, SessionsHaveTheirOwnAnswers) {
  Start({{"A?", Reaction::Answer("1\n")}, {"B?", Reaction::Answer("2\n")}});
  const std::int32_t first = session;
  const std::int32_t second = OpenSecond();
  EXPECT_EQ(Driver().TVSCPI_WriteInstrData(first, "A?\r"), Success);
  EXPECT_EQ(Driver().TVSCPI_WriteInstrData(second, "B?\r"), Success);
  session = second;
  EXPECT_EQ(Read().bytes, std::string("2\0", 2));
  session = first;
  EXPECT_EQ(Read().bytes, std::string("1\0", 2));
}

TEST_P(DriverContract, SessionsHaveTheirOwnAttributes) {
  Start({});
  const std::int32_t second = OpenSecond();
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(second, 0, TVSCPI_ATTR_TERMCHAR, 13), Success);
  std::int32_t value = -1;
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, value), Success);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(second, 0, TVSCPI_ATTR_TERMCHAR, value), Success);
  EXPECT_EQ(value, 13);
}

TEST_P(DriverContract, AHandleThatIsNotOpenIsRefusedEverywhere) {
  Start({});
  EXPECT_EQ(Driver().TVSCPI_close(session), Success);
  const std::int32_t invalid = Number(DriverStatus::InvalidSession);
  for (const std::int32_t handle : {session, 0, -1, 99}) {
    std::int32_t number = 5;
    std::array<char, 8> buffer = {'x'};
    EXPECT_EQ(Driver().TVSCPI_close(handle), invalid);
    EXPECT_EQ(Driver().TVSCPI_WriteInstrData(handle, "*RST\r"), invalid);
    EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(handle, 0, TVSCPI_ATTR_TERMCHAR, number), invalid);
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(handle, 0, TVSCPI_ATTR_TERMCHAR, 10), invalid);
    EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(handle, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 8, buffer.data()), invalid);
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViString(handle, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), invalid);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(Driver().TVSCPI_ReadInstrData(handle, 8, buffer.data(), number), invalid);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(buffer.front(), 'x');
    EXPECT_EQ(Message(invalid, handle), "The session is not open.\n");
  }
}

TEST_P(DriverContract, TermcharTakesItsFiveValuesOnly) {
  Start({});
  for (const std::int32_t value : {10, 11, 13, 14, 0}) {
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, value), Success);
    std::int32_t stored = -1;
    EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, stored), Success);
    EXPECT_EQ(stored, value);
  }
  const std::int32_t invalid = Number(DriverStatus::InvalidAttributeValue);
  for (const std::int32_t value : {-1, 1, 9, 12, 15, 1150007}) {
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, value), invalid) << value;
  }
  EXPECT_EQ(Message(invalid, session),
            "The attribute does not take that value: TERMCHAR 1150007, which is none of 0, 10, 11, 13 and 14.\n");
  std::int32_t stored = -1;
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, stored), Success);
  EXPECT_EQ(stored, 0);
}

TEST_P(DriverContract, TheErrorQueryIsKeptAndGivenBack) {
  Start({});
  std::array<char, 16> buffer = {};
  buffer.fill('~');
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 16, buffer.data()), Success);
  EXPECT_EQ(std::string(buffer.data(), 12), std::string("SYST:ERR?\0~~", 12));
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "STAT:ERR?;*CLS"), Success);
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 16, buffer.data()), Success);
  EXPECT_STREQ(buffer.data(), "STAT:ERR?;*CLS");
}

TEST_P(DriverContract, ATextAttributeIsCutAtTheBuffer) {
  Start({});
  std::array<char, 6> buffer = {};
  buffer.fill('~');
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 5, buffer.data()), Success);
  EXPECT_EQ(std::string(buffer.data(), 6), std::string("SYST\0~", 6));
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 0, buffer.data()),
            Number(DriverStatus::InvalidBuffer));
  EXPECT_EQ(buffer.front(), 'S');
}

TEST_P(DriverContract, AnUnknownAttributeOrOneOfTheOtherTypeIsRefused) {
  Start({});
  const std::int32_t unknown = Number(DriverStatus::UnknownAttribute);
  std::int32_t number = 5;
  std::array<char, 8> buffer = {'x'};
  for (const std::int32_t attribute : {NoSuchAttribute, TVSCPI_ATTR_ERRORQUERYSCPI}) {
    EXPECT_EQ(Driver().TVSCPI_GetAttributeViInt32(session, 0, attribute, number), unknown);
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, attribute, 0), unknown);
  }
  for (const std::int32_t attribute : {NoSuchAttribute, TVSCPI_ATTR_TERMCHAR}) {
    EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, attribute, 8, buffer.data()), unknown);
    EXPECT_EQ(Driver().TVSCPI_SetAttributeViString(session, 0, attribute, ""), unknown);
  }
  EXPECT_EQ(number, 5);
  EXPECT_EQ(buffer.front(), 'x');
  EXPECT_EQ(Message(unknown, session), "There is no such attribute of that type: 1150007.\n");
}

TEST_P(DriverContract, TheLastFailedOpenHasItsMessageUnderSessionZero) {
  Start({});
  std::int32_t handle = 0;
  const std::int32_t status = Driver().TVSCPI_init("TCPIP::bench::5025", 0, 0, handle);
  EXPECT_EQ(status, Number(DriverStatus::InvalidResourceName));
  EXPECT_EQ(Message(status, 0),
            "The instrument name is not valid: a port needs the class SOCKET; write TCPIP::bench::5025::SOCKET.\n");
  // Another session's success does not take it away.
  OpenSecond();
  EXPECT_NE(Message(status, 0).find("a port needs the class SOCKET"), std::string::npos);
  EXPECT_EQ(Message(status, session), "The instrument name is not valid.\n");
}

TEST_P(DriverContract, AnyStatusHasAText) {
  Start({});
  EXPECT_EQ(Message(0, session), "No error.\n");
  EXPECT_EQ(Message(4711, session), "Unknown status 4711.\n");
  EXPECT_EQ(Message(-2147483647 - 1, 0), "Unknown status -2147483648.\n");
  EXPECT_EQ(Message(Number(DriverStatus::ReadTimeout), session), "Timeout expired before the answer was complete.\n");
}

} // namespace
} // namespace portico::test
