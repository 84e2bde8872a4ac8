#include "document/FIFOFixture.h"

namespace portico {
namespace {

using test::CallStack;
using test::ExpectError;
using test::ExpectTrail;
using test::Raised;

using Lines = std::vector<std::string>;

class FIFOSelectionTest : public test::FIFOTest {
protected:
  Ref<IDataEntity> Start() const { return Cast<CDataPosition>(FIFO->StartOfSelection())->DataEntity(); }
  Ref<IDataEntity> End() const { return Cast<CDataPosition>(FIFO->EndOfSelection())->DataEntity(); }
  /// An iterator over all of a new FIFO with these texts.
  static Ref<CSelectionIterator> Source(std::initializer_list<const char16_t*> texts) {
    auto source = New<CDataFIFO>();
    source->Initialize(0);
    for (const auto* text : texts) source->Enqueue(Entity(text));
    auto iterator = Iterator(u"IterateAll");
    iterator->Attach(source);
    return iterator;
  }
};

TEST_F(FIFOSelectionTest, NewFIFOHasAnEmptySelectionAtTheEndMarker) {
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  EXPECT_FALSE(Start());
  EXPECT_FALSE(End());
}

TEST_F(FIFOSelectionTest, SelectAllDataSpansAll) {
  const auto entities = Fill(2);
  FIFO->SelectAllData();
  EXPECT_TRUE(IsSameObject(Start(), entities[0]));
  EXPECT_FALSE(End());
  EXPECT_FALSE(FIFO->IsSelectionEmpty());
}

TEST_F(FIFOSelectionTest, SelectionFromTheEndMarkerIsRefused) {
  const auto entities = Fill(1);
  const ErrorRecord error = Raised([&] { FIFO->SelectData(EndMarker(), entities[0]->Position()); });
  ExpectError(error, 5, u"Starting position cannot be after ending position.");
  ExpectTrail(error, {u"CDataFIFO.SelectData(Start,End)"});
}

TEST_F(FIFOSelectionTest, PositionsMustBeInTheFIFO) {
  const auto entities = Fill(1);
  const auto absent = Entity(u"absent")->Position();
  ExpectError(Raised([&] { FIFO->SelectData(absent, absent); }), 5, u"Starting position is invalid.");
  ExpectError(Raised([&] { FIFO->SelectData(entities[0]->Position(), absent); }), 5, u"Ending position is invalid.");
  const ErrorRecord error = Raised([&] { FIFO->SelectData(nullptr, absent); });
  EXPECT_EQ(error.Number, 91);
  EXPECT_EQ(CallStack(error).back(), u"CDataFIFO.SelectData(Start={Null}, End={CDataPosition})");
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
}

TEST_F(FIFOSelectionTest, PositionsAreTakenAsTheyAre) {
  const auto entities = Fill(2);
  const auto start = entities[0]->Position(1);
  const auto end = entities[1]->Position();
  FIFO->SelectData(start, end);
  EXPECT_TRUE(IsSameObject(FIFO->StartOfSelection(), start));
  EXPECT_TRUE(IsSameObject(FIFO->EndOfSelection(), end));
}

TEST_F(FIFOSelectionTest, EmptinessIsAQuestionOfContent) {
  const auto entities = Fill(1);
  FIFO->SelectData(entities[0]->Position(), Entity(u"1", entities[0]->TimeStamp())->Position());
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  entities[0]->UpdateData(ToBytes(u"2"));
  EXPECT_FALSE(FIFO->IsSelectionEmpty());
}

TEST_F(FIFOSelectionTest, DeleteDataRemovesTheSelection) {
  const auto entities = Fill(5);
  FIFO->SelectData(entities[1]->Position(), entities[3]->Position());
  FIFO->DeleteData();
  EXPECT_EQ(Content(*FIFO), "1;4;5;");
  EXPECT_EQ(Events, (Lines{"remove 2 2", "remove 3 2"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  EXPECT_TRUE(IsSameObject(Start(), entities[3]));
  EXPECT_TRUE(IsSameObject(End(), entities[3]));
}

TEST_F(FIFOSelectionTest, DeleteDataOfAllLeavesTheEndMarkerSelected) {
  Fill(3);
  FIFO->SelectAllData();
  FIFO->DeleteData();
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0", "remove 3 0"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  EXPECT_FALSE(Start());
}

TEST_F(FIFOSelectionTest, DeleteDataOfAnEmptySelectionDoesNothing) {
  const auto entities = Fill(2);
  FIFO->DeleteData();
  FIFO->SelectData(entities[1]->Position(), entities[1]->Position());
  FIFO->DeleteData();
  EXPECT_EQ(Content(*FIFO), "1;2;");
  EXPECT_TRUE(Events.empty());
}

TEST_F(FIFOSelectionTest, SelectionWithinOneEntityIsNotProtected) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[1]->Position(0), entities[1]->Position(1));
  const ErrorRecord error = Raised([&] { FIFO->DeleteData(); });
  EXPECT_EQ(error.Number, 5);
  ExpectTrail(error, {u"CDataFIFO.DeleteData()"});
  EXPECT_EQ(Events, (Lines{"remove 2 2", "remove 3 2"}));
  EXPECT_EQ(Content(*FIFO), "1;");
}

TEST_F(FIFOSelectionTest, SelectionOfWhatHasGoneFailsTheNextUse) {
  const auto entities = Fill(2);
  FIFO->SelectData(entities[0]->Position(), EndMarker());
  FIFO->Dequeue();
  EXPECT_EQ(Raised([&] { FIFO->DeleteData(); }).Number, 5);
  EXPECT_EQ(Content(*FIFO), "2;");
}

TEST_F(FIFOSelectionTest, MergeFromTwoIntoAnEmptySelectionAtTheEndSpansTheTwo) {
  const auto entities = Fill(1);
  FIFO->MergeData(Source({u"a", u"b"}));
  EXPECT_EQ(Content(*FIFO), "1;a;b;");
  EXPECT_EQ(Events, (Lines{"add a 2", "add b 4"}));
  EXPECT_EQ(FromBytes(Start()->ReadData()), u"a");
  EXPECT_FALSE(End());
  FIFO->DeleteData();
  EXPECT_EQ(Content(*FIFO), "1;");
}

TEST_F(FIFOSelectionTest, MergeReplacesTheSelectionInFrontOfItsEnd) {
  const auto entities = Fill(4);
  FIFO->SelectData(entities[1]->Position(), entities[3]->Position());
  FIFO->MergeData(Source({u"a", u"b"}));
  EXPECT_EQ(Content(*FIFO), "1;a;b;4;");
  EXPECT_EQ(Events, (Lines{"remove 2 2", "remove 3 2", "add a 2", "add b 4"}));
  EXPECT_EQ(FromBytes(Start()->ReadData()), u"a");
  EXPECT_TRUE(IsSameObject(End(), entities[3]));
}

TEST_F(FIFOSelectionTest, MergeFromAnEmptySourceOnlyDeletes) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[0]->Position(), entities[2]->Position());
  FIFO->MergeData(Source({}));
  EXPECT_EQ(Content(*FIFO), "3;");
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
}

TEST_F(FIFOSelectionTest, MergedEntitiesAreCopiesWithNewStampsAndNoOtherAttributes) {
  const auto source = New<CDataFIFO>();
  source->Initialize(0);
  const auto original = Entity(u"a", u"log", u"Instruction");
  original->DataAttribute(u"_RTFSelectionLength", u"4");
  source->Enqueue(original);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(source);
  FIFO->MergeData(iterator);
  const auto copy = FIFO->Peek();
  EXPECT_FALSE(IsSameObject(copy, original));
  EXPECT_EQ(copy->DataType(), u"Instruction");
  EXPECT_EQ(copy->TimeStamp().substr(19), u".000000001-5:00");
  EXPECT_EQ(copy->DataAttributes()->Count(), 2);
}

TEST_F(FIFOSelectionTest, SelectionIsSetBeforeTheEventOfTheInsertion) {
  bool empty = true;
  FIFO->OnAdd.Connect([&](const Ref<IDataEntity>&, std::int64_t) { empty = FIFO->IsSelectionEmpty(); });
  FIFO->MergeData(Source({u"a"}));
  EXPECT_FALSE(empty);
}

TEST_F(FIFOSelectionTest, InsertionDoesNotEnforceTheLimit) {
  Fill(2);
  FIFO->MaximumCount(2);
  FIFO->MergeData(Source({u"a"}));
  EXPECT_EQ(Content(*FIFO), "1;2;a;");
}

TEST_F(FIFOSelectionTest, MergeNeedsAnAttachedIterator) {
  const ErrorRecord nothing = Raised([&] { FIFO->MergeData(nullptr); });
  EXPECT_EQ(nothing.Number, 91);
  ExpectTrail(nothing, {u"CDataFIFO.MergeData(Iterator)"});
  EXPECT_EQ(Raised([&] { FIFO->MergeData(Iterator(u"IterateAll")); }).Number, 91);
}

/// Yields nothing where an entity should be, once.
class EmptyHanded final : public IIterator {
public:
  StringView ClassName() const override { return u"EmptyHanded"; }
  void Attach(const Ref<IIteratableObject>&) override {}
  Value FirstItem() override { return Ref<IDataEntity>(); }
  Value CurrentItem() const override { return Ref<IDataEntity>(); }
  bool IsDone() const override { return m_done; }
  Value NextItem() override {
    m_done = true;
    return Ref<IDataEntity>();
  }
  Value SkipTo(const String&, const String&) override { return {}; }

private:
  bool m_done = false;
};

TEST_F(FIFOSelectionTest, NothingCannotBeInserted) {
  const ErrorRecord error = Raised([&] { FIFO->MergeData(New<EmptyHanded>()); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"CDataFIFO.MergeData(Iterator)"});
  EXPECT_EQ(FIFO->CopyData(New<EmptyHanded>())->Count(), 0) << "where nothing is ignored";
}

TEST_F(FIFOSelectionTest, CopyDataSharesTheEntities) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[1]->Position(), EndMarker());
  const auto copy = FIFO->CopyData(Iterator(u"IterateSelection"));
  EXPECT_EQ(Content(*copy), "2;3;");
  EXPECT_TRUE(IsSameObject(copy->Peek(), entities[1]));
  EXPECT_TRUE(copy->IsSelectionEmpty());
  EXPECT_EQ(copy->MaximumCount(), 0);
  entities[1]->UpdateData(ToBytes(u"longer"));
  EXPECT_EQ(Content(*FIFO), "1;longer;3;");
  EXPECT_EQ(Content(*copy), "longer;3;");
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(13), entities[1]));
  EXPECT_TRUE(IsSameObject(copy->EntityAtDataIndex(12), entities[2]));
  EXPECT_EQ(Content(*FIFO->CopyData(Iterator(u"IterateAll"))), "1;longer;3;");
}

TEST_F(FIFOSelectionTest, CopyDataNeedsAnIterator) {
  const ErrorRecord error = Raised([&] { FIFO->CopyData(nullptr); });
  ExpectError(error, 5, u"Iterator cannot be nothing.");
  ExpectTrail(error, {u"CDataFIFO.CopyData(Iterator)"});
}

} // namespace
} // namespace portico
