#include "contract/DriverBench.h"

namespace portico::test {
namespace {

class DriverRecoveryContract : public DriverContract {};

INSTANTIATE_TEST_SUITE_P(AllDrivers, DriverRecoveryContract, testing::ValuesIn(AllDriverBenches()), BenchName);

TEST_P(DriverRecoveryContract, AReadWithoutAnAnswerTimesOut) {
  Start({}, Brief);
  Ask("Q?");
  const ReadOutcome outcome = ReadBriefly();
  EXPECT_EQ(outcome.status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(outcome.count, 0);
  EXPECT_TRUE(Message(outcome.status, session).starts_with("Timeout expired before the answer was complete"));
}

TEST_P(DriverRecoveryContract, AReadAfterATimeoutGoesOnWaitingForTheSameAnswer) {
  Start({{"HALF?", Reaction::Part("12")}, {"SLOW?", Reaction::Silence()}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  Ask("HALF?");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  bench->Send("34\n");
  EXPECT_EQ(Read().bytes, std::string("1234\0", 5));
  Ask("SLOW?");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  bench->Send("late\n");
  EXPECT_EQ(Read().bytes, std::string("late\0", 5));
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_THAT(bench->observer.names, testing::IsEmpty());
  EXPECT_THAT(bench->observer.cleared, testing::IsEmpty());
}

TEST_P(DriverRecoveryContract, ALateAnswerIsNeverThatOfTheNextQuery) {
  Start({{"SLOW?", Reaction::Silence()}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  Ask("SLOW?");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  bench->Send("late\n");
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(DriverRecoveryContract, AnIncompleteAnswerIsDroppedBeforeTheNextCommand) {
  Start({{"HALF?", Reaction::Part("12")}, {"Q?", Reaction::Answer("345\n")}}, Brief);
  Ask("HALF?");
  std::string buffer(4, '~');
  std::int32_t count = -1;
  bench->Hurry();
  EXPECT_EQ(Driver().TVSCPI_ReadInstrData(session, 4, buffer.data(), count), Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(count, 0);
  // Nothing is left of it, whether or not anything was written.
  EXPECT_THAT(buffer, testing::AnyOf(std::string("\0\0~~", 4), "~~~~"));
  EXPECT_EQ(Query("Q?"), "345");
}

TEST_P(DriverRecoveryContract, ABlockThatEndsEarlyTimesOut) {
  Start({{"WAV?", Reaction::Part("#3100short\n")}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  Ask("WAV?");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(DriverRecoveryContract, AttributesOutliveATimeout) {
  Start({{"Q?", Reaction::Answer("a\nb\r")}}, Brief);
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, 13), Success);
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), Success);
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "a\nb");
  std::string text(3, '~');
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 3, text.data()), Success);
  EXPECT_STREQ(text.c_str(), "E?");
}

TEST_P(DriverRecoveryContract, ASessionOutOfStepCanBeClosed) {
  Start({}, Brief);
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Driver().TVSCPI_close(session), Success);
  EXPECT_THAT(bench->observer.names, testing::IsEmpty());
}

} // namespace
} // namespace portico::test
