#include "DocumentTest.h"

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

TEST_F(CDataFIFOTest, LimitThrowsTheOldestOut) {
  FIFO->MaximumCount(2);
  for (const auto* text : {u"1", u"2", u"3"}) FIFO->Enqueue(Entity(text));
  EXPECT_EQ(Events, (Lines{"add 1 0", "add 2 2", "add 3 4", "exceeded 1 0"}));
  EXPECT_EQ(Content(*FIFO), "2;3;");
}

TEST_F(CDataFIFOTest, SelectionFromTheEndMarkerIsRefused) {
  const auto entities = Fill(1);
  const ErrorRecord error = Raised([&] { FIFO->SelectData(EndMarker(), entities[0]->Position()); });
  ExpectError(error, 5, u"Starting position cannot be after ending position.");
  ExpectTrail(error, {u"CDataFIFO.SelectData(Start,End)"});
}

TEST_F(CDataFIFOTest, DeleteDataRemovesTheSelection) {
  const auto entities = Fill(5);
  FIFO->SelectData(entities[1]->Position(), entities[3]->Position());
  FIFO->DeleteData();
  EXPECT_EQ(Content(*FIFO), "1;4;5;");
  EXPECT_EQ(Events, (Lines{"remove 2 2", "remove 3 2"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  EXPECT_TRUE(IsSameObject(Cast<CDataPosition>(FIFO->StartOfSelection())->DataEntity(), entities[3]));
}

TEST_F(CDataFIFOTest, DeleteDataOfAllLeavesTheEndMarkerSelected) {
  Fill(3);
  FIFO->SelectAllData();
  FIFO->DeleteData();
  EXPECT_EQ(Events, (Lines{"remove 1 0", "remove 2 0", "remove 3 0"}));
  EXPECT_TRUE(FIFO->IsSelectionEmpty());
  EXPECT_TRUE(Cast<CDataPosition>(FIFO->StartOfSelection())->IsLast());
}

} // namespace
} // namespace portico
