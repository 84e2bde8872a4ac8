#include "contract/DriverBench.h"

namespace portico::test {
namespace {

/// What only a plain stream of bytes can do: an answer is what the terminator cuts off.
class DriverStreamContract : public DriverContract {};

INSTANTIATE_TEST_SUITE_P(
    Streams, DriverStreamContract,
    testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return !its.marksEnd; })), BenchName);

TEST_P(DriverStreamContract, TwoMessagesAtOnceAreReadOneByOne) {
  Start({{"BOTH?", Reaction::Answer("1\r\n2\n")}});
  EXPECT_EQ(Query("BOTH?"), "1");
  EXPECT_EQ(Read().bytes, std::string("2\0", 2));
}

TEST_P(DriverStreamContract, AnUnreadAnswerStaysWhereItIs) {
  Start({{"A?", Reaction::Answer("1\n")}, {"B?", Reaction::Answer("2\n")}});
  EXPECT_EQ(Write("A?\r"), Success);
  EXPECT_EQ(Write("B?\r"), Success);
  EXPECT_EQ(Read().bytes, std::string("1\0", 2));
  EXPECT_EQ(Read().bytes, std::string("2\0", 2));
}

TEST_P(DriverStreamContract, AnswersThatHadComeAreDroppedBeforeTheNextCommand) {
  Start({{"TWO?", Reaction::Answer("1\n2")}, {"Q?", Reaction::Answer("3\n")}}, Brief);
  EXPECT_EQ(Query("TWO?"), "1");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "3");
}

} // namespace
} // namespace portico::test
