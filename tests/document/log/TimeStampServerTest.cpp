#include "document/FIFOFixture.h"

namespace portico {
namespace {

using test::FakeErrorEnvironment;

class CMockTimeStampServerTest : public test::FrameworkTest {
protected:
  /// At that time of the day on which the clock stands.
  void SetClock(int hour, int minute, int second) {
    Environment.Now = FakeErrorEnvironment::At(2004, 2, 9, hour, minute, second);
  }
  std::string Draw() { return ToUtf8(Server.TimeStamp()); }

  CMockTimeStampServer Server;
};

TEST_F(CMockTimeStampServerTest, FirstStampOfTheSecondOfCreationHasTheNumberOne) {
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, StampsOfOneSecondDifferOnlyInTheirNumbers) {
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000002-5:00");
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000003-5:00");
}

TEST_F(CMockTimeStampServerTest, AnotherSecondStartsAtZero) {
  Server.TimeStamp();
  Environment.Now = FakeErrorEnvironment::At(2004, 11, 1, 16, 42, 9);
  EXPECT_EQ(Draw(), "2004-11-01T16:42:09.000000000-5:00");
  EXPECT_EQ(Draw(), "2004-11-01T16:42:09.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, EveryFieldOfTheClockMakesAnotherSecond) {
  for (const auto& now :
       {FakeErrorEnvironment::At(2004, 2, 9, 8, 5, 4), FakeErrorEnvironment::At(2004, 2, 9, 8, 6, 4),
        FakeErrorEnvironment::At(2004, 2, 9, 9, 6, 4), FakeErrorEnvironment::At(2004, 2, 10, 9, 6, 4),
        FakeErrorEnvironment::At(2004, 3, 10, 9, 6, 4), FakeErrorEnvironment::At(2005, 3, 10, 9, 6, 4)}) {
    Environment.Now = now;
    EXPECT_EQ(Server.TimeStamp().substr(19), u".000000000-5:00");
    EXPECT_EQ(Server.TimeStamp().substr(19), u".000000001-5:00");
  }
}

TEST_F(CMockTimeStampServerTest, NumbersHaveAtLeastNineDigits) {
  for (int i = 1; i < 12; ++i) Server.TimeStamp();
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000012-5:00");
}

TEST_F(CMockTimeStampServerTest, AClockThatGoesBackMakesTheNumbersGoOnFromTheHighestOfTheRun) {
  for (int i = 1; i < 8; ++i) Draw();
  SetClock(8, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:04.000000000-5:00");
  SetClock(7, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T07:05:04.000000008-5:00");
  EXPECT_EQ(Draw(), "2004-02-09T07:05:04.000000009-5:00");
  SetClock(7, 5, 5);
  EXPECT_EQ(Draw(), "2004-02-09T07:05:05.000000010-5:00");
  SetClock(7, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T07:05:04.000000011-5:00");
}

TEST_F(CMockTimeStampServerTest, TheNumbersBeginAgainWhenTheClockIsLaterThanEver) {
  Draw();
  SetClock(7, 5, 3);
  EXPECT_EQ(Draw(), "2004-02-09T07:05:03.000000002-5:00");
  SetClock(8, 5, 3); // where it has been
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000003-5:00");
  SetClock(8, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:04.000000000-5:00");
}

} // namespace
} // namespace portico
