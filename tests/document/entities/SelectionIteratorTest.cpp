#include "document/FIFOFixture.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class CSelectionIteratorTest : public test::FIFOTest {
protected:
  static std::string Walk(const Ref<CSelectionIterator>& iterator) {
    std::string texts;
    for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
      texts += ToUtf8(FromBytes(item.ToObject<IDataEntity>()->ReadData())) + ";";
    }
    return texts;
  }
};

TEST_F(CSelectionIteratorTest, WalksAllOrTheSelection) {
  const auto entities = Fill(4);
  FIFO->SelectData(entities[1]->Position(), entities[3]->Position());
  const auto all = Iterator(u"IterateAll");
  all->Attach(FIFO);
  EXPECT_EQ(Walk(all), "1;2;3;4;");
  const auto selection = Iterator(u"IterateSelection");
  selection->Attach(FIFO);
  EXPECT_EQ(Walk(selection), "2;3;");
  EXPECT_FALSE(selection->CurrentItem().ToObject<IDataEntity>());
  EXPECT_EQ(Walk(selection), "2;3;") << "from the first item again";
}

TEST_F(CSelectionIteratorTest, StartThatIsTheEndYieldsNothing) {
  const auto entities = Fill(2);
  FIFO->SelectData(entities[1]->Position(), entities[1]->Position());
  const auto iterator = Iterator(u"IterateSelection");
  iterator->Attach(FIFO);
  EXPECT_FALSE(iterator->FirstItem().ToObject<IDataEntity>());
  EXPECT_TRUE(iterator->IsDone());
}

TEST_F(CSelectionIteratorTest, BoundsAreReadOnce) {
  const auto entities = Fill(3);
  const auto iterator = Iterator(u"IterateSelection");
  FIFO->SelectAllData();
  iterator->Attach(FIFO);
  FIFO->SelectData(entities[1]->Position(), entities[1]->Position());
  EXPECT_EQ(Walk(iterator), "1;2;3;");
}

TEST_F(CSelectionIteratorTest, CurrentItemStaysUntilTheNext) {
  const auto entities = Fill(2);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  EXPECT_FALSE(iterator->IsDone());
  EXPECT_TRUE(IsSameObject(iterator->CurrentItem().ToObject<IDataEntity>(), entities[0]));
  EXPECT_TRUE(IsSameObject(iterator->FirstItem().ToObject<IDataEntity>(), entities[0]));
  EXPECT_TRUE(IsSameObject(iterator->NextItem().ToObject<IDataEntity>(), entities[1]));
  EXPECT_TRUE(IsSameObject(iterator->CurrentItem().ToObject<IDataEntity>(), entities[1]));
  EXPECT_FALSE(iterator->NextItem().ToObject<IDataEntity>());
}

TEST_F(CSelectionIteratorTest, AttachingStartsAFinishedOneAgain) {
  Fill(1);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  Walk(iterator);
  EXPECT_TRUE(iterator->IsDone());
  iterator->Attach(FIFO);
  EXPECT_FALSE(iterator->IsDone());
}

TEST_F(CSelectionIteratorTest, EntityWithoutDataIsWalkedLikeAnyOther) {
  FIFO->Enqueue(Entity(u""));
  FIFO->Enqueue(Entity(u"2"));
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  EXPECT_EQ(Walk(iterator), ";2;");
}

TEST_F(CSelectionIteratorTest, KnowsTwoSpecificationsOnly) {
  const ErrorRecord error = Raised([] { New<CSelectionIterator>()->Initialize(u"iterateall"); });
  ExpectError(error, 5, u"Specification, iterateall, is not recognized.");
  ExpectTrail(error, {u"CSelectionIterator.Initialize(Specification)"});
  EXPECT_NE(error.Description.Text().find(u"Source: CSelectionIterator"), String::npos);
}

TEST_F(CSelectionIteratorTest, MembersAreGuardedBeforeInitialize) {
  const auto iterator = New<CSelectionIterator>();
  const auto expect = [](auto access, StringView label) {
    const ErrorRecord error = Raised(access);
    ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
    ExpectTrail(error, {label});
  };
  expect([&] { iterator->Attach(FIFO); }, u"CSelectionIterator.IIterator_Attach(Object)");
  expect([&] { iterator->CurrentItem(); }, u"CSelectionIterator.IIterator_CurrentItem()");
  expect([&] { static_cast<void>(iterator->IsDone()); }, u"CSelectionIterator.IIterator_IsDone()");
}

TEST_F(CSelectionIteratorTest, NothingCannotBeAttached) {
  const ErrorRecord error = Raised([] { Iterator(u"IterateAll")->Attach(nullptr); });
  ExpectError(error, 5, u"Iteratable object cannot be nothing.");
  ExpectTrail(error, {u"CSelectionIterator.IIterator_Attach(Object)"});
}

/// An object that knows no place.
class Placeless final : public IIteratableObject {
public:
  StringView ClassName() const override { return u"Placeless"; }
  Ref<IPosition> NextPosition(const Ref<IPosition>&) const override { return {}; }
  Value Item(const Ref<IPosition>&) const override { return {}; }
  Ref<IPosition> StartOfObject() const override { return {}; }
  Ref<IPosition> EndOfObject() const override { return {}; }

private:
  std::int32_t IIteratableObject_ComparePositions(const Ref<IPosition>&, const Ref<IPosition>&) const override {
    return 1;
  }
  std::int32_t IIteratableObject_Count() const override { return 0; }
};

TEST_F(CSelectionIteratorTest, AttachesToAnUninitialisedContainerAndFailsWhenItBegins) {
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(New<CDataFIFO>());
  ExpectError(Raised([&] { iterator->FirstItem(); }), Hex(0x80041460), u"Method cannot be called before Initialize().");
}

TEST_F(CSelectionIteratorTest, CurrentItemNeedsAnObjectAndAPosition) {
  const auto iterator = Iterator(u"IterateAll");
  const ErrorRecord object = Raised([&] { iterator->CurrentItem(); });
  ExpectError(object, 424, u"No iteratable object has been attached.");
  ExpectTrail(object, {u"CSelectionIterator.IIterator_CurrentItem()"});
  iterator->Attach(New<Placeless>());
  ExpectError(Raised([&] { iterator->CurrentItem(); }), 424, u"There is no current position.");
}

TEST_F(CSelectionIteratorTest, FirstAndNextItemFailOnNothingAttached) {
  const auto iterator = Iterator(u"IterateAll");
  const ErrorRecord first = Raised([&] { iterator->FirstItem(); });
  EXPECT_EQ(first.Number, 91);
  ExpectTrail(first, {u"CSelectionIterator.IIterator_FirstItem()"});
  const ErrorRecord next = Raised([&] { iterator->NextItem(); });
  EXPECT_EQ(next.Number, 91);
  ExpectTrail(next, {u"CSelectionIterator.IIterator_NextItem()"});
}

TEST_F(CSelectionIteratorTest, SkipToDoesNothingOrFails) {
  EXPECT_TRUE(Iterator(u"IterateAll")->SkipTo(u"a", u"b").IsEmpty());
  const ErrorRecord error = Raised([] { New<CSelectionIterator>()->SkipTo(u"a", u"b"); });
  ExpectError(error, 445, u"This method is not implemented.");
  ExpectTrail(error, {u"CSelectionIterator.IIterator_SkipTo(Name,Value)"});
}

} // namespace
} // namespace portico
