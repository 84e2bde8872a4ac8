#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"

#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

#include <stdexcept>

namespace portico {
namespace {

using namespace std::chrono_literals;
using test::Hex;

class ErrorLogTest : public test::FrameworkTest {
protected:
  static void Record(std::int32_t number = 17) {
    RecordHere({number, u"Tester", String(u"No beam."), {}, 0, 0, 0}, u"C.M()");
  }
};

TEST_F(ErrorLogTest, AppendsTheReportAndTwoLineEnds) {
  Record();
  HuntERR::WriteErrorReport(u"/var/log/errors.log");
  ASSERT_EQ(Environment.Appended.size(), 1U);
  EXPECT_EQ(Environment.Appended[0].Path, u"/var/log/errors.log");
  EXPECT_EQ(Environment.Appended[0].Text, HuntERR::ErrReport() + u"\r\n\r\n");
}

TEST_F(ErrorLogTest, ANameWithoutASeparatorLiesBesideTheProgram) {
  Record();
  HuntERR::WriteErrorReport(u"errors.log");
  Environment.Separator = u'\\';
  Environment.Directory = u"C:\\Portico";
  HuntERR::WriteErrorReport(u"errors.log");
  HuntERR::WriteErrorReport(u"D:\\errors.log");
  ASSERT_EQ(Environment.Appended.size(), 3U);
  EXPECT_EQ(Environment.Appended[0].Path, u"/opt/portico/errors.log");
  EXPECT_EQ(Environment.Appended[1].Path, u"C:\\Portico\\errors.log");
  EXPECT_EQ(Environment.Appended[2].Path, u"D:\\errors.log");
}

TEST_F(ErrorLogTest, WithoutAReportNothingIsWritten) {
  HuntERR::WriteErrorReport(u"errors.log");
  EXPECT_EQ(Environment.Attempts, 0);
}

TEST_F(ErrorLogTest, AnExpectedErrorWritesNothing) {
  Record();
  Record(Hex(0x80041100));
  modGlobals::LogErrorReport();
  EXPECT_EQ(Environment.Attempts, 0);
}

TEST_F(ErrorLogTest, ALockedFileIsTriedAgainEvery200Milliseconds) {
  Record();
  Environment.Refusals = 2;
  HuntERR::WriteErrorReport(u"errors.log");
  EXPECT_EQ(Environment.Sleeps, (std::vector<std::chrono::milliseconds>{200ms, 200ms}));
  EXPECT_EQ(Environment.Appended.size(), 1U);
}

TEST_F(ErrorLogTest, AFileThatStaysLockedIsGivenUpAfterOneSecond) {
  Record();
  const auto start = Environment.Ticks();
  Environment.Refusals = 1000;
  HuntERR::WriteErrorReport(u"errors.log");
  EXPECT_EQ(Environment.Ticks() - start, 1000ms);
  EXPECT_EQ(Environment.Sleeps, std::vector<std::chrono::milliseconds>(5, 200ms));
  EXPECT_TRUE(Environment.Appended.empty());
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
}

TEST_F(ErrorLogTest, WritingLeavesTheReportAndTheErrorAsTheyAre) {
  Record();
  const String report = HuntERR::ErrReport();
  HuntERR::WriteErrorReport(u"errors.log");
  EXPECT_EQ(HuntERR::ErrReport(), report);
  EXPECT_EQ(HuntERR::Err().Number, 17);
}

TEST_F(ErrorLogTest, AFailureOfTheReportingLosesTheReport) {
  RecordHere({17, u"Tester", LazyText([]() -> String { throw std::runtime_error("lost"); }), {}, 0, 0, 0}, u"C.M()");
  HuntERR::WriteErrorReport(u"errors.log");
  EXPECT_EQ(Environment.Attempts, 0);
}

TEST_F(ErrorLogTest, LogErrorReportWritesBesideTheProgram) {
  Record();
  modGlobals::LogErrorReport();
  Environment.Directory = u"/opt/portico/";
  modGlobals::LogErrorReport();
  Environment.Directory = u"/";
  modGlobals::LogErrorReport();
  ASSERT_EQ(Environment.Appended.size(), 3U);
  EXPECT_EQ(Environment.Appended[0].Path, u"/opt/portico/SCPIComm.log");
  EXPECT_EQ(Environment.Appended[1].Path, u"/opt/portico/SCPIComm.log");
  EXPECT_EQ(Environment.Appended[2].Path, u"/SCPIComm.log");
}

TEST_F(ErrorLogTest, WithoutAnEnvironmentReportsAreStillMade) {
  HuntERR::SetEnvironment(nullptr);
  Record();
  modGlobals::LogErrorReport();
  EXPECT_NE(HuntERR::ErrReport().find(u" App=':' ADO-version='' Computer='' \r\n"), String::npos);
}

} // namespace
} // namespace portico
