#include "instructions/CInstHandler.h"

#include "framework/objects/CObjectFactory.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "support/ErrorReports.h"
#include "support/doubles/InstructionFakes.h"
#include "support/doubles/ReportRecorder.h"

namespace portico {
namespace {

using test::CreatorOf;
using test::FailureOf;
using test::Hex;
using test::InstructionBuilder;
using test::Journal;
using test::MakeInstruction;

/// A factory of two builders that write down what happens, and of a publisher.
class CInstHandlerTest : public ::testing::Test {
protected:
  void SetUp() override {
    HuntERR::Reset();
    gObjectFactory = New<CObjectFactory>();
    gObjectFactory->Add(MakeCreator(CtorSubscriptionAgent));
    Create<IPublisher>(u"CmdSubscriptionAgent")->Subscribe(m_subscriber);
    for (const auto* name : {"outer", "inner"}) {
      Offer(FromAscii(name), [this, name](const Params&) { return New<InstructionBuilder>(m_calls, name); });
    }
    m_handler.Initialize(u"SCPI", {u"outer", u"inner"});
  }
  void TearDown() override {
    gObjectFactory = nullptr;
    HuntERR::Reset();
  }

  void Offer(const String& specification, CreatorOf::Maker make) {
    gObjectFactory->Add(New<CreatorOf>(specification, std::move(make)));
  }
  std::int32_t Send(const String& type = u"SCPI") { return m_handler.Send(MakeInstruction(type, u"Send")); }

  Journal m_calls;
  Ref<test::ReportRecorder> m_subscriber = New<test::ReportRecorder>(m_calls);
  CInstHandler m_handler;
};

TEST_F(CInstHandlerTest, BuildsFromTheLastSpecificationOutwardsAndRunsFromTheFirst) {
  EXPECT_EQ(Send(), 0);
  EXPECT_EQ(m_calls, (Journal{"build inner around nothing", "build outer around a command", "run outer", "run inner",
                              "report SCPIInstructionProcessor"}));
}

TEST_F(CInstHandlerTest, MakesItsBuildersAnewForEachInstruction) {
  int made = 0;
  Offer(u"counted", [&](const Params&) {
    ++made;
    return New<InstructionBuilder>(m_calls, "counted");
  });
  m_handler.Initialize(u"SCPI", {u"counted", u"counted"});
  Send();
  Send();
  EXPECT_EQ(made, 4);
}

TEST_F(CInstHandlerTest, ABuilderThatIsSubstitutedIsAskedFromTheNextInstructionOn) {
  Send();
  gObjectFactory->Substitue(
      New<CreatorOf>(u"outer", [this](const Params&) { return New<InstructionBuilder>(m_calls, "another"); }));
  m_calls.clear();
  Send();
  EXPECT_EQ(m_calls, (Journal{"build inner around nothing", "build another around a command", "run another",
                              "run inner", "report SCPIInstructionProcessor"}));
}

TEST_F(CInstHandlerTest, DeclinesAnotherTypeWithoutBuildingAnything) {
  EXPECT_EQ(Send(u"COMM"), 1);
  EXPECT_EQ(m_calls, Journal{});
}

TEST_F(CInstHandlerTest, TakesItsTypeInAnyCase) {
  EXPECT_EQ(Send(u"scpi"), 0);
  EXPECT_EQ(m_calls.back(), "report SCPIInstructionProcessor");
}

TEST_F(CInstHandlerTest, AnnouncesTheEndWithTheMark) {
  Send();
  ASSERT_EQ(m_subscriber->Reports.size(), 1U);
  const test::ReportRecorder::Report expected{u"SCPIInstructionProcessor", u"", u"", Hex(0x80041454), u""};
  EXPECT_EQ(m_subscriber->Reports[0], expected);
}

TEST_F(CInstHandlerTest, TheReportBearsTheHandlersPrefix) {
  for (const auto* prefix : {u"COMM", u"SCPI", u"CONFIG"}) {
    m_handler.Initialize(prefix, {u"inner"});
    Send(prefix);
  }
  std::vector<String> commands;
  for (const auto& report : m_subscriber->Reports) commands.push_back(report.Command);
  EXPECT_EQ(commands, (std::vector<String>{u"COMMInstructionProcessor", u"SCPIInstructionProcessor",
                                           u"CONFIGInstructionProcessor"}));
}

TEST_F(CInstHandlerTest, AMissingFunctionFailsBeforeTheTypeIsLookedAt) {
  for (const auto* type : {u"SCPI", u"COMM", u"unknown"}) {
    const auto failure = FailureOf([&] { m_handler.Send(MakeInstruction(type, u"")); });
    EXPECT_EQ(failure.Number, Hex(0x8004145A));
    EXPECT_EQ(failure.Text, u"Syntax error: Function call is missing from instruction.");
    EXPECT_EQ(failure.Trail,
              std::vector<String>{u"CSCPIInstHandler.IInstProcessor_Send(Instruction={CInstContainer})"});
  }
  EXPECT_EQ(m_calls, Journal{});
}

TEST_F(CInstHandlerTest, BeforeInitializeNothingWorks) {
  CInstHandler fresh;
  const auto prefix = FailureOf([&] { fresh.Prefix(); });
  EXPECT_EQ(prefix.Number, Hex(0x80041460));
  EXPECT_EQ(prefix.Text, u"Property is not valid before Initialize().");

  // Even an instruction without a function gets this error first.
  const auto send = FailureOf([&] { fresh.Send(MakeInstruction(u"", u"")); });
  EXPECT_EQ(send.Number, Hex(0x80041460));
  EXPECT_EQ(send.Text, u"Method cannot be called before Initialize().");
}

TEST_F(CInstHandlerTest, InitializeChecksPrefixThenListThenElements) {
  const auto expect = [](const String& prefix, const StringArray& specifications, StringView text) {
    CInstHandler fresh;
    const auto failure = FailureOf([&] { fresh.Initialize(prefix, specifications); });
    EXPECT_EQ(failure.Number, 5);
    EXPECT_EQ(failure.Text, text);
    EXPECT_EQ(failure.Trail, std::vector<String>{u"CInstHandler.Initialize()"});
    EXPECT_EQ(FailureOf([&] { fresh.Prefix(); }).Number, Hex(0x80041460)) << "it must not count as initialized";
  };
  expect(u"", {}, u"InstructionPrefix cannot be an empty string.");
  expect(u"SCPI", {}, u"CommandBuilderSpecs cannot be an empty Array.");
  expect(u"SCPI", {u"outer", u""}, u"A CommandBuilderSpec cannot be an empty string.");
}

TEST_F(CInstHandlerTest, ASecondInitializeThatFailsLeavesItWorkingAsBefore) {
  const std::vector<std::pair<String, StringArray>> refused = {
      {u"", {u"inner"}}, {u"COMM", {}}, {u"COMM", {u"inner", u""}}};
  for (const auto& [prefix, specifications] : refused) {
    EXPECT_EQ(FailureOf([&] { m_handler.Initialize(prefix, specifications); }).Number, 5);
    EXPECT_EQ(m_handler.Prefix(), u"SCPI");
    m_calls.clear();
    EXPECT_EQ(Send(), 0);
    EXPECT_EQ(m_calls, (Journal{"build inner around nothing", "build outer around a command", "run outer", "run inner",
                                "report SCPIInstructionProcessor"}));
  }
}

TEST_F(CInstHandlerTest, KeepsThePrefixAsItWasGiven) {
  EXPECT_EQ(m_handler.Prefix(), u"SCPI");
  m_handler.Initialize(u"ScPi", {u"inner"});
  EXPECT_EQ(m_handler.Prefix(), u"ScPi");
  EXPECT_EQ(Send(u"SCPI"), 0);
  EXPECT_EQ(m_calls.back(), "report ScPiInstructionProcessor");
}

TEST_F(CInstHandlerTest, KeepsACopyOfTheList) {
  StringArray specifications = {u"inner"};
  m_handler.Initialize(u"SCPI", specifications);
  specifications[0] = u"absent";
  EXPECT_EQ(Send(), 0);
}

TEST_F(CInstHandlerTest, AnErrorInBuildIsPassedOnAndNothingRuns) {
  m_handler.Initialize(u"SCPI", {u"absent", u"inner"});
  const auto failure = FailureOf([&] { Send(); });
  EXPECT_EQ(failure.Number, 5);
  ASSERT_FALSE(failure.Labels.empty());
  EXPECT_EQ(failure.Labels.back(), u"CSCPIInstHandler.IInstProcessor_Send(Instruction)");
  EXPECT_EQ(m_calls, Journal{"build inner around nothing"});
}

class FailingBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"FailingBuilder"; }
  Ref<ICommand> Build(const Ref<ICommand>&, const Ref<CInstContainer>&) override {
    return New<test::CommandOf>([] { HuntERR::Raise(17, u"FailingBuilder", u"It fails."); });
  }
};

