#include "document/FIFOFixture.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

using Lines = std::vector<std::string>;

class CDataFIFOTest : public test::FIFOTest {};

TEST_F(CDataFIFOTest, EmptyFIFOIsDoneAtTheFirstItem) {
  EXPECT_TRUE(Cast<CDataPosition>(FIFO->StartOfObject())->IsLast());
  EXPECT_TRUE(Cast<CDataPosition>(FIFO->EndOfObject())->IsLast());
  EXPECT_EQ(FIFO->ComparePositions(FIFO->StartOfObject(), FIFO->EndOfObject()), 0);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  EXPECT_FALSE(iterator->FirstItem().ToObject<IDataEntity>());
  EXPECT_TRUE(iterator->IsDone());
  EXPECT_FALSE(iterator->CurrentItem().ToObject<IDataEntity>());
}

TEST_F(CDataFIFOTest, EnqueueOfNothingIsIgnoredAlways) {
  const auto fresh = New<CDataFIFO>();
  EXPECT_NO_THROW(fresh->Enqueue(nullptr));
  FIFO->Enqueue(nullptr);
  EXPECT_EQ(FIFO->Count(), 0);
  EXPECT_TRUE(Events.empty());
}

TEST_F(CDataFIFOTest, EnqueueKeepsTheObjectItself) {
  const auto entity = Entity(u"1");
  FIFO->Enqueue(entity);
  EXPECT_TRUE(IsSameObject(FIFO->Peek(), entity));
  EXPECT_EQ(FIFO->Count(), 1);
}

TEST_F(CDataFIFOTest, AllAreVisitedInTheirOrderAndNoneIfThereIsNone) {
  std::vector<String> visited;
  const auto visit = [&](const IDataEntity& entity) { visited.push_back(entity.ReadText()); };
  FIFO->ForEach(visit);
  EXPECT_TRUE(visited.empty());
  for (const StringView text : {u"1", u"2", u"3"}) FIFO->Enqueue(Entity(text));
  FIFO->ForEach(visit);
  EXPECT_EQ(visited, (std::vector<String>{u"1", u"2", u"3"}));
}

TEST_F(CDataFIFOTest, VisitorMayTakeAllAway) {
  for (const StringView text : {u"1", u"2", u"3"}) FIFO->Enqueue(Entity(text));
  std::vector<String> visited;
  FIFO->ForEach([&](const IDataEntity& entity) {
    FIFO->Clear();
    visited.push_back(entity.ReadText());
  });
  EXPECT_EQ(visited.size(), 1U);
}

TEST_F(CDataFIFOTest, IndicesOfEventsCountBytes) {
  for (const auto* text : {u"one", u"", u"three"}) FIFO->Enqueue(Entity(text));
  EXPECT_EQ(Events, (Lines{"add one 0", "add  6", "add three 6"}));
  Events.clear();
  FIFO->Clear();
  EXPECT_EQ(Events, (Lines{"remove one 0", "remove  0", "remove three 0"}));
}

TEST_F(CDataFIFOTest, HandlersSeeTheContainerChangedAlready) {
  Lines counts;
  const auto note = [&](const Ref<IDataEntity>&, std::int64_t) { counts.push_back(std::to_string(FIFO->Count())); };
  FIFO->OnAdd.Connect(note);
  FIFO->OnRemove.Connect(note);
  FIFO->Enqueue(Entity(u"1"));
  FIFO->Dequeue();
  EXPECT_EQ(counts, (Lines{"1", "0"}));
}

TEST_F(CDataFIFOTest, HandlerMayLetTheFIFOGo) {
  FIFO->MaximumCount(1);
  FIFO->OnAdd.Connect([this](const Ref<IDataEntity>&, std::int64_t) { FIFO = {}; });
  CDataFIFO& fifo = *FIFO;
  fifo.Enqueue(Entity(u"1"));
  EXPECT_FALSE(FIFO);
  EXPECT_EQ(Events, (Lines{"add 1 0"}));
}

TEST_F(CDataFIFOTest, LimitThrowsTheOldestOut) {
  FIFO->MaximumCount(2);
  for (const auto* text : {u"1", u"2", u"3"}) FIFO->Enqueue(Entity(text));
  EXPECT_EQ(Events, (Lines{"add 1 0", "add 2 2", "add 3 4", "exceeded 1 0"}));
  EXPECT_EQ(Content(*FIFO), "2;3;");
}

