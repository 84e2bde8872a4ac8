#include "views/CSCPIView.h"
#include "views/CSCPIViewHistory.h"

#include "views/ViewFixture.h"

namespace portico::test {
namespace {

/// What both view models are and where they differ, event sinks apart.
class ScpiView : public ViewFixture {
protected:
  static Ref<CDataFIFO> Container(std::initializer_list<Ref<IDataEntity>> entities = {}) {
    auto container = New<CDataFIFO>();
    container->Initialize(0);
    for (const auto& entity : entities) container->Enqueue(entity);
    return container;
  }

  Ref<CSCPIView> View = New<CSCPIView>();
};

class ScpiViewHistory : public ScpiView {
protected:
  Ref<CSCPIViewHistory> View = New<CSCPIViewHistory>();
};

TEST_F(ScpiView, StartsWithAnEmptyQueueAndIdle) {
  View->Initialize(Box);
  EXPECT_EQ(View->Instructions()->Count(), 0);
  EXPECT_EQ(View->Instructions()->MaximumCount(), 0);
  EXPECT_FALSE(View->Executing());
}

TEST_F(ScpiView, InitializeWithoutADisplayRaises) {
  const auto error = Raised([&] { View->Initialize({}); });
  ExpectError(error, 5, u"Instruction display cannot be nothing.");
  ExpectTrail(error, {u"CSCPIView.Initialize(InstructionDisplay)"});
  EXPECT_EQ(Raised([&] { View->Instructions(); }).Number, Hex(0x80041460));
}

TEST_F(ScpiView, MembersRaiseBeforeInitialize) {
  const std::vector<std::pair<std::function<void()>, StringView>> members = {
      {[&] { View->Instructions(); }, u"CSCPIView.Instructions()"},
      {[&] { View->Instructions(Ref<CDataFIFO>()); }, u"CSCPIView.Instructions(newValue)"},
      {[&] { View->PopNextInstruction(); }, u"CSCPIView.PopNextInstruction()"},
      {[&] { View->Clear(); }, u"CSCPIView.Clear()"},
      {[&] { View->Refresh(); }, u"CSCPIView.Refresh()"},
  };
  for (const auto& [call, label] : members) {
    const auto error = Raised(call);
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
    HuntERR::Reset();
  }
}

TEST_F(ScpiView, ExecutingNeedsNoInitialize) {
  View->Executing(true);
  EXPECT_TRUE(View->Executing());
  View->Executing(false);
  EXPECT_FALSE(View->Executing());
}

TEST_F(ScpiView, InstructionsSetToNothingRaises) {
  View->Initialize(Box);
  const auto error = Raised([&] { View->Instructions(Ref<CDataFIFO>()); });
  ExpectError(error, 380, u"Instructions cannot be set to nothing.");
  ExpectTrail(error, {u"CSCPIView.Instructions(newValue)"});
}

TEST_F(ScpiView, InstructionsSetRedrawsTheWindowAndKeepsTheQueue) {
  View->Initialize(Box);
  Box->Type(u"old\r\n");
  const auto queue = Container({Entity(u"*RST\r\n", u"Instruction"), Entity(u"ok\r\n", u"Response")});
  View->Instructions(queue);
  EXPECT_EQ(Shown(), "*RST\\r\\nok\\r\\n");
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
  EXPECT_EQ(Box->FormatAt(0).SelBold, true);
  EXPECT_EQ(Box->FormatAt(6).SelItalic, true);
}

TEST_F(ScpiView, RedrawEmptiesTheWindowAndInsertsFragmentsWithoutMarkers) {
  View->Initialize(Box);
  const auto queue = Container({Entity(u"a\r\n", u"AutomaticInstruction"), Entity(u"ok\r\n", u"Response")});
  const auto writes = WritesOf([&] { View->Instructions(queue); });
  ASSERT_EQ(writes.size(), 5U);
  EXPECT_EQ(writes[0], "Text ");
  EXPECT_EQ(writes[1].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[2], Fragment("a\\r\\n"));
  EXPECT_EQ(writes[3].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[4], Fragment("ok\\r\\n"));
}

TEST_F(ScpiView, ReplacedQueueIsHeardNoMore) {
  View->Initialize(Box);
  const auto old = View->Instructions();
  View->Instructions(Container());
  old->Enqueue(Entity(u"a\r\n", u"Instruction"));
  EXPECT_EQ(Shown(), "");
}

TEST_F(ScpiView, GoneViewLeavesQueueAndWindowUsable) {
  View->Initialize(Box);
  const auto queue = View->Instructions();
  View = {};
  queue->Enqueue(Entity(u"a\r\n", u"Instruction"));
  Box->Type(u"b");
  EXPECT_EQ(Shown(), "b");
  EXPECT_EQ(queue->Count(), 1);
}

TEST_F(ScpiView, ClearEmptiesWindowAndQueue) {
  View->Initialize(Box);
  Box->Type(u"a\r\nb");
  EXPECT_EQ(View->Instructions()->Count(), 2);
  View->Clear();
  EXPECT_EQ(Shown(), "");
  const auto queue = View->Instructions();
  EXPECT_EQ(queue->Count(), 0);
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue)); // in step
}

