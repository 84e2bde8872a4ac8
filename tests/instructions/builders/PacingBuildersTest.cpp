#include "instructions/builders/PacingBuilders.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/BuilderFixture.h"
#include "instructions/builders/CErrChkCmdBuilder.h"

namespace portico {
namespace {

using test::Hex;
using test::Journal;
using test::MakeInstruction;

using List = std::vector<String>;

class PacingBuildersTest : public test::BuilderFixture {
protected:
  const Ref<CInstContainer> m_line = MakeInstruction(u"SCPI", u"Send", {{u"Data", u"*RST"}});

  static test::Failure CreateFailure(StringView builder) {
    return test::FailureOf([&] { Create<IBuilder>(builder); });
  }
};

TEST_F(PacingBuildersTest, AnOptionThatIsOffIsTheNullBuilder) {
  for (const auto* builder :
       {u"IntervalPacingCommandBuilder", u"OPCQueryPacingCommandBuilder", u"ErrorCheckingCommandBuilder"}) {
    EXPECT_EQ(Builder(builder)->ClassName(), u"CNullCmdBuilder");
    EXPECT_EQ(Links(builder, m_line), Journal{"inner"});
  }
}

TEST_F(PacingBuildersTest, AnOptionThatIsOnIsItsBuilder) {
  Set(u"IntervalPacing", u"On");
  EXPECT_EQ(Builder(u"IntervalPacingCommandBuilder")->ClassName(), u"CIntervalPcngCmdBldr");
  EXPECT_EQ(Builder(u"OPCQueryPacingCommandBuilder")->ClassName(), u"CNullCmdBuilder");
  Set(u"OPCPacing", u"On");
  EXPECT_EQ(Builder(u"OPCQueryPacingCommandBuilder")->ClassName(), u"COPCQueryCmdBuilder");
  EXPECT_EQ(Builder(u"ErrorCheckingCommandBuilder")->ClassName(), u"CNullCmdBuilder");
  Set(u"AutoErrorCheckingMode", u"On");
  EXPECT_EQ(Builder(u"ErrorCheckingCommandBuilder")->ClassName(), u"CErrChkCmdBuilder");
  EXPECT_EQ(Builder(u"PacingCommandBuilder")->ClassName(), u"CPacingCmdBuilder");
}

TEST_F(PacingBuildersTest, ABadIntervalPacingNamesTheOtherOption) {
  for (const auto* value : {u"on", u"OFF", u"", u"Maybe"}) {
    Set(u"IntervalPacing", value);
    const auto failure = CreateFailure(u"IntervalPacingCommandBuilder");
    EXPECT_EQ(failure.Number, 51);
    EXPECT_EQ(failure.Text, u"OPCPacing is misconfigured.");
    EXPECT_EQ(failure.Source, u"CtorIntrvlPcngCmdBldr");
    ASSERT_FALSE(failure.Labels.empty());
    EXPECT_EQ(failure.Labels[0], String(u"CtorIntrvlPcngCmdBldr") + u".ICreator_Create(Params)");
  }
}

TEST_F(PacingBuildersTest, ABadOPCPacingNamesItself) {
  Set(u"OPCPacing", u"on");
  const auto failure = CreateFailure(u"OPCQueryPacingCommandBuilder");
  EXPECT_EQ(failure.Number, 51);
  EXPECT_EQ(failure.Text, u"OPCPacing is misconfigured.");
  EXPECT_EQ(failure.Source, u"CtorOPCQueryCmdBldr");
  ASSERT_FALSE(failure.Labels.empty());
  EXPECT_EQ(failure.Labels[0], String(u"CtorOPCQueryCmdBldr") + u".ICreator_Create(Params)");
}

TEST_F(PacingBuildersTest, ABadErrorCheckingModeIsNamedInTheText) {
  Set(u"AutoErrorCheckingMode", u"Maybe");
  const auto failure = CreateFailure(u"ErrorCheckingCommandBuilder");
  EXPECT_EQ(failure.Number, Hex(0x80041462));
  EXPECT_EQ(failure.Text, u"Requested auto-error checking mode, Maybe is not defined.");
  ASSERT_FALSE(failure.Labels.empty());
  EXPECT_EQ(failure.Labels[0], String(u"CtorErrChkCmdBuilder") + u".ICreator_Create(Params)");
}

/// The error of a creator whose product could not be made.
test::Failure FailureWithoutProduct(CreatorRow row) {
  row.Make = [](const Params&) { return Ref<IObject>(); };
  return test::FailureOf([&] { MakeCreator(row)->Create({}); });
}

TEST(PacingCreators, ThreeOfThemCheckThatTheBuilderExists) {
  const auto expect = [](const CreatorRow& row, StringView text) {
    const auto failure = FailureWithoutProduct(row);
    EXPECT_EQ(failure.Number, 31004);
    EXPECT_EQ(failure.Text, text);
  };
  expect(CtorPacingCmdBuilder, u"Cannot create a pacing command builder.");
  expect(CtorIntrvlPcngCmdBldr, u"Cannot create an interval pacing command builder.");
  expect(CtorOPCQueryCmdBldr, u"Cannot create an OPC pacing command builder.");
}

TEST(PacingCreators, ErrorCheckingHasNoSuchCheck) {
  CreatorRow row = CtorErrChkCmdBuilder;
  row.Make = [](const Params&) { return Ref<IObject>(); };
  EXPECT_FALSE(MakeCreator(row)->Create({}));
}

TEST_F(PacingBuildersTest, TheSwitchIsReadWhenTheBuilderIsCreated) {
  Set(u"OPCPacing", u"On");
  const auto builder = Builder(u"OPCQueryPacingCommandBuilder");
  Set(u"OPCPacing", u"Off");
  const auto command = builder->Build({}, m_line);
  ASSERT_TRUE(command);
  command->Execute();
  EXPECT_EQ(Calls[0], "write *OPC?");
}

TEST_F(PacingBuildersTest, TheOPCQueryIsReadWithAutoRead) {
  Set(u"OPCPacing", u"On");
  EXPECT_EQ(Links(u"OPCQueryPacingCommandBuilder", m_line), (Journal{"write *OPC?", "inner"}));
  Set(u"AutoReadAfterQueryMode", u"On");
  EXPECT_EQ(Links(u"OPCQueryPacingCommandBuilder", m_line), (Journal{"write *OPC?", "read", "inner"}));
}

TEST_F(PacingBuildersTest, TheOPCQueryIsOutsideTheInterval) {
  Set(u"OPCPacing", u"On");
  Set(u"IntervalPacing", u"On");
  Set(u"AutoReadAfterQueryMode", u"On");
  Builder(u"PacingCommandBuilder")->Build(Inner(), m_line)->Execute();
  EXPECT_EQ(Calls, (Journal{"write *OPC?", "report CWriteCmd", "read", "report CReadCmd", "report CIntervalPacingCmd",
                            "inner"}));
}

TEST_F(PacingBuildersTest, PacingWithBothOptionsOffAddsNothing) {
  const auto inner = Inner();
  EXPECT_TRUE(IsSameObject(Builder(u"PacingCommandBuilder")->Build(inner, m_line), inner));
}

TEST_F(PacingBuildersTest, TheIntervalLinkIsMadeAroundTheInnerCommand) {
  Set(u"IntervalPacing", u"On");
  Builder(u"IntervalPacingCommandBuilder")->Build(Inner(), {}); // the instruction is not looked at
  ASSERT_EQ(Spy->ParametersOf(u"IntervalPacingCommand").size(), 1U);
  EXPECT_EQ(Spy->ParametersOf(u"IntervalPacingCommand")[0].size(), 1U);
}

TEST_F(PacingBuildersTest, TheErrorQueryIsTheConfiguredOne) {
  Set(u"AutoErrorCheckingMode", u"On");
  Set(u"AutoReadAfterQueryMode", u"On");
  EXPECT_EQ(Links(u"ErrorCheckingCommandBuilder", m_line), (Journal{"write :SYST:ERR?", "read", "inner"}));
  Set(u"ErrorCheckingCommand", u"STAT:QUE?");
  EXPECT_EQ(Links(u"ErrorCheckingCommandBuilder", m_line), (Journal{"write STAT:QUE?", "read", "inner"}));
}

TEST_F(PacingBuildersTest, AnEmptyErrorQueryIsWrittenAndNotRead) {
  Set(u"AutoErrorCheckingMode", u"On");
  Set(u"AutoReadAfterQueryMode", u"On");
  Set(u"ErrorCheckingCommand", u"");
  EXPECT_EQ(Links(u"ErrorCheckingCommandBuilder", m_line), (Journal{"write ", "inner"}));
}

TEST_F(PacingBuildersTest, LabelsHaveABlankBehindTheComma) {
  const auto label = [](const String& name) { return name + u".IBuilder_Build(InnerCommand, Instruction)"; };
  Set(u"IntervalPacing", u"On");
  Set(u"OPCPacing", u"On");
  Set(u"AutoErrorCheckingMode", u"On");
  Set(u"AutoReadAfterQueryMode", u"Maybe");
  EXPECT_EQ(BuildFailure(u"OPCQueryPacingCommandBuilder", m_line).Labels.back(), label(u"COPCQueryCmdBuilder"));
  EXPECT_EQ(BuildFailure(u"ErrorCheckingCommandBuilder", m_line).Labels.back(), label(u"CErrChkCmdBuilder"));
  Set(u"PacingInterval", u"soon");
  const auto interval = BuildFailure(u"IntervalPacingCommandBuilder", m_line);
  EXPECT_EQ(interval.Number, 13);
  EXPECT_EQ(interval.Labels.back(), label(u"CIntervalPcngCmdBldr"));
  EXPECT_EQ(BuildFailure(u"PacingCommandBuilder", m_line).Labels.back(), label(u"CPacingCmdBuilder"));
}

TEST_F(PacingBuildersTest, TheFourTakeNoParameters) {
  for (const auto* builder : {u"PacingCommandBuilder", u"IntervalPacingCommandBuilder", u"OPCQueryPacingCommandBuilder",
                              u"ErrorCheckingCommandBuilder"}) {
    const auto failure = test::FailureOf([&] { Create<IBuilder>(builder, Params{u"x"}); });
    EXPECT_EQ(failure.Number, 450);
    EXPECT_EQ(failure.Text, u"Expected 0 parameters.");
  }
}

} // namespace
} // namespace portico
