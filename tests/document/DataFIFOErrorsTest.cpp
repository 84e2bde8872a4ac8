#include "DocumentTest.h"

#include "document/CDataSelection.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

using Lines = std::vector<std::string>;

class DataFIFOErrorsTest : public test::FIFOTest {};

TEST_F(DataFIFOErrorsTest, NegativeLimitIsRefused) {
  const ErrorRecord error = Raised([] { New<CDataFIFO>()->Initialize(-1); });
  ExpectError(error, 5, u"Max count cannot be less than zero.");
  ExpectTrail(error, {u"CDataFIFO.Initialize(MaxCount)"});
  EXPECT_EQ(New<CDataFIFO>()->MaximumCount(), -1);
}

TEST_F(DataFIFOErrorsTest, DequeueOnAnEmptyFifoFailsAndLeavesItUsable) {
  ExpectTrail(Raised([&] { FIFO->Dequeue(); }), {u"CDataFIFO.Dequeue()"});
  EXPECT_EQ(Raised([&] { FIFO->Dequeue(); }).Number, 5);
  EXPECT_EQ(Raised([&] { FIFO->Peek(); }).Number, 5);
  ExpectTrail(Raised([&] { FIFO->Peek(); }), {u"CDataFIFO.Peek()"});
  const auto entity = Entity(u"1");
  FIFO->Enqueue(entity);
  EXPECT_TRUE(IsSameObject(FIFO->Peek(), entity));
  EXPECT_TRUE(IsSameObject(FIFO->Dequeue(), entity));
  EXPECT_EQ(FIFO->Count(), 0);
}

TEST_F(DataFIFOErrorsTest, OneStampTwiceIsRefusedAndNothingIsAdded) {
  const auto entity = Entity(u"1", u"a stamp");
  FIFO->Enqueue(entity);
  EXPECT_EQ(Raised([&] { FIFO->Enqueue(entity); }).Number, 457);
  EXPECT_EQ(Raised([&] { FIFO->Enqueue(Entity(u"2", u"A STAMP")); }).Number, 457); // keys have no case
  ExpectTrail(Raised([&] { FIFO->Enqueue(entity); }), {u"CDataFIFO.Enqueue(DataEntity)"});
  EXPECT_EQ(Events, Lines{"add 1 0"});
  EXPECT_EQ(FIFO->Count(), 1);
}

TEST_F(DataFIFOErrorsTest, ComparePositionsNamesWhatIsWrong) {
  const auto entities = Fill(1);
  const auto here = entities[0]->Position();
  const auto elsewhere = Entity(u"x")->Position();
  ExpectError(Raised([&] { FIFO->ComparePositions(nullptr, here); }), 5, u"Position1 cannot be nothing.");
  ExpectError(Raised([&] { FIFO->ComparePositions(here, nullptr); }), 5, u"Position2 cannot be nothing.");
  ExpectError(Raised([&] { FIFO->ComparePositions(elsewhere, here); }), 5, u"Position1 is not in FIFO.");
  const ErrorRecord error = Raised([&] { FIFO->ComparePositions(here, elsewhere); });
  ExpectError(error, 5, u"Position2 is not in FIFO.");
  ExpectTrail(error, {u"CDataFIFO.ComparePositions(Position1,Position2)"});
}

TEST_F(DataFIFOErrorsTest, ComparePositionsTellsTheOrderAndIgnoresOffsets) {
  const auto entities = Fill(2);
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(), entities[1]->Position()), 1);
  EXPECT_EQ(FIFO->ComparePositions(entities[1]->Position(), entities[0]->Position()), 2);
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(0), entities[0]->Position(1)), 0);
  EXPECT_EQ(FIFO->ComparePositions(entities[1]->Position(), EndMarker()), 1);
  EXPECT_EQ(FIFO->ComparePositions(EndMarker(), EndMarker()), 0);
}

TEST_F(DataFIFOErrorsTest, ItemOfAPlaceThatIsNotThere) {
  EXPECT_FALSE(FIFO->Item(EndMarker()).ToObject<IDataEntity>());
  Fill(1);
  EXPECT_EQ(Raised([&] { FIFO->Item(EndMarker()); }).Number, 91);
  const ErrorRecord error = Raised([&] { FIFO->Item(Entity(u"x")->Position()); });
  ExpectError(error, 5, u"Index is not in FIFO.");
  ExpectTrail(error, {u"CDataFIFO.IIteratableObject_Item(Index)"});
}

