#include "support/Allocation.h"
#include "terminal/BatchRunBench.h"

namespace portico::terminal {
namespace {

class BatchRunMemoryTest : public test::BatchRunBench {};

/// A query again and again; notes how much memory is in use at each thousandth.
class RepeatedQuery final : public LineSource {
public:
  RepeatedQuery(std::size_t count, std::function<void()> atThousand)
      : m_count(count), m_atThousand(std::move(atThousand)) {}
  std::string Name() const override { return "repeated"; }
  std::variant<std::optional<String>, TextFault> Next() override {
    if (m_given == m_count) return std::optional<String>{};
    if (m_given % 1000 == 0) m_atThousand();
    ++m_given;
    return std::optional<String>(u"A?");
  }
  bool HasLineAtHand() const override { return m_given < m_count; }
  std::optional<std::size_t> LinesLeft() const override { return {}; }

private:
  std::size_t m_count;
  std::function<void()> m_atThousand;
  std::size_t m_given = 0;
};

TEST_F(BatchRunMemoryTest, NothingIsKeptOfTheLinesThatWereRun) {
  TurnOffPacingAndChecking();
  Answers.Listed["A?"] = "1";
  std::vector<std::size_t> alive;
  Sources sources;
  sources.push_back(std::make_unique<RepeatedQuery>(6000, [&] {
    Wire.clear(); // the driver writes its calls down
    alive.push_back(test::AllocationsAlive());
  }));
  EXPECT_EQ(RunSources(sources), 0);
  ASSERT_EQ(alive.size(), 6U);
  EXPECT_EQ(alive[2], alive[5]);
}

} // namespace
} // namespace portico::terminal
