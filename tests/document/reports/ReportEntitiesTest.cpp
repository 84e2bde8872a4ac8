#include "document/reports/ReportEntities.h"

#include "channel/CReport.h"
#include "framework/objects/CObjectFactory.h"
#include "support/doubles/ReportDouble.h"
#include "support/fixtures/DocumentFixture.h"

namespace portico::test {
namespace {

using modAppGlobals::AddTerminalNewLineToString;
using modAppGlobals::Report2DataEntity;
using modAppGlobals::TerminateEntityDataWithNewLine;

class ReportEntities : public DocumentFixture {
protected:
  ReportEntities() { Running(u""); }

  void Running(const String& line) { Configuration->Items[u"CurrentInstruction"] = line; }
  static std::string Converted(const Ref<IReport>& report) {
    const auto entity = Report2DataEntity(report);
    return entity ? ToUtf8(entity->DataType()) + ": " + TextOf(entity) : "nothing";
  }
};

TEST_F(ReportEntities, TypeFollowsTheClass) {
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok")), "Response: ok\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CSetConfigCmd", u"set")), "Configuration: set\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CGetConfigCmd", u"got")), "Configuration: got\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"COpenCmd", u"opened")), ": opened\\r\\n");
}

TEST_F(ReportEntities, OtherClassesShowNothing) {
  for (const auto* other :
       {u"CCloseCmd", u"CGetAttribCmd", u"CSetAttribCmd", u"CIntervalPacingCmd", u"CRun", u"cwritecmd", u"CReport"}) {
    const auto report = ReportOf(other, u"data");
    report->SCPIInstruction = u"text";
    EXPECT_EQ(Converted(report), "nothing") << ToUtf8(other);
  }
  EXPECT_EQ(Stamper->Drawn, 0);
}

TEST_F(ReportEntities, WriteShowsItsInstructionAndNotItsData) {
  Running(u"*RST");
  const auto report = WriteOf(u"*RST");
  report->Data = u"data";
  EXPECT_EQ(Converted(report), "Instruction: *RST\\r\\n");
}

TEST_F(ReportEntities, OthersShowTheirDataAndNotAnInstruction) {
  for (const auto* other : {u"CReadCmd", u"CSetConfigCmd", u"CGetConfigCmd", u"COpenCmd"}) {
    const auto report = ReportOf(other, u"");
    report->SCPIInstruction = u"text";
    EXPECT_EQ(Converted(report), "nothing") << ToUtf8(other);
  }
}

TEST_F(ReportEntities, WriteThatBeginsTheCurrentLineWasTypedWhateverItsCase) {
  Running(u"*idn?");
  EXPECT_EQ(Converted(WriteOf(u"*IDN?")), "Instruction: *IDN?\\r\\n");
  Running(u"*IDN?;*opc?");
  EXPECT_EQ(Converted(WriteOf(u"*IDN?")), "Instruction: *IDN?\\r\\n");
}

TEST_F(ReportEntities, WriteOfAnythingElseIsAutomatic) {
  Running(u"MEAS:VOLT?");
  EXPECT_EQ(Converted(WriteOf(u"*OPC?")), "AutomaticInstruction: *OPC?\\r\\n");
  EXPECT_EQ(Converted(WriteOf(u"VOLT?")), "AutomaticInstruction: VOLT?\\r\\n"); // inside, not at the beginning
  EXPECT_EQ(Converted(WriteOf(u"MEAS:VOLT? 1")), "AutomaticInstruction: MEAS:VOLT? 1\\r\\n"); // longer than the line
  Running(u"");
  EXPECT_EQ(Converted(WriteOf(u"*OPC?")), "AutomaticInstruction: *OPC?\\r\\n");
}

TEST_F(ReportEntities, AutomaticTextThatBeginsTheLinePassesForTyped) {
  Running(u"SYST:ERR?;*WAI");
  EXPECT_EQ(Converted(WriteOf(u"syst:err?")), "Instruction: syst:err?\\r\\n");
}

TEST_F(ReportEntities, OnlyAWriteReadsTheCurrentLine) {
  Configuration->Items.clear();
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok")), "Response: ok\\r\\n");
  EXPECT_EQ(Configuration->Reads, 0);
  EXPECT_EQ(Raised([] { Report2DataEntity(WriteOf(u"*RST")); }).Number, Hex(0x80041461));
}