TEST_F(ScpiView, ClearOfAnEmptyWindowEndsInStepWithANewQueue) {
  View->Initialize(Box);
  const auto before = View->Instructions();
  View->Clear();
  const auto queue = View->Instructions();
  EXPECT_FALSE(IsSameObject(queue, before));
  EXPECT_EQ(queue->Count(), 0);
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
}

TEST_F(ScpiView, ClearRebuildsEvenDuringARun) {
  View->Initialize(Box);
  Box->Type(u"a\r\nb");
  const auto before = View->Instructions();
  View->Executing(true);
  View->Clear();
  EXPECT_FALSE(IsSameObject(View->Instructions(), before));
  EXPECT_EQ(View->Instructions()->Count(), 0);
}

TEST_F(ScpiView, RefreshRedrawsNothing) {
  View->Initialize(Box);
  Box->Type(u"typed");
  EXPECT_EQ(WritesOf([&] { View->Refresh(); }), List{});
}

TEST_F(ScpiView, PopNextInstructionTakesAndGivesNothing) {
  View->Initialize(Box);
  Box->Type(u"a\r\nb\r\n");
  List writes;
  EXPECT_FALSE(bool(View->PopNextInstruction()));
  EXPECT_EQ(Shown(), "a\\r\\nb\\r\\n");
}

TEST_F(ScpiView, FailingClearBearsItsLabel) {
  View->Initialize(Box);
  Box->OnCall = [](const std::string& call) {
    if (call == "Text ") HuntERR::Raise(7, u"box", u"The box failed.");
  };
  ExpectTrail(Raised([&] { View->Clear(); }), {u"CSCPIView.Clear()"});
  HuntERR::Reset();
  ExpectTrail(Raised([&] { View->Instructions(Container()); }),
              {u"CSCPIView.UpdateDisplay()", u"CSCPIView.Instructions(newValue)"});
}

TEST_F(ScpiView, MissingQueueRaises) {
  View->Initialize(Box);
  Box->Type(u"a");
  gObjectFactory->Substitue(New<CreatorOfOne>(u"DataContainer", Ref<IObject>()));
  const auto error = Raised([&] { View->Instructions(); });
  ExpectError(error, 31004, u"Can't create an instruction queue.");
  ExpectTrail(error, {u"CSCPIView.GetInstructionQueue()", u"CSCPIView.Instructions()"});
}

TEST_F(ScpiView, MissingQueueFailsInitializeUnderItsLabel) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"DataContainer", Ref<IObject>()));
  const auto error = Raised([&] { View->Initialize(Box); });
  ExpectError(error, 31004, u"Can't create an instruction queue.");
  ExpectTrail(error, {u"CSCPIView.GetInstructionQueue()", u"CSCPIView.Initialize(InstructionDisplay)"});
}

TEST_F(ScpiView, IsMadeByTheFactoryFromItsDisplay) {
  gObjectFactory->Add(MakeCreator(CtorSCPIView));
  const auto view = Create<CSCPIView>(u"SCPIView", modGlobals::VarArray(Ref<IObject>(Box)));
  Box->Type(u"a");
  EXPECT_EQ(Lines(view->Instructions()), List{"Instruction: a\\r\\n"});
  EXPECT_EQ(Raised([] { Create<CSCPIView>(u"SCPIView"); }).Number, 450);
}

TEST_F(ScpiViewHistory, InitializeHasNoLabelOfItsOwn) {
  const auto error = Raised([&] { View->Initialize({}); });
  ExpectError(error, 5, u"Instruction display cannot be nothing.");
  ExpectTrail(error, {});
}

TEST_F(ScpiViewHistory, MissingQueueFailsInitializeUnderTheInnerLabelAlone) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"DataContainer", Ref<IObject>()));
  const auto error = Raised([&] { View->Initialize(Box); });
  ExpectError(error, 31004, u"Can't create an instruction queue.");
  ExpectTrail(error, {u"CSCPIViewHistory.GetInstructionQueue()"});
}