TEST_F(CDataFIFOTest, NewLimitActsAtTheNextEnqueueOnly) {
  Fill(4);
  FIFO->MaximumCount(2);
  EXPECT_EQ(FIFO->Count(), 4);
  FIFO->Enqueue(Entity(u"5"));
  EXPECT_EQ(Events, (Lines{"add 5 8", "exceeded 1 0", "exceeded 2 0", "exceeded 3 0"}));
  EXPECT_EQ(FIFO->MaximumCount(), 2);
}

TEST_F(CDataFIFOTest, LimitIsMinusOneBeforeInitialize) {
  const auto fifo = New<CDataFIFO>();
  EXPECT_EQ(fifo->MaximumCount(), -1);
  fifo->MaximumCount(7);
  EXPECT_EQ(fifo->MaximumCount(), 7);
  fifo->Initialize(3);
  EXPECT_EQ(fifo->MaximumCount(), 3);
  const ErrorRecord error = Raised([&] { fifo->Initialize(-1); });
  ExpectError(error, 5, u"Max count cannot be less than zero.");
  ExpectTrail(error, {u"CDataFIFO.Initialize(MaxCount)"});
}

TEST_F(CDataFIFOTest, NegativeLimitThrowsAllOutAndFails) {
  FIFO->MaximumCount(-1);
  EXPECT_EQ(Raised([&] { FIFO->Enqueue(Entity(u"1")); }).Number, 5);
  EXPECT_EQ(Events, (Lines{"add 1 0", "exceeded 1 0"}));
}

TEST_F(CDataFIFOTest, StampThatIsPresentIsRefused) {
  const auto entity = Entity(u"1", u"Stamp");
  FIFO->Enqueue(entity);
  for (const auto& again : {entity, Entity(u"2", u"STAMP")}) {
    const ErrorRecord error = Raised([&] { FIFO->Enqueue(again); });
    EXPECT_EQ(error.Number, 457);
    ExpectTrail(error, {u"CDataFIFO.Enqueue(DataEntity)"});
  }
  EXPECT_EQ(Events, (Lines{"add 1 0"}));
}

TEST_F(CDataFIFOTest, KeyIsTheStampAtTheTimeOfAdding) {
  const auto entity = Entity(u"1", u"a");
  FIFO->Enqueue(entity);
  entity->TimeStamp(u"b");
  EXPECT_EQ(Raised([&] { FIFO->Enqueue(Entity(u"2", u"a")); }).Number, 457);
  FIFO->Enqueue(entity);
  EXPECT_EQ(FIFO->Count(), 2);
  EXPECT_EQ(Events, (Lines{"add 1 0", "add 1 0"})) << "the first place where the entity stands counts";
}

TEST_F(CDataFIFOTest, EntityWithoutAStampIsRefused) {
  const auto entity = Entity(u"1");
  entity->DataAttributes()->Remove(u"Timestamp");
  const ErrorRecord error = Raised([&] { FIFO->Enqueue(entity); });
  ExpectError(error, 381, u"Requested data attribute, Timestamp, does not exist.");
  ExpectTrail(error,
              {u"CDataEntity.TimeStamp", u"CDataEntity.IDataEntity_TimeStamp", u"CDataFIFO.Enqueue(DataEntity)"});
  EXPECT_EQ(FIFO->Count(), 0);
}

TEST_F(CDataFIFOTest, DequeueAndPeekFailOnAnEmptyFIFOAndLeaveItUsable) {
  const ErrorRecord dequeue = Raised([&] { FIFO->Dequeue(); });
  EXPECT_EQ(dequeue.Number, 5);
  ExpectTrail(dequeue, {u"CDataFIFO.Dequeue()"});
  const ErrorRecord peek = Raised([&] { FIFO->Peek(); });
  EXPECT_EQ(peek.Number, 5);
  ExpectTrail(peek, {u"CDataFIFO.Peek()"});
  FIFO->Enqueue(Entity(u"1"));
  EXPECT_EQ(Content(*FIFO), "1;");
}

TEST_F(CDataFIFOTest, ClearLeavesTheSelectionAsItWas) {
  const auto entities = Fill(2);
  FIFO->SelectData(entities[1]->Position(), EndMarker());
  FIFO->Clear();
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0"}));
  EXPECT_TRUE(IsSameObject(Cast<CDataPosition>(FIFO->StartOfSelection())->DataEntity(), entities[1]));
}

