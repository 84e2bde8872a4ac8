#include "contract/DriverBench.h"

namespace portico::test {
namespace {

/// The order to give up, because the program comes to its end.
class DriverCancellingContract : public DriverContract {
protected:
  /// So long that a call which the order does not end is not over before the test's own time is.
  static constexpr auto Endless = std::chrono::hours(1);

  void GiveUpAtTheNextWait() {
    bench->observer.onWait = [this] { bench->cancellation.Request(); };
  }
};

INSTANTIATE_TEST_SUITE_P(Cancelling, DriverCancellingContract,
                         testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return its.cancels; })),
                         BenchName);

TEST_P(DriverCancellingContract, AReadThatIsUnderWayEndsAndAllButClosingIsRefused) {
  Start({{"Q?", Reaction::Answer("1\n")}}, Endless);
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(Write("SLOW?\r"), Success);
  GiveUpAtTheNextWait();
  const ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Number(DriverStatus::Cancelled));
  EXPECT_EQ(outcome.count, 0);
  EXPECT_TRUE(Message(outcome.status, session).starts_with("The program is about to end: " + bench->Place()))
      << Message(outcome.status, session);
  EXPECT_EQ(Write("Q?\r"), Number(DriverStatus::Cancelled));
  EXPECT_EQ(Read().status, Number(DriverStatus::Cancelled));
  std::int32_t other = 0;
  EXPECT_EQ(Driver().TVSCPI_init(bench->Name(), 0, 0, other), Number(DriverStatus::Cancelled));
  EXPECT_EQ(Driver().TVSCPI_close(session), Success);
}

TEST_P(DriverCancellingContract, ClosingWaitsForNothingOnceTheOrderWasGiven) {
  Start({}, Endless);
  EXPECT_EQ(Write("SLOW?\r"), Success);
  bench->cancellation.Request();
  EXPECT_EQ(Driver().TVSCPI_close(session), Success);
}

} // namespace
} // namespace portico::test
