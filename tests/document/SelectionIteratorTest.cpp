#include "DocumentTest.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class CSelectionIteratorTest : public test::FIFOTest {
protected:
  /// The texts that the iterator yields.
  static std::string Walk(IIterator& iterator) {
    std::string texts;
    for (Value item = iterator.FirstItem(); !iterator.IsDone(); item = iterator.NextItem()) {
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
  EXPECT_EQ(Walk(*all), "1;2;3;4;");
  const auto selection = Iterator(u"IterateSelection");
  selection->Attach(FIFO);
  EXPECT_EQ(Walk(*selection), "2;3;");
}

TEST_F(CSelectionIteratorTest, LaterChangesOfTheSelectionDoNotReachIt) {
  const auto entities = Fill(3);
  FIFO->SelectData(entities[0]->Position(), entities[2]->Position());
  const auto iterator = Iterator(u"IterateSelection");
  iterator->Attach(FIFO);
  FIFO->SelectAllData();
  EXPECT_EQ(Walk(*iterator), "1;2;");
}

TEST_F(CSelectionIteratorTest, StaysOnTheLastItemWhenDone) {
  Fill(1);
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  EXPECT_TRUE(iterator->FirstItem().ToObject<IDataEntity>());
  EXPECT_FALSE(iterator->IsDone());
  EXPECT_FALSE(iterator->NextItem().ToObject<IDataEntity>());
  EXPECT_TRUE(iterator->IsDone());
  EXPECT_FALSE(iterator->CurrentItem().ToObject<IDataEntity>());
  EXPECT_TRUE(iterator->FirstItem().ToObject<IDataEntity>());
  EXPECT_FALSE(iterator->IsDone());
}

TEST_F(CSelectionIteratorTest, PassesOverAnEntityWithoutDataAsOverAnyOther) {
  FIFO->Enqueue(Entity(u"1"));
  FIFO->Enqueue(Entity(u""));
  FIFO->Enqueue(Entity(u"3"));
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(FIFO);
  EXPECT_EQ(Walk(*iterator), "1;;3;");
}

TEST_F(CSelectionIteratorTest, UnknownSpecificationIsRefusedUnderItsOwnSource) {
  const ErrorRecord error = Raised([] { Iterator(u"IterateSome"); });
  ExpectError(error, 5, u"Specification, IterateSome, is not recognized.");
  EXPECT_NE(error.Description.Text().find(u"Source: CSelectionIterator "), String::npos);
  ExpectTrail(error, {u"CSelectionIterator.Initialize(Specification)"});
}

TEST_F(CSelectionIteratorTest, CreatorTakesOneParameterAndBearsAnOlderName) {
  const ErrorRecord error = Raised([] { gObjectFactory->CreateObject(u"SelectionIterator", modGlobals::VarArray()); });
  ExpectError(error, 450, u"Expected 1 parameter.");
  ExpectTrail(error, {u"CtorSubscriptionAgent.ICreator_Create(Params)"});
}

TEST_F(CSelectionIteratorTest, AttachesToNothingNever) {
  ExpectError(Raised([] { Iterator(u"IterateAll")->Attach(nullptr); }), 5, u"Iteratable object cannot be nothing.");
}

TEST_F(CSelectionIteratorTest, WithoutAnObjectThereIsNoItem) {
  const ErrorRecord error = Raised([] { Iterator(u"IterateAll")->CurrentItem(); });
  ExpectError(error, 424, u"No iteratable object has been attached.");
  ExpectTrail(error, {u"CSelectionIterator.IIterator_CurrentItem()"});
}

/// An object that knows no place.
class Placeless final : public IIteratableObject {
public:
  StringView ClassName() const override { return u"Placeless"; }
  std::int32_t ComparePositions(const Ref<IPosition>&, const Ref<IPosition>&) const override { return 1; }
  Ref<IPosition> NextPosition(const Ref<IPosition>&) const override { return {}; }
  Value Item(const Ref<IPosition>&) const override { return {}; }
  Ref<IPosition> StartOfObject() const override { return {}; }
  Ref<IPosition> EndOfObject() const override { return {}; }
  std::int32_t Count() const override { return 0; }
};

TEST_F(CSelectionIteratorTest, WithoutAPositionThereIsNoItem) {
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(New<Placeless>());
  ExpectError(Raised([&] { iterator->CurrentItem(); }), 424, u"There is no current position.");
}

TEST_F(CSelectionIteratorTest, SkipToDoesNothing) {
  EXPECT_TRUE(Iterator(u"IterateAll")->SkipTo(u"a", u"b").IsEmpty());
  const ErrorRecord error = Raised([] { New<CSelectionIterator>()->SkipTo(u"a", u"b"); });
  ExpectError(error, 445, u"This method is not implemented.");
  ExpectTrail(error, {u"CSelectionIterator.IIterator_SkipTo(Name,Value)"});
}

TEST_F(CSelectionIteratorTest, MembersAreRefusedBeforeInitialize) {
  constexpr char16_t tooEarly[] = u"Property cannot be accessed before Initialize().";
  const auto fresh = New<CSelectionIterator>();
  ExpectError(Raised([&] { fresh->Attach(FIFO); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { fresh->CurrentItem(); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { fresh->IsDone(); }), Hex(0x80041460), tooEarly);
}

TEST_F(CSelectionIteratorTest, AttachesToAnUninitialisedContainerAndFailsWhenItBegins) {
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(New<CDataFIFO>());
  ExpectError(Raised([&] { iterator->FirstItem(); }), Hex(0x80041460), u"Method cannot be called before Initialize().");
}

} // namespace
} // namespace portico