TEST_F(CDataFIFOTest, ComparesPlacesWithoutTheirOffsets) {
  const auto entities = Fill(3);
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(), entities[2]->Position()), 1);
  EXPECT_EQ(FIFO->ComparePositions(entities[2]->Position(), entities[0]->Position()), 2);
  EXPECT_EQ(FIFO->ComparePositions(entities[1]->Position(0), entities[1]->Position(1)), 0);
  EXPECT_EQ(FIFO->ComparePositions(entities[2]->Position(), EndMarker()), 1);
  EXPECT_EQ(FIFO->ComparePositions(EndMarker(), entities[2]->Position()), 2);
  EXPECT_EQ(FIFO->ComparePositions(EndMarker(), EndMarker()), 0);
}

TEST_F(CDataFIFOTest, ComparePositionsRefusesWhatIsNotThere) {
  const auto entities = Fill(1);
  const auto here = entities[0]->Position();
  const auto absent = Entity(u"absent")->Position();
  const auto expect = [&](const Ref<IPosition>& first, const Ref<IPosition>& second, StringView text) {
    const ErrorRecord error = Raised([&] { FIFO->ComparePositions(first, second); });
    ExpectError(error, 5, text);
    ExpectTrail(error, {u"CDataFIFO.ComparePositions(Position1,Position2)"});
  };
  expect(nullptr, nullptr, u"Position1 cannot be nothing.");
  expect(absent, nullptr, u"Position2 cannot be nothing.");
  expect(absent, absent, u"Position1 is not in FIFO.");
  expect(absent, New<CDataPosition>(), u"Position1 is not in FIFO.");
  expect(here, absent, u"Position2 is not in FIFO.");
}

TEST_F(CDataFIFOTest, NextPositionLeadsToTheEndMarkerAndFromAnAbsentOneToTheFirst) {
  const auto entities = Fill(2);
  const auto next = [&](const Ref<IPosition>& position) {
    return Cast<CDataPosition>(FIFO->NextPosition(position))->DataEntity();
  };
  EXPECT_TRUE(IsSameObject(next(entities[0]->Position()), entities[1]));
  EXPECT_FALSE(next(entities[1]->Position()));
  EXPECT_FALSE(next(EndMarker()));
  EXPECT_TRUE(IsSameObject(next(Entity(u"absent")->Position()), entities[0]));
  const ErrorRecord error = Raised([&] { FIFO->NextPosition(nullptr); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CDataFIFO.IIteratableObject_NextPosition(Index)"});
}

TEST_F(CDataFIFOTest, NextPositionOfAnAbsentOneInAnEmptyFIFOIsTheEndMarker) {
  EXPECT_TRUE(Cast<CDataPosition>(FIFO->NextPosition(Entity(u"absent")->Position()))->IsLast());
}

TEST_F(CDataFIFOTest, PositionOfAnEntityWithoutDataComparesAndIterates) {
  const auto none = Entity(u"");
  FIFO->Enqueue(none);
  FIFO->Enqueue(Entity(u"2"));
  EXPECT_EQ(Cast<CDataPosition>(FIFO->StartOfObject())->DataOffset(), -1);
  EXPECT_EQ(FIFO->ComparePositions(none->Position(), EndMarker()), 1);
  EXPECT_EQ(Content(*FIFO), ";2;");
}

TEST_F(CDataFIFOTest, ItemIsThePositionsEntity) {
  const auto entities = Fill(1);
  const auto twin = Entity(u"1", entities[0]->TimeStamp());
  EXPECT_TRUE(IsSameObject(FIFO->Item(twin->Position()).ToObject<IDataEntity>(), twin));
  const ErrorRecord error = Raised([&] { FIFO->Item(Entity(u"absent")->Position()); });
  ExpectError(error, 5, u"Index is not in FIFO.");
  ExpectTrail(error, {u"CDataFIFO.IIteratableObject_Item(Index)"});
}

TEST_F(CDataFIFOTest, ItemOfTheEndMarkerIsNothingOrFails) {
  EXPECT_FALSE(FIFO->Item(EndMarker()).ToObject<IDataEntity>());
  Fill(1);
  EXPECT_EQ(Raised([&] { FIFO->Item(EndMarker()); }).Number, 91);
}

TEST_F(CDataFIFOTest, EntityAtDataIndexPassesOverEntitiesWithoutData) {
  for (const auto* text : {u"", u"1", u"", u"22"}) FIFO->Enqueue(Entity(text));
  const auto at = [&](std::int64_t index) {
    const auto entity = FIFO->EntityAtDataIndex(index);
    return entity ? ToUtf8(FromBytes(entity->ReadData())) : "nothing";
  };
  EXPECT_EQ(at(0), "1");
  EXPECT_EQ(at(1), "1");
  EXPECT_EQ(at(2), "22");
  EXPECT_EQ(at(5), "22");
  EXPECT_EQ(at(6), "nothing");
  EXPECT_EQ(at(-1), "") << "the first, with or without data";
}

TEST_F(CDataFIFOTest, UpdateDataShiftsTheIndicesSilently) {
  const auto entities = Fill(3);
  entities[0]->UpdateData(ByteArray(10));
  EXPECT_TRUE(Events.empty());
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(9), entities[0]));
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(10), entities[1]));
}

