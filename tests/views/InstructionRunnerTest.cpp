#include "views/CInstructionRunner.h"

#include "support/doubles/ReportDouble.h"
#include "views/RunFixture.h"

namespace portico::test {
namespace {

/// The second engine and its three commands.
class SecondEngine : public RunFixture {
protected:
  SecondEngine() {
    View->Initialize(Box);
    Calls.clear();
  }

  void Initialize() {
    Runner->Initialize(View);
    Runner->ReadyForInstruction.Connect([this] { Calls.emplace_back("ready"); });
    Calls.clear();
  }
  static Ref<IObject> Report(std::uint32_t code) { return ReportOf(u"CReport", u"", static_cast<std::int32_t>(code)); }
  void Start(const String& mode) {
    Create<ICommand>(u"Run", modGlobals::VarArray(Ref<IObject>(Runner), mode))->Execute();
  }

  Ref<CSCPIView> View = New<CSCPIView>();
  Ref<CInstructionRunner> Runner = New<CInstructionRunner>();
};

using InstructionRunner = SecondEngine;
using RunCommand = SecondEngine;
using StepCommand = SecondEngine;
using StopCommand = SecondEngine;

TEST_F(InstructionRunner, WithoutASourceRaises) {
  const auto error = Raised([&] { Runner->Initialize({}); });
  ExpectError(error, 5, u"Instruction source cannot be nothing.");
  ExpectTrail(error, {u"CInstructionRunner.Initialize(InstructionSource)"});
}

TEST_F(InstructionRunner, WithoutAFactoryRaises) {
  gObjectFactory = {};
  ExpectError(Raised([&] { Runner->Initialize(View); }), 424, u"This operation requires an object factory.");
}

TEST_F(InstructionRunner, WithoutAStopCommandRaises) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"Stop", Ref<IObject>()));
  ExpectError(Raised([&] { Runner->Initialize(View); }), 31004, u"Cannot create a stop command.");
}

TEST_F(InstructionRunner, BeforeInitializeRaises) {
  ExpectError(Raised([&] { Runner->Update({}); }), Hex(0x80041460), u"Method cannot be called before Initialize().");
}

TEST_F(InstructionRunner, WithoutASubjectRaises) {
  Initialize();
  const auto error = Raised([&] { Runner->Update({}); });
  ExpectError(error, 5, u"Subject cannot be nothing.");
  ExpectTrail(error, {u"CInstructionRunner.ISubscriber_Update(Subject)"});
}

TEST_F(InstructionRunner, KeepsItsSource) {
  Initialize();
  EXPECT_TRUE(IsSameObject(Runner->InstructionSource(), View));
}

TEST_F(InstructionRunner, SubscribesItself) {
  Initialize();
  Create<IPublisher>(u"CmdSubscriptionAgent")->Notify(Report(0x80041454));
  EXPECT_EQ(Calls, List{"CurrentInstruction="});
}

TEST_F(InstructionRunner, IsMadeByTheFactoryFromItsView) {
  const auto runner = Create<CInstructionRunner>(u"InstructionRunner", modGlobals::VarArray(Ref<IObject>(View)));
  EXPECT_TRUE(IsSameObject(runner->InstructionSource(), View));
  EXPECT_EQ(Raised([] { Create<CInstructionRunner>(u"InstructionRunner"); }).Number, 450);
}

TEST_F(InstructionRunner, CompletionWhileOffClearsTheLineAndRaisesNoEvent) {
  Initialize();
  Configuration->Items[u"CurrentInstruction"] = u"*RST";
  Runner->Update(Report(0x80041454));
  EXPECT_EQ(Calls, List{"CurrentInstruction="});
  EXPECT_EQ(Current(), "");
}

TEST_F(InstructionRunner, CompletionDuringARunRaisesTheEvent) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Run";
  Runner->Update(Report(0x80041454));
  EXPECT_EQ(Calls, (List{"CurrentInstruction=", "ready"}));
}

TEST_F(InstructionRunner, OtherReportsOnlyGetATurn) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Run";
  for (const std::uint32_t code : {0U, 0x80041452U, 0x80041455U, 0x80041458U, 0xFFFFFFFFU})
    Runner->Update(Report(code));
  EXPECT_EQ(Calls, List{});
  EXPECT_EQ(Loop->Turns, 5);
}

TEST_F(InstructionRunner, GivesATurnAfterTheEvent) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Run";
  Loop->OnTurn = [&] { Calls.emplace_back("turn"); };
  Runner->Update(Report(0x80041454));
  EXPECT_EQ(Calls, (List{"CurrentInstruction=", "ready", "turn"}));
}

TEST_F(InstructionRunner, OnAnEmptyQueueRaises) {
  Initialize();
  ExpectError(Raised([&] { Runner->Update(Report(0x80041453)); }), 51,
              u"Cannot send the next instruction. The instruction queue is empty.");
}