TEST_F(DataFIFOErrorsTest, NextPositionOfAnAbsentOneIsTheFirst) {
  const auto entities = Fill(2);
  const auto next = [&](const Ref<IPosition>& at) { return Cast<CDataPosition>(FIFO->NextPosition(at)); };
  EXPECT_TRUE(IsSameObject(next(Entity(u"x")->Position())->DataEntity(), entities[0]));
  EXPECT_TRUE(IsSameObject(next(entities[0]->Position())->DataEntity(), entities[1]));
  EXPECT_TRUE(next(entities[1]->Position())->IsLast());
  EXPECT_TRUE(next(EndMarker())->IsLast());
}

TEST_F(DataFIFOErrorsTest, SelectionNeedsPlacesOfTheContainer) {
  const auto entities = Fill(2);
  const auto elsewhere = Entity(u"x")->Position();
  ExpectError(Raised([&] { FIFO->SelectData(elsewhere, EndMarker()); }), 5, u"Starting position is invalid.");
  ExpectError(Raised([&] { FIFO->SelectData(entities[0]->Position(), elsewhere); }), 5, u"Ending position is invalid.");
  ExpectError(Raised([&] { FIFO->SelectData(entities[1]->Position(), entities[0]->Position()); }), 5,
              u"Starting position cannot be after ending position.");
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
}

TEST_F(DataFIFOErrorsTest, CopyNeedsAnIterator) {
  const ErrorRecord error = Raised([&] { FIFO->CopyData(nullptr); });
  ExpectError(error, 5, u"Iterator cannot be nothing.");
  ExpectTrail(error, {u"CDataFIFO.CopyData(Iterator)"});
}

TEST_F(DataFIFOErrorsTest, MergeOfAnIteratorThatYieldsNothingAsAnItemIsRefused) {
  class Hollow final : public IIterator {
  public:
    StringView ClassName() const override { return u"Hollow"; }
    void Attach(const Ref<IIteratableObject>&) override {}
    Value FirstItem() override { return Ref<IObject>(); }
    Value CurrentItem() const override { return Ref<IObject>(); }
    bool IsDone() const override { return false; }
    Value NextItem() override { return Ref<IObject>(); }
    Value SkipTo(const String&, const String&) override { return {}; }
  };
  const ErrorRecord error = Raised([&] { FIFO->MergeData(New<Hollow>()); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"CDataFIFO.MergeData(Iterator)"});
}

TEST_F(DataFIFOErrorsTest, SelectionInsideOneEntityIsNotProtected) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[1]->Position(0), entities[1]->Position(1));
  EXPECT_EQ(Raised([&] { FIFO->DeleteData(); }).Number, 5);
  EXPECT_EQ(Content(*FIFO), "1;");
}

TEST_F(DataFIFOErrorsTest, OddLabelsStay) {
  const CDataFIFO fresh;
  constexpr char16_t tooEarly[] = u"Property cannot be accessed before Initialize().";
  const ErrorRecord all = Raised([] { New<CDataFIFO>()->SelectAllData(); });
  ExpectError(all, Hex(0x80041460), tooEarly);
  ExpectTrail(all, {u"CDataFIFO.SelectData()"});
  ExpectTrail(Raised([&] { fresh.Count(); }), {u"CDataFIFO.Count(DataEntity)"});
  ExpectTrail(Raised([&] { fresh.IsSelectionEmpty(); }), {u"CDataFIFO.IIteratableObject_Item()"});
  ExpectTrail(Raised([&] { fresh.EndOfSelection(); }), {u"Get CDataFIFO.ISelectableObject_EndOfSelection()"});
}

