#include "contract/DriverBench.h"

namespace portico::test {
namespace {

class DriverRecoveryContract : public DriverContract {};

INSTANTIATE_TEST_SUITE_P(AllDrivers, DriverRecoveryContract, testing::ValuesIn(AllDriverBenches()), BenchName);

TEST_P(DriverRecoveryContract, AReadWithoutAnAnswerTimesOut) {
  Start({}, Brief);
  EXPECT_EQ(Write("Q?\r"), Success);
  const ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(outcome.count, 0);
  EXPECT_TRUE(Message(outcome.status, session).starts_with("Timeout expired before the answer was complete"));
}

TEST_P(DriverRecoveryContract, AReadAfterATimeoutFailsAtOnceAndTellsTheReason) {
  Start({}, Brief);
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  const ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Code(DriverStatus::NotConnected));
  EXPECT_EQ(Message(outcome.status, session),
            "There is no connection: " + bench->Place() + ", gave no whole answer in time.\n");
}

TEST_P(DriverRecoveryContract, TheNextWriteReconnectsAndSaysSoOnce) {
  Start({{"Q?", Reaction::Answer("1\n")}}, Brief);
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_THAT(bench->observer.names, testing::IsEmpty());
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_THAT(bench->observer.names, testing::ElementsAre(bench->CanonicalName()));
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_THAT(bench->observer.names, testing::SizeIs(2));
}

TEST_P(DriverRecoveryContract, AnIncompleteAnswerIsLostWithTheConnection) {
  Start({{"HALF?", Reaction::Answer("12")}, {"Q?", Reaction::Answer("345\n")}}, Brief);
  EXPECT_EQ(Write("HALF?\r"), Success);
  std::string buffer(4, '~');
  std::int32_t count = -1;
  EXPECT_EQ(Driver().TVSCPI_ReadInstrData(session, 4, buffer.data(), count), Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(buffer, std::string("\0\0~~", 4));
  EXPECT_EQ(Query("Q?"), "345");
}

TEST_P(DriverRecoveryContract, ABlockThatEndsEarlyTimesOut) {
  Start({{"WAV?", Reaction::Answer("#3100short\n")}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  EXPECT_EQ(Write("WAV?\r"), Success);
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(DriverRecoveryContract, AttributesOutliveTheConnection) {
  Start({{"Q?", Reaction::Answer("a\nb\r")}}, Brief);
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, 13), Success);
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, "E?"), Success);
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "a\nb");
  std::string text(3, '~');
  EXPECT_EQ(Driver().TVSCPI_GetAttributeViString(session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, 3, text.data()), Success);
  EXPECT_STREQ(text.c_str(), "E?");
}

TEST_P(DriverRecoveryContract, AnswersThatWereBufferedAreDroppedWithTheConnection) {
  Start({{"TWO?", Reaction::Answer("1\n2")}, {"Q?", Reaction::Answer("3\n")}}, Brief);
  EXPECT_EQ(Query("TWO?"), "1");
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "3");
}

TEST_P(DriverRecoveryContract, ASessionOutOfStepCanBeClosed) {
  Start({}, Brief);
  EXPECT_EQ(Read().status, Code(DriverStatus::ReadTimeout));
  EXPECT_EQ(Driver().TVSCPI_close(session), Success);
  EXPECT_THAT(bench->observer.names, testing::IsEmpty());
}

} // namespace
} // namespace portico::test
