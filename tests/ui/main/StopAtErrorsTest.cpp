#include "ui/main/ErringInstrumentFixture.h"

namespace portico::test {
namespace {

using StopAtErrorsTest = ErringInstrumentFixture;

TEST_F(StopAtErrorsTest, IsOffAtFirstAndTakesNothingFromARun) {
  Start(u"DMM");
  EXPECT_FALSE(Menu(u"mnuStopAtErrors").Checked());
  Run(u"BAD\r\n*RST\r\n");
  EXPECT_EQ(Left(), "");
}

TEST_F(StopAtErrorsTest, LeavesTheLinesBehindAnErrorButForTheOneThatTheRunHasTaken) {
  Start(u"DMM");
  Click(u"mnuStopAtErrors");
  EXPECT_TRUE(Menu(u"mnuStopAtErrors").Checked());
  Run(u"*CLS\r\nBAD\r\n*RST\r\n*WAI\r\n*TST?\r\n");
  EXPECT_EQ(Left(), "*WAI\r\n*TST?\r\n");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write *RST"), 0);
  EXPECT_FALSE(Window->StopRequested()) << "as behind every run";
  EXPECT_TRUE(Menu(u"mnuRun").Enabled());
  ExpectNoBox();
}

TEST_F(StopAtErrorsTest, LeavesTheLinesBehindAFailureOfTheDriver) {
  Start(u"DMM");
  Click(u"mnuStopAtErrors");
  Driver->Statuses["write *CLS"] = -1151016;
  Run(u"*CLS\r\n*RST\r\n*WAI\r\n");
  EXPECT_EQ(Left(), "*WAI\r\n");
}

TEST_F(StopAtErrorsTest, StopsTheNextRunToo) {
  Start(u"DMM");
  Click(u"mnuStopAtErrors");
  for (int i = 0; i < 2; ++i) {
    Run(u"BAD\r\n*RST\r\n*WAI\r\n");
    EXPECT_EQ(Left(), "*WAI\r\n");
  }
  Click(u"mnuStopAtErrors");
  EXPECT_FALSE(Menu(u"mnuStopAtErrors").Checked());
  Run(u"BAD\r\n*RST\r\n*WAI\r\n");
  EXPECT_EQ(Left(), "");
}

TEST_F(StopAtErrorsTest, IsKeptFromOneStartToTheNext) {
  Store->SaveSetting(u"Tolvane Portico", u"Data", u"StopAtErrors", u"On");
  Start(u"DMM");
  EXPECT_TRUE(Menu(u"mnuStopAtErrors").Checked());
  Run(u"BAD\r\n*RST\r\n*WAI\r\n");
  EXPECT_EQ(Left(), "*WAI\r\n");
}

} // namespace
} // namespace portico::test