TEST_F(DataFIFOErrorsTest, EveryOtherMemberBearsItsOwnLabel) {
  const auto fresh = New<CDataFIFO>();
  ExpectTrail(Raised([&] { fresh->Clear(); }), {u"CDataFIFO.Clear()"});
  ExpectTrail(Raised([&] { fresh->DeleteData(); }), {u"CDataFIFO.DeleteData()"});
  ExpectTrail(Raised([&] { fresh->EntityAtDataIndex(1); }), {u"CDataFIFO.EntityAtDataIndex(Index)"});
  ExpectTrail(Raised([&] { fresh->NextPosition(EndMarker()); }), {u"CDataFIFO.IIteratableObject_NextPosition(Index)"});
  ExpectTrail(Raised([&] { fresh->StartOfSelection(); }), {u"CDataFIFO.ISelectableObject_StartOfSelection()"});
  const auto position = New<CDataPosition>();
  ExpectTrail(Raised([&] { position->DataOffset(); }), {u"CDataPosition.DataOffset()"});
  ExpectTrail(Raised([&] { position->DataEntity(); }), {u"CDataPosition.DataEntity()"});
  ExpectTrail(Raised([&] { position->IsLast(); }), {u"CDataPosition.IsLast()"});
  CDataSelection selection;
  ExpectTrail(Raised([&] { selection.Initialize({}, {}); }), {u"CDataSelection.Initialize(Start,End)"});
  ExpectTrail(Raised([&] { selection.StartingPosition(); }), {u"CDataSelection.StartingPosition()"});
  ExpectTrail(Raised([&] { selection.EndingPosition(); }), {u"CDataSelection.EndingPosition()"});
  ExpectTrail(Raised([&] { selection.IsEmpty(); }), {u"CDataSelection.IsEmpty()"});
  const auto iterator = New<CSelectionIterator>();
  ExpectTrail(Raised([&] { iterator->Attach(FIFO); }), {u"CSelectionIterator.IIterator_Attach(Object)"});
  ExpectTrail(Raised([&] { iterator->IsDone(); }), {u"CSelectionIterator.IIterator_IsDone()"});
  ExpectTrail(Raised([] { Iterator(u"IterateAll")->FirstItem(); }), {u"CSelectionIterator.IIterator_FirstItem()"});
  ExpectTrail(Raised([] { Iterator(u"IterateAll")->NextItem(); }), {u"CSelectionIterator.IIterator_NextItem()"});
}

TEST_F(DataFIFOErrorsTest, PositionWhoseEntityHasGoneFailsItsNextUse) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[0]->Position({}), entities[2]->Position({}));
  FIFO->Dequeue();
  EXPECT_EQ(Raised([&] { FIFO->DeleteData(); }).Number, 5);
  EXPECT_EQ(Content(*FIFO), "2;3;");
}

TEST_F(DataFIFOErrorsTest, UninitialisedPositionIsRefusedAlikeEverywhere) {
  const auto fresh = New<CDataPosition>();
  constexpr char16_t tooEarly[] = u"Method cannot be called before Initialize().";
  Fill(1);
  ExpectError(Raised([&] { FIFO->ComparePositions(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->NextPosition(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->Item(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->SelectData(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
}

TEST_F(DataFIFOErrorsTest, MembersAreRefusedBeforeInitialize) {
  constexpr char16_t tooEarly[] = u"Property cannot be accessed before Initialize().";
  const auto fresh = New<CDataFIFO>();
  const auto early = [&](auto call) { ExpectError(Raised(call), Hex(0x80041460), tooEarly); };
  early([&] { fresh->Enqueue(Entity(u"1")); });
  early([&] { fresh->Dequeue(); });
  early([&] { fresh->Peek(); });
  early([&] { fresh->SelectData(EndMarker(), EndMarker()); });
  early([&] { fresh->CopyData(Iterator(u"IterateAll")); });
  early([&] { fresh->MergeData(Iterator(u"IterateAll")); });
  early([&] { fresh->EntityAtDataIndex(0); });
  early([&] { fresh->DeleteData(); });
  early([&] { fresh->Count(); });
  early([&] { fresh->Clear(); });
  early([&] { fresh->NextPosition(EndMarker()); });
  early([&] { fresh->Item(EndMarker()); });
  early([&] { fresh->StartOfSelection(); });
  ExpectError(Raised([&] { fresh->ComparePositions(EndMarker(), EndMarker()); }), Hex(0x80041460),
              u"Method cannot be called before Initialize().");
}

class DataFIFOTest : public test::FIFOTest {};

TEST_F(DataFIFOTest, EntityAtDataIndexHoldsThatByte) {
  const auto a = Entity(u"aa");
  const auto none = Entity(u"");
  const auto b = Entity(u"b");
  for (const auto& entity : {a, none, b}) FIFO->Enqueue(entity);
  EXPECT_EQ(Events, (Lines{"add aa 0", "add  4", "add b 4"}));
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(-5), a));
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(3), a));
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(4), b));
  EXPECT_FALSE(FIFO->EntityAtDataIndex(6));
}

TEST_F(DataFIFOTest, ClearDequeuesOneByOneAndKeepsTheSelection) {
  const auto entities = Fill(2);
  FIFO->SelectData(entities[0]->Position(), EndMarker());
  FIFO->Clear();
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0"}));
  EXPECT_FALSE(Cast<CDataPosition>(FIFO->StartOfSelection())->IsLast());
}

TEST_F(DataFIFOTest, LimitActsInEnqueueOnly) {
  Fill(3);
  FIFO->MaximumCount(1);
  EXPECT_EQ(FIFO->Count(), 3);
  FIFO->Enqueue(Entity(u"4"));
  EXPECT_EQ(Events, (Lines{"add 4 6", "exceeded 1 0", "exceeded 2 0", "exceeded 3 0"}));
  const auto source = New<CDataFIFO>();
  source->Initialize(0);
  source->Enqueue(Entity(u"5"));
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(source);
  FIFO->MergeData(iterator);
  EXPECT_EQ(Content(*FIFO), "4;5;");
}

TEST_F(DataFIFOTest, MergeOfNothingDeletesTheSelection) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[0]->Position(), entities[2]->Position());
  const auto empty = New<CDataFIFO>();
  empty->Initialize(0);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(empty);
  FIFO->MergeData(iterator);
  EXPECT_EQ(Content(*FIFO), "3;");
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
}

