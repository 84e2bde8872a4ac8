#include "application/RegisteredRows.h"

#include "channel/CDriverSession.h"
#include "channel/CIntervalTimer.h"
#include "channel/CReport.h"
#include "configuration/CConfiguration.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "framework/objects/modGlobals.h"
#include "instructions/CInstDirector.h"
#include "support/fixtures/PipelineFixture.h"
#include "ui/commands/EditCommands.h"
#include "ui/commands/LogCommands.h"
#include "ui/commands/MergeCommands.h"
#include "ui/commands/PrintCommands.h"

#include <set>

namespace portico {
namespace {

using test::FailureOf;
using test::RegisteredRows;

/// The whole factory, seen as what it is.
class RegisteredClasses : public test::PipelineFixture {
protected:
  static const CObjectFactories& Creators() { return dynamic_cast<CObjectFactory&>(*gObjectFactory).Creators(); }
};

TEST_F(RegisteredClasses, StandInTheFactoryInTheirOrder) {
  std::vector<String> expected;
  std::vector<String> names;
  expected.reserve(std::size(RegisteredRows));
  for (const auto& row : RegisteredRows) expected.emplace_back(String(row.Creator) + u" " + String(row.Specification));
  for (const auto& creator : Creators().NewEnum()) {
    names.push_back(String(creator->ClassName()) + u" " + creator->Specification().ToString());
  }
  EXPECT_EQ(names, expected);
}

TEST_F(RegisteredClasses, AreCountedFromZeroByTheFactorysList) {
  EXPECT_EQ(Creators().Count(), RegisteredRows.size());
  for (std::size_t i = 0; i < RegisteredRows.size(); ++i) {
    EXPECT_EQ(Creators().Item(static_cast<std::int32_t>(i))->ClassName(), RegisteredRows[i].Creator);
  }
}

TEST_F(RegisteredClasses, MatchTheirOwnSpecificationExactly) {
  for (const auto& row : RegisteredRows) {
    const auto creator = gObjectFactory->GetCreator(row.Specification);
    EXPECT_TRUE(creator->IsMatch(row.Specification));
    EXPECT_FALSE(creator->IsMatch(ToUpper(row.Specification))) << ToUtf8(row.Specification);
  }
}

TEST_F(RegisteredClasses, AreFoundInAnyCase) {
  for (const auto& row : RegisteredRows) {
    EXPECT_TRUE(IsSameObject(gObjectFactory->GetCreator(ToUpper(row.Specification)),
                             gObjectFactory->GetCreator(row.Specification)));
  }
}

TEST_F(RegisteredClasses, RefuseAnyOtherNumberOfParameters) {
  constexpr std::array<StringView, 6> texts = {u"Expected 0 parameters.", u"Expected 1 parameter.",
                                               u"Expected 2 parameters.", u"Expected 3 parameter.",
                                               u"Expected 4 parameter.",  u"Expected 5 parameter."};
  for (const auto& row : RegisteredRows) {
    for (std::size_t count = 0; count <= 7; ++count) {
      if (count == row.ParamCount) continue;
      const auto failure = FailureOf([&] { gObjectFactory->CreateObject(row.Specification, Params(count)); });
      EXPECT_EQ(failure.Number, 450) << ToUtf8(row.Specification);
      EXPECT_EQ(failure.Text, texts[row.ParamCount]) << ToUtf8(row.Specification);
    }
  }
}

TEST_F(RegisteredClasses, TheseAreSingletonsAndTheRestAreMadeAnew) {
  const std::set<StringView> singletons = {
      u"Configuration", u"DriverSession", u"InstructionProcessor", u"IntervalTimer", u"CmdSubscriptionAgent",
      u"RunGuard",      u"SentLines",     u"LineRecall",           u"TakenLines",    u"KnownCommands"};
  SetAllOff();
  for (const auto& row : RegisteredRows) {
    if (row.ParamCount != 0) continue;
    const auto one = Create<IObject>(row.Specification);
    const auto other = Create<IObject>(row.Specification);
    EXPECT_EQ(IsSameObject(one, other), singletons.count(row.Specification) == 1) << ToUtf8(row.Specification);
  }
}

TEST_F(RegisteredClasses, MakeWhatTheirNamesSay) {
  SetAllOff();
  const std::vector<std::pair<StringView, StringView>> products = {
      {u"Configuration", u"CConfiguration"},
      {u"CmdSubscriptionAgent", u"CSubscriptionAgent"},
      {u"DriverSession", u"CDriverSession"},
      {u"InstructionProcessor", u"CInstDirector"},
      {u"ConfigurationInstructionHandler", u"CInstHandler"},
      {u"ConfigurationCommandBuilder", u"CConfigCmdBuilder"},
      {u"CommunicationInstructionHandler", u"CInstHandler"},
      {u"CommunicationCommandBuilder", u"CCommCmdBuilder"},
      {u"SCPIInstructionHandler", u"CInstHandler"},
      {u"SCPICommandBuilder", u"CSCPICmdBuilder"},
      {u"PacingCommandBuilder", u"CPacingCmdBuilder"},
      {u"IntervalTimer", u"CIntervalTimer"},
      {u"NullCommandBuilder", u"CNullCmdBuilder"}};
  for (const auto& [specification, product] : products) {
    EXPECT_EQ(Create<IObject>(specification)->ClassName(), product);
  }
}

TEST_F(RegisteredClasses, MakeTheCommandsFromTheirParameters) {
  const Ref<ICommand> none;
  const auto name = [](StringView specification, const Params& parameters) {
    return String(Create<ICommand>(specification, parameters)->ClassName());
  };
  using modGlobals::VarArray;
  EXPECT_EQ(name(u"SetConfigurationCommand", VarArray(none, u"<a/>")), u"CSetConfigCmd");
  EXPECT_EQ(name(u"GetConfigurationCommand", VarArray(none, u"<a/>")), u"CGetConfigCmd");
  EXPECT_EQ(name(u"SetAttribCmd", VarArray(none, u"TERMCHAR", u"LF")), u"CSetAttribCmd");
  EXPECT_EQ(name(u"GetAttribCmd", VarArray(none, u"TERMCHAR")), u"CGetAttribCmd");
  EXPECT_EQ(name(u"CloseCmd", VarArray(none)), u"CCloseCmd");
  EXPECT_EQ(name(u"OpenCmd", VarArray(none, u"DMM")), u"COpenCmd");
  EXPECT_EQ(name(u"ReadCmd", VarArray(none, u"")), u"CReadCmd");
  EXPECT_EQ(name(u"WriteCmd", VarArray(none, u"*RST")), u"CWriteCmd");
  EXPECT_EQ(name(u"IntervalPacingCommand", VarArray(none)), u"CIntervalPacingCmd");
}

TEST_F(RegisteredClasses, AReportIsMadeFromFiveParameters) {
  const auto report = Create<IReport>(
      u"Report", modGlobals::VarArray(u"CWriteCmd", test::MakeInstruction(u"COMM", u"Write"), -5, u"text", u"*RST"));
  EXPECT_EQ(report->GetCommand(), u"CWriteCmd");
  EXPECT_EQ(report->GetErrorCode(), -5);
  EXPECT_EQ(report->GetErrorMessage(), u"text");
  EXPECT_EQ(report->GetSCPIInstruction(), u"*RST");
}

TEST_F(RegisteredClasses, AReadCommandsSecondParameterMustBeEmpty) {
  const auto failure = FailureOf([] { Create<ICommand>(u"ReadCmd", modGlobals::VarArray(Ref<ICommand>(), u"value")); });
  EXPECT_EQ(failure.Number, 5);
  EXPECT_EQ(failure.Text, u"Second parameter cannot have a value.");
}

TEST_F(RegisteredClasses, CutIsNotAmongThem) {
  const auto failure = FailureOf([] { Create<ICommand>(u"Cut"); });
  EXPECT_EQ(failure.Number, 5);
  EXPECT_EQ(failure.Labels, (std::vector<String>{u"CObjectFactories.Item(IndexOrKey)",
                                                 u"CObjectFactory.IObjectFactory_CreateObject(Specification,Params)"}));
}

TEST_F(RegisteredClasses, CopyAndPasteAreAmongThem) {
  EXPECT_EQ(Create<ICommand>(u"Copy")->ClassName(), u"CCopy");
  EXPECT_EQ(Create<ICommand>(u"Paste")->ClassName(), u"CPaste");
}

TEST_F(RegisteredClasses, BeginWithOpenInstrumentAndCloseInstrument) {
  EXPECT_EQ(Creators().Item(0)->Specification().ToString(), u"OpenInstrument");
  EXPECT_EQ(Creators().Item(1)->Specification().ToString(), u"CloseInstrument");
}

TEST_F(RegisteredClasses, TheUsersCommandsBearNamesThatAreNotAlwaysTheirClasses) {
  const std::vector<std::pair<StringView, StringView>> commands = {{u"OpenInstrument", u"COpenInstrument"},
                                                                   {u"CloseInstrument", u"CCloseInstrument"},
                                                                   {u"Copyto", u"CCopyTo"},
                                                                   {u"Pastefrom", u"CPasteFrom"},
                                                                   {u"ClearHistory", u"CClearHistory"},
                                                                   {u"ConfigOptions", u"CConfigOptions"},
                                                                   {u"ReadInstrumentData", u"CReadInstrumentData"},
                                                                   {u"WaitforOPC", u"CWaitOPC"},
                                                                   {u"QueryStatus", u"CQueryStatus"},
                                                                   {u"ToggleLogFile", u"CNewLogFile"},
                                                                   {u"ToggleLogging", u"CToggleLogging"},
                                                                   {u"ViewLogFile", u"CViewLogFile"}};
  for (const auto& [specification, product] : commands) {
    EXPECT_EQ(Create<ICommand>(specification)->ClassName(), product);
  }
}

TEST_F(RegisteredClasses, AutoReadIsNoBuilderOfItsOwn) {
  EXPECT_EQ(FailureOf([] { Create<IObject>(u"AutoReadAfterQueryCommandBuilder"); }).Number, 5);
}

/// The error of a creator whose product could not be made.
test::Failure FailureWithoutProduct(CreatorRow row) {
  row.Make = [](const Params&) { return Ref<IObject>(); };
  const auto creator = MakeCreator(row);
  return FailureOf([&] { creator->Create(Params(row.ParamCount)); });
}

TEST(CreatorsWithoutProduct, RaiseTheirOwnText) {
  const auto expect = [](const CreatorRow& row, std::int32_t number, StringView text) {
    const auto failure = FailureWithoutProduct(row);
    EXPECT_EQ(failure.Number, number);
    EXPECT_EQ(failure.Text, text);
    EXPECT_EQ(failure.Source, u"HuntERR.Check");
  };
  expect(CtorReport, 31004, u"Cannot create a report command.");
  expect(CtorClearHistory, 31004, u"Cannot create a clearHistory command.");
  expect(CtorCopy, 31004, u"Cannot create a copy command.");
  expect(CtorCut, 31004, u"Cannot create a cut command.");
  expect(CtorMerge, 31004, u"Cannot create a merge command.");
  expect(CtorMergeFrom, 31004, u"Cannot create a merge from command.");
  expect(CtorPaste, 31004, u"Cannot create a paste command.");
  expect(CtorPrint, 31004, u"Cannot create a Print command.");
  expect(CtorPrintSetup, 31004, u"Cannot create a PrintSetup command.");
  expect(CtorToggleLogging, 31004, u"Cannot create a toggle logging command.");
  expect(CtorConfiguration, 31004, u"Configuration object does not exist.");
  expect(CtorDriverSession, 31004, u"Driver session object does not exist.");
  expect(CtorInstProcessor, 31004, u"Instruction processor object does not exist.");
  expect(CtorIntervalTimer, 5, u"Interval timer is invalid.");
}

TEST(CreatorsWithoutProduct, TwoPairsSayTheSame) {
  EXPECT_EQ(FailureWithoutProduct(CtorCopyTo).Text, u"Cannot create a paste from command.");
  EXPECT_EQ(FailureWithoutProduct(CtorPasteFrom).Text, u"Cannot create a paste from command.");
  EXPECT_EQ(FailureWithoutProduct(CtorNewLogFile).Text, u"Cannot create a new log file command.");
  EXPECT_EQ(FailureWithoutProduct(CtorViewLogFile).Text, u"Cannot create a new log file command.");
}

TEST(CreatorsWithoutProduct, TheSubscriptionAgentsHasNoSuchCheck) {
  CreatorRow row = CtorSubscriptionAgent;
  row.Make = [](const Params&) { return Ref<IObject>(); };
  EXPECT_FALSE(MakeCreator(row)->Create({}));
}

} // namespace
} // namespace portico
