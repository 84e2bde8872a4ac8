#include "terminal/RunStatus.h"

#include <gtest/gtest.h>

#include <vector>

namespace portico::terminal {
namespace {

TEST(RunStatus, NumbersAreThoseThatTheShellSees) {
  EXPECT_EQ(static_cast<int>(ExitStatus::Success), 0);
  EXPECT_EQ(static_cast<int>(ExitStatus::InstrumentError), 1);
  EXPECT_EQ(static_cast<int>(ExitStatus::Usage), 2);
  EXPECT_EQ(static_cast<int>(ExitStatus::NotOpened), 3);
  EXPECT_EQ(static_cast<int>(ExitStatus::DriverFailure), 4);
  EXPECT_EQ(static_cast<int>(ExitStatus::Internal), 5);
  EXPECT_EQ(static_cast<int>(ExitStatus::Interrupted), 130);
}

TEST(RunStatus, NothingNotedIsSuccess) { EXPECT_EQ(RunStatus().Gravest(), ExitStatus::Success); }

TEST(RunStatus, OfAnyTwoTheGraverCountsInEitherOrder) {
  const std::vector<int> gravestFirst = {130, 2, 3, 5, 4, 1, 0};
  for (std::size_t graver = 0; graver < gravestFirst.size(); ++graver) {
    for (std::size_t lighter = graver; lighter < gravestFirst.size(); ++lighter) {
      SCOPED_TRACE(testing::Message() << gravestFirst[graver] << " and " << gravestFirst[lighter]);
      const auto one = static_cast<ExitStatus>(gravestFirst[graver]);
      const auto other = static_cast<ExitStatus>(gravestFirst[lighter]);
      RunStatus rising;
      rising.Note(other);
      rising.Note(one);
      EXPECT_EQ(rising.Gravest(), one);
      RunStatus falling;
      falling.Note(one);
      falling.Note(other);
      EXPECT_EQ(falling.Gravest(), one);
    }
  }
}

TEST(RunStatus, ManyNotesLeaveTheGravest) {
  RunStatus status;
  for (const int number : {1, 4, 3, 5, 1, 0, 4}) status.Note(static_cast<ExitStatus>(number));
  EXPECT_EQ(static_cast<int>(status.Gravest()), 3);
}

} // namespace
} // namespace portico::terminal