TEST_F(InstructionRunner, StepRefusesTheTextThatItIsGiven) {
  Initialize();
  Box->Type(u"*RST\r\n*CLS", LikeInstruction());
  const auto error = Raised([&] { Runner->Update(Report(0x80041453)); });
  EXPECT_EQ(error.Number, 13);
  EXPECT_EQ(Calls, List{"CurrentInstruction=*RST"});
  EXPECT_EQ(Shown(), "*RST\\r\\n*CLS"); // the entity stays in the queue
  EXPECT_EQ(View->Instructions()->Count(), 2);
}

TEST_F(InstructionRunner, GivesTheStepTheTextOfTheInstruction) {
  Initialize();
  const auto creator = New<CreatorOfOne>(u"Step", Ref<IObject>());
  gObjectFactory->Substitue(creator);
  Box->Type(u"  *RST\r\n");
  ExpectError(Raised([&] { Runner->Update(Report(0x80041453)); }), 31004, u"Cannot create a step command.");
  EXPECT_EQ(creator->LastCount, 1U);
  EXPECT_EQ(Current(), "*RST"); // trimmed, without its line end
}

TEST_F(InstructionRunner, PassesOverARemarkAndTakesItOffTheWindow) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Run";
  Box->Type(u"REM hello\r\nx");
  Runner->Update(Report(0x80041453));
  EXPECT_EQ(Calls, (List{"CurrentInstruction=", "ready"}));
  EXPECT_EQ(Shown(), "x");
}

TEST_F(InstructionRunner, PassesOverWhatIsNoInstruction) {
  Initialize();
  Box->Type(u"1.25\r\n", LikeResponse());
  Box->Type(u"x");
  Runner->Update(Report(0x80041453));
  EXPECT_EQ(Calls, List{"CurrentInstruction="}); // off: no event
  EXPECT_EQ(Shown(), "x");
}

TEST_F(InstructionRunner, StopsWhenTheQueueHasRunEmpty) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Run";
  Box->Type(u"REM hello");
  Runner->Update(Report(0x80041453));
  EXPECT_EQ(Calls, (List{"CurrentInstruction=", "RunningMode=Off"})); // off already: no event
  EXPECT_EQ(Shown(), "");
}

TEST_F(InstructionRunner, StopsAfterOneInStepMode) {
  Initialize();
  Configuration->Items[u"RunningMode"] = u"Step";
  Box->Type(u"REM a\r\nREM b");
  Runner->Update(Report(0x80041453));
  EXPECT_EQ(Calls, (List{"CurrentInstruction=", "RunningMode=Off"}));
  EXPECT_EQ(Shown(), "REM b");
}

TEST_F(RunCommand, OnAnEmptyQueueFailsAndLeavesTheMode) {
  Initialize();
  ExpectError(Raised([&] { Start(u"Run"); }), 51, u"Cannot send the next instruction. The instruction queue is empty.");
  EXPECT_EQ(Mode(), "Run");
}

TEST_F(RunCommand, RunsOnUntilTheQueueIsEmpty) {
  Initialize();
  Box->Type(u"REM a\r\nREM b\r\nREM c");
  Start(u"Continuous");
  EXPECT_EQ(Calls, (List{"RunningMode=Continuous", "CurrentInstruction=", "ready", "CurrentInstruction=", "ready",
                         "CurrentInstruction=", "RunningMode=Off"}));
  EXPECT_EQ(Shown(), "");
}

TEST_F(RunCommand, EndsWithTheWindowBehindALastLineEnd) {
  Initialize();
  Box->Type(u"REM a\r\nREM b\r\n");
  Start(u"Run");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Mode(), "Off");
}

TEST_F(RunCommand, InStepModeTakesOne) {
  Initialize();
  Box->Type(u"REM a\r\nREM b");
  Start(u"Step");
  EXPECT_EQ(Calls, (List{"RunningMode=Step", "CurrentInstruction=", "RunningMode=Off"}));
  EXPECT_EQ(Shown(), "REM b");
}

TEST_F(RunCommand, WithTheModeOffDoesNothing) {
  Initialize();
  Box->Type(u"REM a");
  Start(u"Off");
  EXPECT_EQ(Calls, List{"RunningMode=Off"});
  EXPECT_EQ(Shown(), "REM a");
}

TEST_F(RunCommand, EndsWhenAStopComesInATurn) {
  Initialize();
  Box->Type(u"REM a\r\nREM b\r\nREM c");
  Loop->OnTurn = [] { Create<ICommand>(u"Stop")->Execute(); };
  Start(u"Run");
  EXPECT_EQ(Shown(), "REM b\\r\\nREM c");
  EXPECT_EQ(Mode(), "Off");
}

