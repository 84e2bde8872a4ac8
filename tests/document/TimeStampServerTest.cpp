#include "DocumentTest.h"

namespace portico {
namespace {

using test::FakeErrorEnvironment;

class CMockTimeStampServerTest : public test::FrameworkTest {};

TEST_F(CMockTimeStampServerTest, FirstStampOfTheSecondOfCreationHasTheNumberOne) {
  CMockTimeStampServer server;
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-02-09T08:05:03.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, StampsOfOneSecondDifferOnlyInTheirNumbers) {
  CMockTimeStampServer server;
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-02-09T08:05:03.000000002-5:00");
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-02-09T08:05:03.000000003-5:00");
}

TEST_F(CMockTimeStampServerTest, AnotherSecondStartsAtZero) {
  CMockTimeStampServer server;
  server.TimeStamp();
  Environment.Now = FakeErrorEnvironment::At(2004, 11, 1, 16, 42, 9);
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-11-01T16:42:09.000000000-5:00");
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-11-01T16:42:09.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, EveryFieldOfTheClockMakesAnotherSecond) {
  CMockTimeStampServer server;
  for (const auto& now :
       {FakeErrorEnvironment::At(2004, 2, 9, 8, 5, 4), FakeErrorEnvironment::At(2004, 2, 9, 8, 6, 4),
        FakeErrorEnvironment::At(2004, 2, 9, 9, 6, 4), FakeErrorEnvironment::At(2004, 2, 10, 9, 6, 4),
        FakeErrorEnvironment::At(2004, 3, 10, 9, 6, 4), FakeErrorEnvironment::At(2005, 3, 10, 9, 6, 4)}) {
    Environment.Now = now;
    EXPECT_EQ(server.TimeStamp().substr(19), u".000000000-5:00");
    EXPECT_EQ(server.TimeStamp().substr(19), u".000000001-5:00");
  }
}

TEST_F(CMockTimeStampServerTest, NumbersHaveAtLeastNineDigits) {
  CMockTimeStampServer server;
  for (int i = 1; i < 12; ++i) server.TimeStamp();
  EXPECT_EQ(ToUtf8(server.TimeStamp()), "2004-02-09T08:05:03.000000012-5:00");
}

} // namespace
} // namespace portico
