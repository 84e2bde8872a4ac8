#include "framework/shared/modAppGlobals.h"

#include "framework/errors/Quit.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/objects/modGlobals.h"

#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/doubles/WindowDouble.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using modAppGlobals::EventHandler;
using modAppGlobals::ExecutionEventHandler;
using modGlobals::VarArray;
using test::CommandOf;
using test::CreatorOf;
using test::Labels;
using test::Raised;

class EventHandlerTest : public test::FrameworkTest {
protected:
  EventHandlerTest() {
    Window->MousePointer(3);
    gMainForm = Window;
    gObjectFactory = New<CObjectFactory>();
    for (const char16_t* name : {u"Run", u"RunToCursor", u"Step"}) {
      AddCommand(name, [this] {
        PointerSeen = Window->MousePointer();
        ExecutingSeen = Window->Executing();
      });
    }
    AddCommand(u"Fails", [] { HuntERR::Raise(17, u"Tester", u"No beam."); });
  }

  void AddCommand(const String& specification, const std::function<void()>& action) {
    gObjectFactory->Add(New<CreatorOf>(specification, [this, action](const Params& parameters) -> Ref<IObject> {
      ParametersSeen = parameters;
      return New<CommandOf>(action);
    }));
  }

  test::Journal Told;
  const Ref<test::WindowDouble> Window = New<test::WindowDouble>(Told);
  std::int32_t PointerSeen = 0;
  bool ExecutingSeen = false;
  Params ParametersSeen;
};

TEST_F(EventHandlerTest, RunsTheCommandUnderTheHourglassAndSetsThePointerBack) {
  EventHandler(u"Step", VarArray());
  EXPECT_EQ(PointerSeen, 11);
  EXPECT_EQ(Window->MousePointer(), 3);
}

TEST_F(EventHandlerTest, HandsTheParametersToTheCreator) {
  EventHandler(u"Step", VarArray(u"DMM", 7));
  ASSERT_EQ(ParametersSeen.size(), 2U);
  EXPECT_EQ(ParametersSeen[0].ToString(), u"DMM");
  EXPECT_EQ(ParametersSeen[1].ToLong(), 7);
}

TEST_F(EventHandlerTest, TakesTheKeyOfACommandToo) {
  constexpr ClassKey<ICommand, StringView, std::int32_t> step{u"Step"};
  EventHandler(step, u"DMM", 7);
  ASSERT_EQ(ParametersSeen.size(), 2U);
  EXPECT_EQ(ParametersSeen[0].ToString(), u"DMM");
  EXPECT_EQ(ParametersSeen[1].ToLong(), 7);
  EXPECT_FALSE(ExecutingSeen);
}

TEST_F(EventHandlerTest, ReleasesTheCommand) {
  auto owned = std::make_shared<int>(0);
  gObjectFactory->Add(
      New<CreatorOf>(u"Owns", [&](const Params&) -> Ref<IObject> { return New<CommandOf>([held = owned] {}); }));
  EventHandler(u"Owns", VarArray());
  EXPECT_EQ(owned.use_count(), 1);
}

TEST_F(EventHandlerTest, AnUnknownCommandLeavesTheHourglassAndPassesOnError5) {
  const ErrorRecord error = Raised([] { EventHandler(u"Nope", VarArray()); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(Window->MousePointer(), 11);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactories.Item(IndexOrKey)",
                                                u"CObjectFactory.IObjectFactory_CreateObject(Specification,Params)",
                                                u"modAppGlobals.EventHandler(cmdName, Params)"}));
}

TEST_F(EventHandlerTest, ACommandThatFailsLeavesTheHourglass) {
  EXPECT_EQ(Raised([] { EventHandler(u"Fails", VarArray()); }).Number, 17);
  EXPECT_EQ(Window->MousePointer(), 11);
}

TEST_F(EventHandlerTest, AProductThatIsNoCommandRaises13) {
  gObjectFactory->Add(New<CreatorOf>(u"Object"));
  EXPECT_EQ(Raised([] { EventHandler(u"Object", VarArray()); }).Number, 13);
  EXPECT_EQ(Window->MousePointer(), 11);
}

TEST_F(EventHandlerTest, WithoutAWindowOrAFactoryItRaises91) {
  gObjectFactory = {};
  EXPECT_EQ(Raised([] { EventHandler(u"Step", VarArray()); }).Number, 91);
  gMainForm = {};
  EXPECT_EQ(Raised([] { EventHandler(u"Step", VarArray()); }).Number, 91);
}

TEST_F(EventHandlerTest, QuitPassesWithoutAReport) {
  AddCommand(u"Quits", [] { throw Quit{}; });
  EXPECT_THROW(ExecutionEventHandler(u"Quits", VarArray()), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

class ExecutionEventHandlerTest : public EventHandlerTest {};

TEST_F(ExecutionEventHandlerTest, SetsExecutingAroundTheTwoLongRunningCommands) {
  for (const char16_t* name : {u"Run", u"RunToCursor"}) {
    ExecutingSeen = false;
    ExecutionEventHandler(name, VarArray());
    EXPECT_TRUE(ExecutingSeen);
    EXPECT_FALSE(Window->Executing());
  }
}

TEST_F(ExecutionEventHandlerTest, KnowsTheLongOneByItsKeyToo) {
  ExecutionEventHandler(Class::Run, {}, u"Step");
  EXPECT_TRUE(ExecutingSeen);
  ASSERT_EQ(ParametersSeen.size(), 2U);
  EXPECT_EQ(ParametersSeen[1].ToString(), u"Step");
  ExecutionEventHandler(ClassKey<ICommand>{u"Step"});
  EXPECT_FALSE(ExecutingSeen);
}

TEST_F(ExecutionEventHandlerTest, LeavesExecutingAloneForOtherCommands) {
  ExecutionEventHandler(u"Step", VarArray());
  EXPECT_FALSE(ExecutingSeen);
  Window->Executing(true);
  ExecutionEventHandler(u"Step", VarArray());
  EXPECT_TRUE(Window->Executing());
}

TEST_F(ExecutionEventHandlerTest, ComparesTheNamesExactly) {
  ExecutionEventHandler(u"run", VarArray());
  EXPECT_EQ(PointerSeen, 11);
  EXPECT_FALSE(ExecutingSeen);
}

TEST_F(ExecutionEventHandlerTest, LeavesExecutingSetAfterAFailure) {
  gObjectFactory->Substitue(
      New<CreatorOf>(u"Run", [](const Params&) -> Ref<IObject> { HuntERR::Raise(17, u"Tester", u"No beam."); }));
  const ErrorRecord error = Raised([] { ExecutionEventHandler(u"Run", VarArray(1)); });
  EXPECT_EQ(error.Number, 17);
  EXPECT_TRUE(Window->Executing());
  EXPECT_EQ(Window->MousePointer(), 11);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactory.IObjectFactory_CreateObject(Specification,Params)",
                                                u"modAppGlobals.EventHandler(cmdName, Params)",
                                                u"modAppGlobals.ExecutionEventHandler(cmdName, Params)"}));
}

} // namespace
} // namespace portico
