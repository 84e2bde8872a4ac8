#include "channel/CIntervalPacingCmd.h"

#include "channel/CIntervalTimer.h"
#include "channel/ChainFixture.h"
#include "framework/errors/Quit.h"
#include "memory/EventLoop.h"
#include "support/doubles/ManualClock.h"

namespace portico {
namespace {

using namespace std::chrono_literals;
using test::ChainTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Made;
using test::Raised;
using test::Trace;

class IntervalPacingTest : public ChainTest {
protected:
  IntervalPacingTest() {
    gEventLoop = Loop;
    Factory->Add(MakeCreator(CtorIntervalTimer));
    Server->NotesReads = true;
    Server->Items[u"PacingInterval"] = u"1000";
  }
  ~IntervalPacingTest() override {
    Factory = nullptr;
    gObjectFactory = nullptr;
    gEventLoop = nullptr;
  }

  Ref<CIntervalPacingCmd> Paced(std::int32_t interval) { return Made<CIntervalPacingCmd>(Inner, Publisher, interval); }
  std::chrono::milliseconds Elapsed() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - memory::Clock::TimePoint{});
  }

  test::ManualClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  Ref<ICreator> Creator = MakeCreator(CtorIntervalPacingCmd);
};

TEST_F(IntervalPacingTest, PublishesAndRunsTheInner) {
  Paced(1000)->Execute();
  EXPECT_EQ(Events, (Trace{"Notify(CIntervalPacingCmd)", "Inner"}));
  ExpectReport(0, {u"CIntervalPacingCmd", u"Interval has elapsed.", u"Success", 0, u""});
}

TEST_F(IntervalPacingTest, IntervalRunsWhileTheInnerCommandsDo) {
  Inner = test::InnerCommand(Events, [&] { Clock.Advance(600ms); });
  Paced(1000)->Execute();
  Paced(1000)->Execute();
  EXPECT_EQ(Elapsed(), 1600ms); // the second starts at 1000, not 1000 after the first has ended
}

TEST_F(IntervalPacingTest, TwoInARowAreASecondApart) {
  Paced(1000)->Execute();
  EXPECT_EQ(Elapsed(), 0ms);
  Paced(1000)->Execute();
  EXPECT_EQ(Elapsed(), 1000ms);
}

TEST_F(IntervalPacingTest, OneThatComesLateIsNotHeld) {
  Paced(1000)->Execute();
  Clock.Advance(1500ms);
  Paced(1000)->Execute();
  EXPECT_EQ(Elapsed(), 1500ms);
}

TEST_F(IntervalPacingTest, ZeroPassesAndHoldsTheNextUntilQuit) {
  Paced(0)->Execute();
  Clock.OnIdle = [&] { Loop->RequestQuit(); };
  Events.clear();
  EXPECT_THROW(Paced(0)->Execute(), Quit);
  EXPECT_THAT(Events, ::testing::IsEmpty());
}

TEST_F(IntervalPacingTest, AbsentPublisherAndInnerAreNoFault) {
  EXPECT_NO_THROW(Made<CIntervalPacingCmd>(nullptr, nullptr, 10)->Execute());
}

TEST_F(IntervalPacingTest, NegativeIntervalFailsAtInitializeUnderTheReadCommandsLabel) {
  const ErrorRecord error = Raised([&] { Paced(-1); });
  ExpectError(error, 5, u"Interval pacing command's interval must be greater than or equal to zero.");
  ExpectTrail(error, {u"CReadCmd.Initialize(InnerCommand)"});
}

TEST_F(IntervalPacingTest, IntervalOver65535FailsAtTheStartOfTheTimer) {
  const auto command = Paced(65536);
  const ErrorRecord error = Raised([&] { command->Execute(); });
  EXPECT_EQ(error.Number, 380);
  ExpectTrail(error, {u"CIntervalTimer.StartWhenDone(Interval)", u"CReadCmd.ICommand_Execute"});
  EXPECT_THAT(Events, ::testing::IsEmpty());
}

TEST_F(IntervalPacingTest, CreatorBearsItsNameAndSpecification) {
  EXPECT_EQ(Creator->ClassName(), u"CtorIntervalPacingCmd");
  EXPECT_EQ(Creator->Specification().ToString(), u"IntervalPacingCommand");
}

TEST_F(IntervalPacingTest, CreatorReadsTheIntervalWhenTheCommandIsBuilt) {
  Server->Items[u"PacingInterval"] = u"2500";
  const auto built = Cast<ICommand>(Creator->Create({Inner}));
  EXPECT_EQ(Events, (Trace{"get PacingInterval"}));
  Server->Items[u"PacingInterval"] = u"1";
  built->Execute();
  Paced(1)->Execute();
  EXPECT_EQ(Elapsed(), 2500ms);
}

TEST_F(IntervalPacingTest, CreatorWiresInnerAndPublisher) {
  Cast<ICommand>(Creator->Create({Inner}))->Execute();
  EXPECT_EQ(Events, (Trace{"get PacingInterval", "Notify(CIntervalPacingCmd)", "Inner"}));
}

TEST_F(IntervalPacingTest, CreatorTakesOneParameter) {
  for (const Params& parameters : {Params{}, Params{Inner, 1000}}) {
    const ErrorRecord error = Raised([&] { Creator->Create(parameters); });
    ExpectError(error, 450, u"Expected 1 parameter.");
    ExpectTrail(error, {u"CtorIntervalPacingCmd.ICreator_Create(Params)"});
  }
}

TEST_F(IntervalPacingTest, NegativeOptionFailsAtTheBuilding) {
  Server->Items[u"PacingInterval"] = u"-5";
  const ErrorRecord error = Raised([&] { Creator->Create({Inner}); });
  ExpectError(error, 5, u"Interval pacing command's interval must be greater than or equal to zero.");
  ExpectTrail(error, {u"CReadCmd.Initialize(InnerCommand)", u"CtorIntervalPacingCmd.ICreator_Create(Params)"});
}

TEST_F(IntervalPacingTest, OptionThatIsNoNumberFailsAtTheBuilding) {
  for (const auto* text : {u"", u"soon", u"1000 ms", u"0x10"}) {
    Server->Items[u"PacingInterval"] = text;
    const ErrorRecord error = Raised([&] { Creator->Create({Inner}); });
    EXPECT_EQ(error.Number, 13);
    ExpectTrail(error, {u"CtorIntervalPacingCmd.ICreator_Create(Params)"});
  }
}

TEST_F(IntervalPacingTest, OptionOver32BitsOverflows) {
  for (const auto* text : {u"2147483648", u"1e300"}) {
    Server->Items[u"PacingInterval"] = text;
    EXPECT_EQ(Raised([&] { Creator->Create({Inner}); }).Number, 6);
  }
}

TEST_F(IntervalPacingTest, CreatorsIsMatchBearsItsOwnLabel) {
  ExpectTrail(Raised([&] { Creator->IsMatch(Inner); }), {u"CtorIntervalPacingCmd.ICreator_IsMatch(Specification)"});
}

} // namespace
} // namespace portico