TEST_F(RunCommand, PosesAsAReport) {
  Initialize();
  const auto run = New<CRun>();
  EXPECT_EQ(run->GetCommand(), u"CRun");
  EXPECT_EQ(run->GetErrorCode(), Hex(0x80041453));
  EXPECT_EQ(run->GetData(), u"");
  EXPECT_EQ(run->GetErrorMessage(), u"");
  EXPECT_EQ(run->GetSCPIInstruction(), u"");
}

TEST_F(RunCommand, WithoutARunnerRaises) {
  const auto error = Raised([&] { New<CRun>()->Initialize({}, u"Run"); });
  ExpectError(error, 5, u"Runner cannot be nothing.");
  EXPECT_EQ(CallStack(error), std::vector<String>{u"CRun.Initialize(Runner={Null},  Mode='Run')"});
}

TEST_F(RunCommand, HearsItsRunnerForAsLongAsItLives) {
  {
    const auto run = New<CRun>();
    run->Initialize(Runner, u"Run");
    EXPECT_TRUE(Runner->ReadyForInstruction.IsConnected());
  }
  EXPECT_FALSE(Runner->ReadyForInstruction.IsConnected());
}

TEST_F(RunCommand, HearsOnlyTheRunnerThatItWasGivenLast) {
  const auto other = New<CInstructionRunner>();
  const auto run = New<CRun>();
  run->Initialize(Runner, u"Run");
  run->Initialize(other, u"Run");
  EXPECT_FALSE(Runner->ReadyForInstruction.IsConnected());
  EXPECT_TRUE(other->ReadyForInstruction.IsConnected());
}

TEST_F(RunCommand, BeforeInitializeRaises) {
  const auto error = Raised([&] { New<CRun>()->Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CRun.ICommand_Execute"});
}

TEST_F(RunCommand, WithoutAConfigurationServerRaises) {
  Initialize();
  gConfiguration = {};
  ExpectError(Raised([&] { Start(u"Run"); }), 424, u"This operation requires a configuration server.");
}

TEST_F(RunCommand, NeedsItsTwoParameters) {
  EXPECT_EQ(Raised([&] { Create<ICommand>(u"Run", modGlobals::VarArray(Ref<IObject>(Runner))); }).Number, 450);
}

TEST_F(StepCommand, HandsTheInstructionToTheProcessor) {
  const auto instruction = New<CInstContainer>();
  instruction->CmdType(u"COMM");
  instruction->FunctionName(u"Write");
  instruction->Params()->Add(String(u"*RST"), u"Data");
  Create<ICommand>(u"Step", modGlobals::VarArray(Ref<IObject>(instruction)))->Execute();
  EXPECT_EQ(Calls, List{"send COMM.Write *RST"});
}

TEST_F(StepCommand, ThatIsDeclinedRaises) {
  const auto instruction = New<CInstContainer>();
  instruction->Params()->Add(String(u"*RST"), u"Data");
  for (const std::int32_t answer : {1, -1, 7}) {
    Processor->Answer = answer;
    const auto error =
        Raised([&] { Create<ICommand>(u"Step", modGlobals::VarArray(Ref<IObject>(instruction)))->Execute(); });
    ExpectError(error, 17, u"Instruction was not handled.");
    HuntERR::Reset();
  }
}

TEST_F(StepCommand, GivenATextIsATypeMismatch) {
  const auto error = Raised([&] { Create<ICommand>(u"Step", modGlobals::VarArray(String(u"*RST"))); });
  EXPECT_EQ(error.Number, 13);
}

TEST_F(StepCommand, BeforeInitializeRaises) {
  const auto error = Raised([&] { New<CStep>()->Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CStep.ICommand_Execute"});
}

TEST_F(StepCommand, NeedsItsOneParameter) {
  EXPECT_EQ(Raised([] { Create<ICommand>(u"Step"); }).Number, 450);
}

TEST_F(StopCommand, SetsTheModeOff) {
  Configuration->Items[u"RunningMode"] = u"Run";
  Create<ICommand>(u"Stop")->Execute();
  EXPECT_EQ(Calls, List{"RunningMode=Off"});
}

TEST_F(StopCommand, BeforeInitializeRaises) {
  const auto error = Raised([&] { New<CStop>()->Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CStop.ICommand_Execute"});
}

TEST_F(StopCommand, WithoutAConfigurationServerRaises) {
  gConfiguration = {};
  ExpectError(Raised([] { Create<ICommand>(u"Stop")->Execute(); }), 424,
              u"This operation requires a configuration server.");
}

TEST_F(StopCommand, TakesNoParameters) {
  EXPECT_EQ(Raised([] { Create<ICommand>(u"Stop", modGlobals::VarArray(1)); }).Number, 450);
}

} // namespace
} // namespace portico::test