TEST_F(CInstHandlerTest, AnErrorInExecuteIsPassedOnAndNoEndIsAnnounced) {
  Offer(u"failing", [](const Params&) { return New<FailingBuilder>(); });
  m_handler.Initialize(u"SCPI", {u"outer", u"failing"});
  const auto failure = FailureOf([&] { Send(); });
  EXPECT_EQ(failure.Number, 17);
  EXPECT_EQ(failure.Text, u"It fails.");
  EXPECT_EQ(failure.Trail, std::vector<String>{u"CSCPIInstHandler.IInstProcessor_Send(Instruction={CInstContainer})"});
  EXPECT_EQ(m_calls, (Journal{"build outer around a command", "run outer"}));
}

TEST_F(CInstHandlerTest, AFailureToAnnounceTheEndDoesNotTravel) {
  gObjectFactory->Remove(MakeCreator(CtorSubscriptionAgent));
  EXPECT_EQ(Send(), 0);
  EXPECT_EQ(m_calls.back(), "run inner");
  const auto recorded = test::RecordedFailure();
  EXPECT_EQ(recorded.Number, 5);
  ASSERT_FALSE(recorded.Trail.empty());
  EXPECT_EQ(recorded.Trail.back(), u"CInstHandler.PublishReport()");
}

TEST_F(CInstHandlerTest, ItsThreeCreatorsDifferInPrefix) {
  const auto prefix = [](const CreatorRow& row) { return Cast<IInstHandler>(MakeCreator(row)->Create({}))->Prefix(); };
  EXPECT_EQ(prefix(CtorCOMMInstHandler), u"COMM");
  EXPECT_EQ(prefix(CtorSCPIInstHandler), u"SCPI");
  EXPECT_EQ(prefix(CtorCONFIGInstHandler), u"CONFIG");
}

} // namespace
} // namespace portico