TEST_F(DataFIFOTest, MergeAtTheEndMarkerSelectsCopiesWithNewStamps) {
  Fill(1);
  const auto source = New<CDataFIFO>();
  source->Initialize(0);
  const auto a = Entity(u"a");
  a->DataAttribute(u"DataFormat", u"String");
  source->Enqueue(a);
  source->Enqueue(Entity(u"b"));
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(source);
  FIFO->MergeData(iterator);
  EXPECT_EQ(Content(*FIFO), "1;a;b;");
  EXPECT_EQ(Events, (Lines{"add a 2", "add b 4"}));
  const auto copy = Cast<CDataPosition>(FIFO->StartOfSelection())->DataEntity();
  EXPECT_EQ(FromBytes(copy->ReadData()), u"a");
  EXPECT_NE(copy->TimeStamp(), a->TimeStamp());
  EXPECT_EQ(copy->DataType(), a->DataType());
  EXPECT_EQ(copy->DataAttributes()->Count(), 2);
  EXPECT_TRUE(Cast<CDataPosition>(FIFO->EndOfSelection())->IsLast());
}

TEST_F(DataFIFOTest, MergeInTheMiddleInsertsBeforeTheEnd) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[1]->Position(), entities[2]->Position());
  const auto source = New<CDataFIFO>();
  source->Initialize(0);
  source->Enqueue(Entity(u"a"));
  source->Enqueue(Entity(u"b"));
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(source);
  bool selected = false;
  FIFO->OnAdd.Connect([&](const Ref<IDataEntity>&, std::int64_t) { selected = !FIFO->IsSelectionEmpty(); });
  FIFO->MergeData(iterator);
  EXPECT_TRUE(selected); // the selection is there before the event
  EXPECT_EQ(Content(*FIFO), "1;a;b;3;");
  const auto walk = Iterator(u"IterateSelection");
  walk->Attach(FIFO);
  EXPECT_EQ(Content(*FIFO->CopyData(walk)), "a;b;");
}

TEST_F(DataFIFOTest, CopySharesItsEntities) {
  const auto entities = Fill(2);
  const auto copy = FIFO->CopyData(Iterator(u"IterateAll"));
  entities[0]->UpdateData(ToBytes(u"new"));
  EXPECT_EQ(Content(*FIFO), "new;2;");
  EXPECT_EQ(Content(*copy), "new;2;");
  EXPECT_EQ(copy->MaximumCount(), 0);
  EXPECT_TRUE(copy->IsSelectionEmpty());
}

TEST_F(DataFIFOTest, EntityWithoutDataComparesAndIteratesLikeAnyOther) {
  const auto none = Entity(u"");
  FIFO->Enqueue(none);
  FIFO->Enqueue(Entity(u"2"));
  EXPECT_EQ(Cast<CDataPosition>(none->Position({}))->DataOffset(), -1);
  EXPECT_EQ(FIFO->ComparePositions(none->Position({}), EndMarker()), 1);
  EXPECT_EQ(Content(*FIFO), ";2;");
}

} // namespace
} // namespace portico
