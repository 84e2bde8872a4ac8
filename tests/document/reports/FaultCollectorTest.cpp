#include "document/reports/FaultCollector.h"

#include "support/doubles/HandMadeReport.h"
#include "support/fixtures/DocumentFixture.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

using test::FailureReport;
using test::ReadReport;
using test::Report;
using test::WriteReport;

TEST(FaultCollector, IsCleanAtFirst) {
  const FaultCollector collector;
  EXPECT_TRUE(collector.DriverFailures().empty());
  EXPECT_FALSE(collector.LastAnswer());
}

TEST(FaultCollector, KeepsTheDriversTextsInOrder) {
  FaultCollector collector;
  collector.Update(FailureReport(u"CWriteCmd", -1151012, u"The instrument closed the connection."));
  collector.Update(FailureReport(u"CSetAttribCmd", -1151006, u"The attribute does not take that value."));
  EXPECT_EQ(collector.DriverFailures(), (std::vector<String>{u"The instrument closed the connection.",
                                                             u"The attribute does not take that value."}));
}

TEST(FaultCollector, TellsHowEachCommandEnded) {
  FaultCollector collector;
  collector.Update(WriteReport(u"Q?"));
  collector.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  ASSERT_EQ(collector.Outcomes().size(), 2U);
  EXPECT_EQ(collector.Outcomes()[0].Command, u"CWriteCmd");
  EXPECT_FALSE(collector.Outcomes()[0].Failure);
  EXPECT_EQ(collector.Outcomes()[1].Command, u"CReadCmd");
  EXPECT_EQ(collector.Outcomes()[1].Failure, u"1 time-out");
}

TEST(FaultCollector, ReadBehindAFailedWriteIsNoFailureOfItsOwn) {
  FaultCollector collector;
  collector.Update(FailureReport(u"CWriteCmd", -1151009, u"refused"));
  collector.Update(FailureReport(u"CReadCmd", -1151014, u"There is no connection: refused."));
  collector.Update(WriteReport(u"Q?"));
  collector.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  EXPECT_EQ(collector.DriverFailures(), (std::vector<String>{u"refused", u"1 time-out"}));
}

TEST(FaultCollector, ReadOfTheNextInstructionIsOnItsOwn) {
  FaultCollector collector;
  collector.Update(FailureReport(u"CWriteCmd", -1151009, u"refused"));
  collector.Begin();
  collector.Update(FailureReport(u"CReadCmd", -1151014, u"There is no connection."));
  EXPECT_EQ(collector.DriverFailures(), std::vector<String>{u"There is no connection."});
}

TEST(FaultCollector, EveryKindOfCommandCanFail) {
  for (const String command : {u"COpenCmd", u"CCloseCmd", u"CSetAttribCmd", u"CWriteCmd", u"CReadCmd"}) {
    FaultCollector collector;
    collector.Update(FailureReport(command, 1, u"text"));
    EXPECT_EQ(collector.DriverFailures().size(), 1U) << ToUtf8(command);
  }
}

TEST(FaultCollector, MarksAreNoFailures) {
  FaultCollector collector;
  for (const std::uint32_t mark : {0x80041453U, 0x80041454U}) {
    collector.Update(Report({.Command = u"SCPIInstructionProcessor", .ErrorCode = static_cast<std::int32_t>(mark)}));
  }
  EXPECT_TRUE(collector.DriverFailures().empty());
}

TEST(FaultCollector, TellsTheEndOfAnInstruction) {
  FaultCollector collector;
  int ends = 0;
  collector.Completed.Connect([&] { ++ends; });
  collector.Update(WriteReport(u"*CLS"));
  collector.Update(Report({.Command = u"CRun", .ErrorCode = static_cast<std::int32_t>(0x80041453U)}));
  EXPECT_EQ(ends, 0);
  collector.Update(Report({.Command = u"SCPI", .ErrorCode = static_cast<std::int32_t>(0x80041454U)}));
  EXPECT_EQ(ends, 1);
}