TEST_F(CDataFIFOTest, MembersAreGuardedBeforeInitialize) {
  const auto fifo = New<CDataFIFO>();
  const auto expect = [](auto access, StringView label) {
    const ErrorRecord error = Raised(access);
    ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
    ExpectTrail(error, {label});
  };
  expect([&] { fifo->Enqueue(Entity(u"1")); }, u"CDataFIFO.Enqueue(DataEntity)");
  expect([&] { fifo->Dequeue(); }, u"CDataFIFO.Dequeue()");
  expect([&] { fifo->Peek(); }, u"CDataFIFO.Peek()");
  expect([&] { fifo->SelectAllData(); }, u"CDataFIFO.SelectData()");
  expect([&] { fifo->SelectData(EndMarker(), EndMarker()); }, u"CDataFIFO.SelectData(Start,End)");
  expect([&] { fifo->CopyData(nullptr); }, u"CDataFIFO.CopyData(Iterator)");
  expect([&] { fifo->MergeData(nullptr); }, u"CDataFIFO.MergeData(Iterator)");
  expect([&] { fifo->EntityAtDataIndex(0); }, u"CDataFIFO.EntityAtDataIndex(Index)");
  expect([&] { fifo->DeleteData(); }, u"CDataFIFO.DeleteData()");
  expect([&] { static_cast<void>(fifo->Count()); }, u"CDataFIFO.Count(DataEntity)");
  expect([&] { fifo->Clear(); }, u"CDataFIFO.Clear()");
  expect([&] { fifo->ForEach({}); }, u"CDataFIFO.ForEach(visit)");
  expect([&] { fifo->NextPosition(EndMarker()); }, u"CDataFIFO.IIteratableObject_NextPosition(Index)");
  expect([&] { fifo->Item(EndMarker()); }, u"CDataFIFO.IIteratableObject_Item(Index)");
  expect([&] { fifo->StartOfSelection(); }, u"CDataFIFO.ISelectableObject_StartOfSelection");
  expect([&] { fifo->EndOfSelection(); }, u"Get CDataFIFO.ISelectableObject_EndOfSelection");
  expect([&] { static_cast<void>(fifo->IsSelectionEmpty()); }, u"CDataFIFO.IIteratableObject_Item()");
}

TEST_F(CDataFIFOTest, ComparePositionsIsGuardedAsAMethod) {
  const ErrorRecord error = Raised([] { New<CDataFIFO>()->ComparePositions(nullptr, nullptr); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CDataFIFO.ComparePositions(Position1,Position2)"});
}

TEST_F(CDataFIFOTest, CallThroughTheInterfaceAddsItsOwnLine) {
  const auto fresh = New<CDataFIFO>();
  const IIteratableObject& object = *fresh;
  ExpectTrail(Raised([&] { object.Count(); }),
              {u"CDataFIFO.Count(DataEntity)", u"CDataFIFO.IIteratableObject_Count()"});
  ExpectTrail(Raised([&] { object.ComparePositions({}, {}); }),
              {u"CDataFIFO.ComparePositions(Position1,Position2)",
               u"CDataFIFO.IIteratableObject_ComparePositions(Position1,Position2)"});
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(fresh);
  ExpectTrail(Raised([&] { iterator->FirstItem(); }),
              {u"CDataFIFO.ComparePositions(Position1,Position2)",
               u"CDataFIFO.IIteratableObject_ComparePositions(Position1,Position2)",
               u"CSelectionIterator.IIterator_FirstItem()"});
}

TEST_F(CDataFIFOTest, UninitialisedPositionIsRefusedAlikeEverywhere) {
  const auto fresh = New<CDataPosition>();
  constexpr char16_t tooEarly[] = u"Method cannot be called before Initialize().";
  Fill(1);
  ExpectError(Raised([&] { FIFO->ComparePositions(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->NextPosition(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->Item(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->SelectData(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
}

} // namespace
} // namespace portico
