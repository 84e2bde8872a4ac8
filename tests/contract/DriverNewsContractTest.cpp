#include "contract/DriverBench.h"

namespace portico::test {
namespace {

/// What an observer hears of the driver.
class DriverNewsContract : public DriverContract {};

INSTANTIATE_TEST_SUITE_P(Telling, DriverNewsContract,
                         testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return its.tells; })),
                         BenchName);

TEST_P(DriverNewsContract, GettingInStepAgainIsToldOnceEachTime) {
  Start({{"Q?", Reaction::Answer("1\n")}}, Brief);
  const bool connectsAnew = GetParam().traits.recovery == TransportTraits::RecoveryKind::FreshConnection;
  const std::vector<std::string>& told = connectsAnew ? bench->observer.names : bench->observer.cleared;
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_THAT(told, testing::IsEmpty());
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_THAT(told, testing::ElementsAre(bench->CanonicalName()));
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_THAT(told, testing::SizeIs(2));
  EXPECT_EQ(bench->observer.names.size() + bench->observer.cleared.size(), 2U);
  EXPECT_THAT(bench->observer.restored, testing::IsEmpty());
}

TEST_P(DriverNewsContract, AMessageThatFillsItsBufferIsToldWithItsWholeLength) {
  Start({{"SHORT?", Reaction::Answer("123456\n")},
         {"FITS?", Reaction::Answer("1234567\r\n")},
         {"LONGER?", Reaction::Answer(std::string(200'000, 'x') + "\n")}});
  EXPECT_EQ(Write("SHORT?\r"), Success);
  Read(8);
  EXPECT_THAT(bench->observer.filled, testing::IsEmpty());
  EXPECT_EQ(Write("FITS?\r"), Success);
  Read(8);
  EXPECT_EQ(Write("LONGER?\r"), Success);
  Read(8);
  EXPECT_THAT(bench->observer.filled,
              testing::ElementsAre(bench->CanonicalName() + ", 7", bench->CanonicalName() + ", 200000"));
}

} // namespace
} // namespace portico::test
