#include "contract/DriverBench.h"

namespace portico::test {
namespace {

/// Where the transport marks the end of an answer.
class MarkedAnswerContract : public DriverContract {
protected:
  void SetTermination(std::int32_t value) {
    ASSERT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, value), Success);
  }
};

INSTANTIATE_TEST_SUITE_P(Marking, MarkedAnswerContract,
                         testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return its.marksEnd; })),
                         BenchName);

TEST_P(MarkedAnswerContract, AnAnswerThatHoldsLineFeedsComesWhole) {
  Start({{"LINES?", Reaction::Answer("1\n2\r\n3\n")}, {"Q?", Reaction::Answer("4\n")}});
  EXPECT_EQ(Query("LINES?"), "1\n2\r\n3");
  EXPECT_EQ(Query("Q?"), "4");
}

TEST_P(MarkedAnswerContract, OneTerminatorInFrontOfTheMarkIsTakenOffAndNoneIsNeeded) {
  Start({{"TWO?", Reaction::Answer("a\n\r\n")},
         {"NONE?", Reaction::Answer("b")},
         {"BLOCK?", Reaction::Answer("#12c\n")},
         {"INDEFINITE?", Reaction::Answer("#0d\ne\n")}});
  EXPECT_EQ(Query("TWO?"), "a\n");
  EXPECT_EQ(Query("NONE?"), "b");
  EXPECT_EQ(Query("BLOCK?"), "#12c\n");
  EXPECT_EQ(Query("INDEFINITE?"), "#0d\ne");
}

TEST_P(MarkedAnswerContract, ALongAnswerOfLinesComesWhole) {
  std::string lines;
  for (int line = 0; line < 20'000; ++line) lines += std::to_string(line) + "\n";
  Start({{"LIST?", Reaction::Answer(lines)}});
  EXPECT_EQ(Write("LIST?\r"), Success);
  EXPECT_TRUE(Read(1 << 20).bytes == lines.substr(0, lines.size() - 1) + '\0');
}

TEST_P(MarkedAnswerContract, AnotherTermcharEndsAtItsTerminatorOrAtTheMark) {
  Start({{"TWO?", Reaction::Answer("1\n2\n")}, {"NONE?", Reaction::Answer("3\n4")}, {"Q?", Reaction::Answer("5\r")}});
  SetTermination(10);
  EXPECT_EQ(Query("TWO?"), "1");
  EXPECT_EQ(Read().bytes, std::string("2\0", 2));
  EXPECT_EQ(Query("NONE?"), "3");
  EXPECT_EQ(Read().bytes, std::string("4\0", 2));
  EXPECT_EQ(Query("Q?"), "5\r");
  SetTermination(0);
  EXPECT_EQ(Query("TWO?"), "1\n2");
}

} // namespace
} // namespace portico::test