TEST(FaultCollector, LastAnswerIsThatOfTheLastWrite) {
  FaultCollector collector;
  collector.Update(WriteReport(u"*IDN?"));
  collector.Update(ReadReport(u"an instrument"));
  EXPECT_EQ(collector.LastAnswer(), u"an instrument");
  collector.Update(WriteReport(u":SYST:ERR?"));
  EXPECT_FALSE(collector.LastAnswer());
  collector.Update(ReadReport(u"0,\"No error\""));
  EXPECT_EQ(collector.LastAnswer(), u"0,\"No error\"");
}

TEST(FaultCollector, FailedReadIsNoAnswer) {
  FaultCollector collector;
  collector.Update(WriteReport(u":SYST:ERR?"));
  collector.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  EXPECT_FALSE(collector.LastAnswer());
}

TEST(FaultCollector, EndOfTheInstructionLeavesTheAnswer) {
  FaultCollector collector;
  collector.Update(ReadReport(u"-113"));
  collector.Update(
      Report({.Command = u"SCPIInstructionProcessor", .ErrorCode = static_cast<std::int32_t>(0x80041454)}));
  EXPECT_EQ(collector.LastAnswer(), u"-113");
}

TEST(FaultCollector, BeginForgetsTheInstructionBefore) {
  FaultCollector collector;
  collector.Update(FailureReport(u"CWriteCmd", 1, u"text"));
  collector.Update(ReadReport(u"-113"));
  collector.Begin();
  EXPECT_TRUE(collector.DriverFailures().empty());
  EXPECT_FALSE(collector.LastAnswer());
}

class ReportedErrorTest : public test::DocumentFixture {
protected:
  ReportedErrorTest() {
    Switch(Item::AutoErrorCheckingMode, true);
    Switch(Item::AutoReadAfterQueryMode, true);
    gConfiguration->ItemValue(Item::ErrorCheckingCommand, u":SYST:ERR?");
    Collector.Update(WriteReport(u":SYST:ERR?"));
  }
  static void Switch(const ItemKey<ItemType::Switch>& item, bool isOn) { gConfiguration->Set(item, isOn); }

  FaultCollector Collector;
};

TEST_F(ReportedErrorTest, IsAnAnswerThatIsNotZero) {
  EXPECT_EQ(Collector.ReportedError(), std::nullopt);
  Collector.Update(ReadReport(u"0,\"No error\""));
  EXPECT_EQ(Collector.ReportedError(), std::nullopt);
  Collector.Update(ReadReport(u"-113,\"Undefined header\""));
  EXPECT_EQ(Collector.ReportedError(), u"-113,\"Undefined header\"");
}

TEST_F(ReportedErrorTest, IsNoAnswerOfAnotherQuery) {
  Collector.Update(WriteReport(u"*STB?"));
  Collector.Update(ReadReport(u"5"));
  EXPECT_EQ(Collector.ReportedError(), std::nullopt);
}

TEST_F(ReportedErrorTest, KnowsTheErrorQueryInWhateverCaseItIsSent) {
  Collector.Update(WriteReport(u" :syst:err? "));
  Collector.Update(ReadReport(u"5"));
  EXPECT_EQ(Collector.ReportedError(), u"5");
}

TEST_F(ReportedErrorTest, IsFoundWhereQueryAndReadAreInstructionsOfTheirOwn) {
  Collector.Begin();
  Collector.Update(ReadReport(u"-113,\"Undefined header\""));
  EXPECT_EQ(Collector.ReportedError(), u"-113,\"Undefined header\"");
}

TEST_F(ReportedErrorTest, IsNoneWhereNoErrorQueryIsSentAndRead) {
  Collector.Update(ReadReport(u"-113,\"Undefined header\""));
  Switch(Item::AutoErrorCheckingMode, false);
  EXPECT_EQ(Collector.ReportedError(), std::nullopt);
  Switch(Item::AutoErrorCheckingMode, true);
  Switch(Item::AutoReadAfterQueryMode, false);
  EXPECT_EQ(Collector.ReportedError(), std::nullopt);
}

} // namespace
} // namespace portico
