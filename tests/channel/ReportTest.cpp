#include "channel/CReport.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "support/Labels.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class CReportTest : public ::testing::Test {
protected:
  ~CReportTest() override { HuntERR::Reset(); }
  Ref<CReport> Report = New<CReport>();
};

TEST_F(CReportTest, GivesWhatItWasInitializedWith) {
  Report->Initialize(u"SCPIInstructionProcessor", New<CInstContainer>(), Hex(0x80041454), u"No error.", u"*RST");
  EXPECT_EQ(Report->GetCommand(), u"SCPIInstructionProcessor");
  EXPECT_EQ(Report->GetErrorCode(), Hex(0x80041454));
  EXPECT_EQ(Report->GetErrorMessage(), u"No error.");
  EXPECT_EQ(Report->GetSCPIInstruction(), u"*RST");
  EXPECT_EQ(Report->GetData(), u"");
}

TEST_F(CReportTest, HoldsTheInstruction) {
  const auto instruction = New<CInstContainer>();
  Report->Initialize(u"X", instruction, 0, u"", u"");
  EXPECT_EQ(instruction.Shared().use_count(), 2);
}

TEST_F(CReportTest, OnlyTheCommandIsGuardedBeforeInitialize) {
  const ErrorRecord error = Raised([&] { static_cast<void>(Report->GetCommand()); });
  ExpectError(error, Hex(0x80041460), u"Property is not valid before Initialize().");
  ExpectTrail(error, {u"CReport.IReport_GetCommand"});
  EXPECT_EQ(Report->GetErrorCode(), 0);
  EXPECT_EQ(Report->GetErrorMessage(), u"");
  EXPECT_EQ(Report->GetSCPIInstruction(), u"");
}

TEST_F(CReportTest, RefusesAnEmptyCommand) {
  const ErrorRecord error = Raised([&] { Report->Initialize(u"", New<CInstContainer>(), 1, u"M", u"I"); });
  ExpectError(error, 5, u"Command cannot be an empty string.");
  ExpectTrail(error, {u"CReport.Initialize"});
  EXPECT_EQ(Raised([&] { static_cast<void>(Report->GetCommand()); }).Number, Hex(0x80041460));
}

class CtorReportTest : public CReportTest {
protected:
  Ref<ICreator> Creator = MakeCreator(CtorReport);
};

TEST_F(CtorReportTest, BearsItsNameAndSpecification) {
  EXPECT_EQ(Creator->ClassName(), u"CtorReport");
  EXPECT_EQ(Creator->Specification().ToString(), u"Report");
}

TEST_F(CtorReportTest, MakesAReportOfItsFiveParameters) {
  const auto report =
      Cast<CReport>(Creator->Create({u"CONFIGInstructionProcessor", New<CInstContainer>(), 12, u"Message", u"TEXT"}));
  EXPECT_EQ(report->GetCommand(), u"CONFIGInstructionProcessor");
  EXPECT_EQ(report->GetErrorCode(), 12);
  EXPECT_EQ(report->GetErrorMessage(), u"Message");
  EXPECT_EQ(report->GetSCPIInstruction(), u"TEXT");
}

TEST_F(CtorReportTest, WrongNumberKeepsItsSingularForm) {
  const ErrorRecord error = Raised([&] { Creator->Create({u"X"}); });
  ExpectError(error, 450, u"Expected 5 parameter.");
  ExpectTrail(error, {u"CtorReport.ICreator_Create(Params)"});
}

TEST_F(CtorReportTest, SecondParameterMustBeAnInstruction) {
  EXPECT_EQ(Raised([&] { Creator->Create({u"X", New<CReport>(), 0, u"", u""}); }).Number, 13);
  EXPECT_EQ(Raised([&] { Creator->Create({u"X", u"text", 0, u"", u""}); }).Number, 13);
}

TEST_F(CtorReportTest, EmptyCommandPassesBothLabels) {
  const ErrorRecord error = Raised([&] { Creator->Create({u"", New<CInstContainer>(), 0, u"", u""}); });
  ExpectError(error, 5, u"Command cannot be an empty string.");
  ExpectTrail(error, {u"CReport.Initialize", u"CtorReport.ICreator_Create(Params)"});
}

TEST_F(CtorReportTest, ReportThatCannotBeMadeRaises31004) {
  CreatorRow row = CtorReport;
  row.Make = [](const Params&) -> Ref<IObject> { return {}; };
  const ErrorRecord error = Raised([&] { MakeCreator(row)->Create({u"X", Ref<CInstContainer>(), 0, u"", u""}); });
  ExpectError(error, 31004, u"Cannot create a report command.");
}

} // namespace
} // namespace portico