TEST_F(ReportEntities, EmptyTextWithoutAnErrorIsNothing) {
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"")), "nothing");
  EXPECT_EQ(Converted(ReportOf(u"COpenCmd", u"")), "nothing");
  EXPECT_EQ(Stamper->Drawn, 0);
}

TEST_F(ReportEntities, FailureShowsTheTextAndNeverTheMessage) {
  Running(u"*RST");
  const auto write = WriteOf(u"*RST", -1073807339);
  write->ErrorMessage = u"Timeout.";
  EXPECT_EQ(Converted(write), "Instruction: *RST\\r\\n");
}

TEST_F(ReportEntities, FailureWithoutTextIsAnEmptyLineOfItsType) {
  const auto close = ReportOf(u"CCloseCmd", u"data", 5);
  close->ErrorMessage = u"Timeout.";
  EXPECT_EQ(Converted(close), ": \\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"", -1)), "Response: \\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"COpenCmd", u"", 1)), ": \\r\\n");
}

TEST_F(ReportEntities, CompletionReportIsAnEmptyLineOfNoType) {
  const auto completion = New<CReport>();
  completion->Initialize(u"CWriteCmd", New<CInstContainer>(), Hex(0x80041454), u"", u"*IDN?");
  Running(u"*IDN?");
  EXPECT_EQ(Converted(completion), ": \\r\\n");
  EXPECT_EQ(Stamper->Drawn, 1);
}

TEST_F(ReportEntities, TextIsTerminatedOnce) {
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok\r\n")), "Response: ok\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok\n")), "Response: ok\\n\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok\r")), "Response: ok\\r\\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"\r\n")), "Response: \\r\\n");
  EXPECT_EQ(Converted(ReportOf(u"CReadCmd", u"ok\r\n", 3)), "Response: ok\\r\\n");
}

TEST_F(ReportEntities, EachConversionDrawsAStamp) {
  const auto report = ReportOf(u"CReadCmd", u"ok");
  EXPECT_EQ(Report2DataEntity(report)->TimeStamp(), u"stamp 1");
  EXPECT_EQ(Report2DataEntity(report)->TimeStamp(), u"stamp 2");
}

TEST_F(ReportEntities, NoReportRaises) {
  const auto error = Raised([] { Report2DataEntity({}); });
  ExpectError(error, 5, u"Report cannot be nothing.");
  ExpectTrail(error, {u"modAppGlobals.Report2DataEntity(Report)"});
}

TEST_F(ReportEntities, FailureOfTheFactoryPassesOn) {
  gObjectFactory = New<CObjectFactory>();
  const auto error = Raised([] { Report2DataEntity(ReportOf(u"CReadCmd", u"ok")); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_TRUE(Bears(CallStack(error).back(), u"modAppGlobals.Report2DataEntity(Report)"));
}

TEST_F(ReportEntities, TerminalNewLineIsAddedWhereTheLastTwoCharactersAreAnother) {
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"")), "\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"a")), "a\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"a\r\n")), "a\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"\r\n")), "\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"\n")), "\\n\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"a\r\nb")), "a\\r\\nb\\r\\n");
  EXPECT_EQ(Escaped(AddTerminalNewLineToString(u"a\n\r")), "a\\n\\r\\r\\n");
}

TEST_F(ReportEntities, TerminatingAnEntityKeepsItsTypeAndStamp) {
  const auto entity = Entity(u"a", u"Response");
  TerminateEntityDataWithNewLine(entity);
  TerminateEntityDataWithNewLine(entity);
  EXPECT_EQ(TextOf(entity), "a\\r\\n");
  EXPECT_EQ(entity->DataLength(), 6);
  EXPECT_EQ(entity->DataType(), u"Response");
  EXPECT_EQ(entity->TimeStamp(), u"stamp 1");
}

TEST_F(ReportEntities, TerminatingNoEntityRaises) {
  const auto error = Raised([] { TerminateEntityDataWithNewLine({}); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"modAppGlobals.TerminateEntityDataWithNewLine(DataEntity)"});
}

} // namespace
} // namespace portico::test
