#include "document/FIFOFixture.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Raised;

class DocumentCreatorsTest : public test::DocumentTest {
protected:
  static Ref<IObject> Make(const CreatorRow& row, const Params& parameters) {
    return MakeCreator(row)->Create(parameters);
  }
};

TEST_F(DocumentCreatorsTest, BearTheirSpecifications) {
  EXPECT_TRUE(CtorDataEntity.Specification == u"DataEntity");
  EXPECT_TRUE(CtorDataFIFO.Specification == u"DataContainer");
  EXPECT_TRUE(CtorDataPosition.Specification == u"DataPosition");
  EXPECT_TRUE(CtorIterator.Specification == u"SelectionIterator");
}

TEST_F(DocumentCreatorsTest, EntityIsMadeFromItsThreeParameters) {
  const auto entity = Cast<IDataEntity>(Make(CtorDataEntity, {ByteArray{7}, u"Remark", u"s"}));
  EXPECT_EQ(entity->ReadData(), ByteArray{7});
  EXPECT_EQ(entity->DataType(), u"Remark");
  EXPECT_EQ(entity->TimeStamp(), u"s");
}

TEST_F(DocumentCreatorsTest, EntityCreatorReportsUnderAnOlderName) {
  const ErrorRecord error = Raised([] { Make(CtorDataEntity, {ByteArray{7}, u"Remark"}); });
  ExpectError(error, 450, u"Expected 3 parameter.");
  ExpectTrail(error, {u"CtorSubscriptionAgent.ICreator_Create(Params)"});
}

TEST_F(DocumentCreatorsTest, IteratorCreatorReportsUnderAnOlderName) {
  const ErrorRecord error = Raised([] { Make(CtorIterator, {u"Backwards"}); });
  ExpectError(error, 5, u"Specification, Backwards, is not recognized.");
  ExpectTrail(error,
              {u"CSelectionIterator.Initialize(Specification)", u"CtorSubscriptionAgent.ICreator_Create(Params)"});
  EXPECT_FALSE(Cast<IIterator>(Make(CtorIterator, {u"IterateSelection"}))->IsDone());
}

TEST_F(DocumentCreatorsTest, FIFOIsMadeWithItsMaximum) {
  const auto fifo = Cast<CDataFIFO>(Make(CtorDataFIFO, {3}));
  EXPECT_EQ(fifo->MaximumCount(), 3);
  EXPECT_EQ(fifo->Count(), 0);
  const ErrorRecord error = Raised([] { Make(CtorDataFIFO, {-1}); });
  ExpectError(error, 5, u"Max count cannot be less than zero.");
  ExpectTrail(error, {u"CDataFIFO.Initialize(MaxCount)", u"CtorDataFIFO.ICreator_Create(Params)"});
  ExpectError(Raised([] { Make(CtorDataFIFO, {}); }), 450, u"Expected 1 parameter.");
}

TEST_F(DocumentCreatorsTest, PositionIsMadeWithAndWithoutAnOffset) {
  const auto entity = Entity(u"12");
  EXPECT_EQ(Cast<CDataPosition>(Make(CtorDataPosition, {entity, 3}))->DataOffset(), 3);
  EXPECT_EQ(Cast<CDataPosition>(Make(CtorDataPosition, {entity, Value()}))->DataOffset(), 0);
  EXPECT_TRUE(Cast<CDataPosition>(Make(CtorDataPosition, {Ref<IDataEntity>(), Value()}))->IsLast());
  EXPECT_EQ(Raised([&] { Make(CtorDataPosition, {entity, 4}); }).Number, 5);
  ExpectError(Raised([&] { Make(CtorDataPosition, {entity}); }), 450, u"Expected 2 parameters.");
}

} // namespace
} // namespace portico
