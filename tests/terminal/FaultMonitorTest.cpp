#include "terminal/FaultMonitor.h"

#include "terminal/HandMadeReport.h"

#include <gtest/gtest.h>

namespace portico::terminal {
namespace {

using test::FailureReport;
using test::ReadReport;
using test::Report;
using test::WriteReport;

TEST(FaultMonitor, IsCleanAtFirst) {
  const FaultMonitor monitor;
  EXPECT_TRUE(monitor.DriverFailures().empty());
  EXPECT_FALSE(monitor.LastAnswer());
}

TEST(FaultMonitor, KeepsTheDriversTextsInOrder) {
  FaultMonitor monitor;
  monitor.Update(FailureReport(u"CWriteCmd", -1151012, u"The instrument closed the connection."));
  monitor.Update(FailureReport(u"CSetAttribCmd", -1151006, u"The attribute does not take that value."));
  EXPECT_EQ(monitor.DriverFailures(), (std::vector<String>{u"The instrument closed the connection.",
                                                           u"The attribute does not take that value."}));
}

TEST(FaultMonitor, TellsHowEachCommandEnded) {
  FaultMonitor monitor;
  monitor.Update(WriteReport(u"Q?"));
  monitor.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  ASSERT_EQ(monitor.Outcomes().size(), 2U);
  EXPECT_EQ(monitor.Outcomes()[0].Command, u"CWriteCmd");
  EXPECT_FALSE(monitor.Outcomes()[0].Failure);
  EXPECT_EQ(monitor.Outcomes()[1].Command, u"CReadCmd");
  EXPECT_EQ(monitor.Outcomes()[1].Failure, u"1 time-out");
}

TEST(FaultMonitor, ReadBehindAFailedWriteIsNoFailureOfItsOwn) {
  FaultMonitor monitor;
  monitor.Update(FailureReport(u"CWriteCmd", -1151009, u"refused"));
  monitor.Update(FailureReport(u"CReadCmd", -1151014, u"There is no connection: refused."));
  monitor.Update(WriteReport(u"Q?"));
  monitor.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  EXPECT_EQ(monitor.DriverFailures(), (std::vector<String>{u"refused", u"1 time-out"}));
}

TEST(FaultMonitor, ReadOfTheNextInstructionIsOnItsOwn) {
  FaultMonitor monitor;
  monitor.Update(FailureReport(u"CWriteCmd", -1151009, u"refused"));
  monitor.Begin();
  monitor.Update(FailureReport(u"CReadCmd", -1151014, u"There is no connection."));
  EXPECT_EQ(monitor.DriverFailures(), std::vector<String>{u"There is no connection."});
}

TEST(FaultMonitor, EveryKindOfCommandCanFail) {
  for (const String command : {u"COpenCmd", u"CCloseCmd", u"CSetAttribCmd", u"CWriteCmd", u"CReadCmd"}) {
    FaultMonitor monitor;
    monitor.Update(FailureReport(command, 1, u"text"));
    EXPECT_EQ(monitor.DriverFailures().size(), 1U) << ToUtf8(command);
  }
}

TEST(FaultMonitor, MarksAreNoFailures) {
  FaultMonitor monitor;
  for (const std::uint32_t mark : {0x80041453U, 0x80041454U}) {
    monitor.Update(Report({.Command = u"SCPIInstructionProcessor", .ErrorCode = static_cast<std::int32_t>(mark)}));
  }
  EXPECT_TRUE(monitor.DriverFailures().empty());
}

TEST(FaultMonitor, TellsTheEndOfAnInstruction) {
  FaultMonitor monitor;
  int ends = 0;
  monitor.Completed.Connect([&] { ++ends; });
  monitor.Update(WriteReport(u"*CLS"));
  monitor.Update(Report({.Command = u"CRun", .ErrorCode = static_cast<std::int32_t>(0x80041453U)}));
  EXPECT_EQ(ends, 0);
  monitor.Update(Report({.Command = u"SCPI", .ErrorCode = static_cast<std::int32_t>(0x80041454U)}));
  EXPECT_EQ(ends, 1);
}

TEST(FaultMonitor, LastAnswerIsThatOfTheLastWrite) {
  FaultMonitor monitor;
  monitor.Update(WriteReport(u"*IDN?"));
  monitor.Update(ReadReport(u"an instrument"));
  EXPECT_EQ(monitor.LastAnswer(), u"an instrument");
  monitor.Update(WriteReport(u":SYST:ERR?"));
  EXPECT_FALSE(monitor.LastAnswer());
  monitor.Update(ReadReport(u"0,\"No error\""));
  EXPECT_EQ(monitor.LastAnswer(), u"0,\"No error\"");
}

TEST(FaultMonitor, FailedReadIsNoAnswer) {
  FaultMonitor monitor;
  monitor.Update(WriteReport(u":SYST:ERR?"));
  monitor.Update(FailureReport(u"CReadCmd", -1151016, u"1 time-out"));
  EXPECT_FALSE(monitor.LastAnswer());
}

TEST(FaultMonitor, EndOfTheInstructionLeavesTheAnswer) {
  FaultMonitor monitor;
  monitor.Update(ReadReport(u"-113"));
  monitor.Update(Report({.Command = u"SCPIInstructionProcessor", .ErrorCode = static_cast<std::int32_t>(0x80041454)}));
  EXPECT_EQ(monitor.LastAnswer(), u"-113");
}

TEST(FaultMonitor, BeginForgetsTheInstructionBefore) {
  FaultMonitor monitor;
  monitor.Update(FailureReport(u"CWriteCmd", 1, u"text"));
  monitor.Update(ReadReport(u"-113"));
  monitor.Begin();
  EXPECT_TRUE(monitor.DriverFailures().empty());
  EXPECT_FALSE(monitor.LastAnswer());
}

} // namespace
} // namespace portico::terminal