TEST_F(ScpiViewHistory, GetAndPopRaiseBeforeInitialize) {
  const auto error = Raised([&] { View->Instructions(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CSCPIViewHistory.Instructions()"});
  HuntERR::Reset();
  ExpectTrail(Raised([&] { View->PopNextInstruction(); }), {u"CSCPIViewHistory.PopNextInstruction()"});
}

TEST_F(ScpiViewHistory, RefreshBeforeInitializeDoesNothing) {
  EXPECT_NO_THROW(View->Refresh());
  View->Initialize(Box);
  Box->Type(u"typed");
  EXPECT_EQ(WritesOf([&] { View->Refresh(); }), List{});
}

TEST_F(ScpiViewHistory, ClearHasNoGuardAndFailsOnTheUnsetDisplay) {
  const auto error = Raised([&] { View->Clear(); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CSCPIViewHistory.Clear()"});
}

TEST_F(ScpiViewHistory, InstructionsSetHasNoGuardAndFailsOnTheUnsetDisplay) {
  const auto error = Raised([&] { View->Instructions(Container()); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CSCPIViewHistory.UpdateDisplay()", u"CSCPIViewHistory.Instructions(newValue)"});
}

TEST_F(ScpiViewHistory, ARemovalRaises11WhileTheBytesForACharacterAreNotKnown) {
  const auto entity = Entity(u"ok\r\n", u"Response");
  const auto queue = Container({entity});
  Raised([&] { View->Instructions(queue); }); // which takes the queue's events before it fails
  const auto removed = Raised([&] { queue->Dequeue(); });
  ExpectError(removed, 11, u"Division by zero.");
  ExpectTrail(removed, {u"CSCPIViewHistory.m_Instructions_OnRemove(DataEntity)", u"CDataFIFO.Dequeue()"});
  HuntERR::Reset();
  const auto exceded = Raised([&] { queue->MaximumCountExceded(entity, 0); });
  ExpectError(exceded, 11, u"Division by zero.");
  ExpectTrail(exceded, {u"CSCPIViewHistory.m_Instructions_MaximumCountExceded"});
}

TEST_F(ScpiViewHistory, InstructionsSetToNothingEmptiesTheWindowBeforeItFails) {
  View->Initialize(Box);
  Box->Type(u"old");
  const auto error = Raised([&] { View->Instructions(Ref<CDataFIFO>()); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(ToUtf8(FirstDescription(error)), "Iteratable object cannot be nothing.");
  EXPECT_TRUE(Bears(CallStack(error).back(), u"CSCPIViewHistory.Instructions(newValue)"));
  EXPECT_EQ(Shown(), "");
}

TEST_F(ScpiViewHistory, FailedSetLeavesTheViewStale) {
  View->Initialize(Box);
  Raised([&] { View->Instructions(Ref<CDataFIFO>()); });
  Box->Type(u"a");
  EXPECT_EQ(Lines(View->Instructions()), List{"Instruction: a\\r\\n"});
}

TEST_F(ScpiViewHistory, InstructionsSetRedraws) {
  View->Initialize(Box);
  Box->Type(u"old");
  const auto queue = Container({Entity(u"ok\r\n", u"Response")});
  View->Instructions(queue);
  EXPECT_EQ(Shown(), "ok\\r\\n");
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
}

TEST_F(ScpiViewHistory, ClearKeepsTheQueue) {
  View->Initialize(Box);
  View->Instructions()->Enqueue(Entity(u"ok\r\n", u"Response"));
  const auto queue = View->Instructions();
  EXPECT_EQ(WritesOf([&] { View->Clear(); }), List{"Text "});
  EXPECT_EQ(Shown(), "");
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
  EXPECT_EQ(Lines(View->Instructions()), List{"Response: ok\\r\\n"});
}

TEST_F(ScpiViewHistory, TextFromElsewhereDoesNotConcernTheQueue) {
  View->Initialize(Box);
  const auto queue = View->Instructions();
  Box->Type(u"remark\r\n");
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
  EXPECT_EQ(queue->Count(), 0);
}

TEST_F(ScpiViewHistory, HasNoLimit) {
  View->Initialize(Box);
  EXPECT_EQ(View->Instructions()->MaximumCount(), 0);
}

TEST_F(ScpiViewHistory, GivesItsDisplay) {
  View->Initialize(Box);
  EXPECT_TRUE(IsSameObject(View->InstructionDisplay(), Box));
}

TEST_F(ScpiViewHistory, RebuildOfADisplayWithTextLeavesTheSelectionOnTheLastLine) {
  Box->Type(u"a\r\nbcd");
  Box->OnCall = [&](const std::string& call) {
    if (call == "Text ") HuntERR::Raise(7, u"box", u"Stop after the rebuild.");
  };
  Raised([&] { View->Initialize(Box); });
  EXPECT_EQ(Box->SelStart(), 3);
  EXPECT_EQ(ToUtf8(Box->SelText()), "bcd");
}

TEST_F(ScpiViewHistory, PopNextInstructionTakesAndGivesNothing) {
  View->Initialize(Box);
  Box->Type(u"a\r\n");
  EXPECT_FALSE(bool(View->PopNextInstruction()));
  EXPECT_EQ(Shown(), "a\\r\\n");
}

TEST_F(ScpiViewHistory, IsMadeByTheFactoryFromItsDisplay) {
  gObjectFactory->Add(MakeCreator(CtorSCPIViewHistory));
  const auto view = Create<CSCPIViewHistory>(u"SCPIViewHistory", modGlobals::VarArray(Ref<IObject>(Box)));
  EXPECT_TRUE(IsSameObject(view->InstructionDisplay(), Box));
  EXPECT_EQ(Raised([] { Create<CSCPIViewHistory>(u"SCPIViewHistory"); }).Number, 450);
}

} // namespace
} // namespace portico::test
