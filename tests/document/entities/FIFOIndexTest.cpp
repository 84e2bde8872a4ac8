#include "document/FIFOFixture.h"
#include "document/entities/ForeignEntity.h"

#include "document/entities/EntityIndex.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ForeignEntity;
using test::Hex;
using test::Raised;

using Lines = std::vector<std::string>;

/// What the FIFO finds after the content of its entities has changed.
class FIFOIndexTest : public test::FIFOTest {
protected:
  bool Has(const Ref<IDataEntity>& entity) const {
    try {
      FIFO->Item(entity->Position());
      return true;
    } catch (const Error&) {
      return false;
    }
  }
  static Ref<IDataEntity> Twin(const Ref<IDataEntity>& entity, const String& stamp) {
    return Entity(FromBytes(entity->ReadData()), stamp, entity->DataType());
  }
};

TEST_F(FIFOIndexTest, EqualEntityIsFoundLikeTheHeldOne) {
  const auto held = Fill(3)[1];
  EXPECT_TRUE(Has(Twin(held, held->TimeStamp())));
  EXPECT_FALSE(Has(Twin(held, u"other")));
  EXPECT_FALSE(Has(Entity(u"other", held->TimeStamp())));
}

TEST_F(FIFOIndexTest, ChangedStampIsFoundByEveryRoad) {
  const auto held = Fill(3)[1];
  const auto known = Ref<CDataEntity>(CDataEntity::From(held)->shared_from_this());
  const auto setting = held->DataAttributes()->Item(u"Timestamp");
  int number = 0;
  const auto expectFound = [&](auto change) {
    const String before = held->TimeStamp();
    const String stamp = u"stamp" + ToText(std::int64_t{++number});
    change(stamp);
    EXPECT_TRUE(Has(Twin(held, stamp))) << number;
    EXPECT_FALSE(Has(Twin(held, before))) << number;
  };
  expectFound([&](const String& stamp) { known->TimeStamp(stamp); });
  expectFound([&](const String& stamp) { known->DataAttributeValue(u"TIMESTAMP", stamp); });
  expectFound([&](const String& stamp) { held->DataAttribute(u"Timestamp", stamp); });
  expectFound([&](const String& stamp) { held->DataAttributes()->ItemValue(u"Timestamp", stamp); });
  expectFound([&](const String& stamp) { setting->Value(stamp); });
  expectFound([&](const String& stamp) { Cast<CSetting>(setting)->Initialize(u"Timestamp", stamp); });
  expectFound([&](const String& stamp) { held->DataAttributes()->NewEnum()[1]->Value(stamp); });
  expectFound([&](const String& stamp) {
    held->DataAttributes()->Remove(u"Timestamp");
    held->DataAttributes()->Add(u"Timestamp", stamp);
  });
}

TEST_F(FIFOIndexTest, SettingThatWasTakenOutIsNoRoadAnyMore) {
  const auto held = Fill(1)[0];
  const auto setting = held->DataAttributes()->Item(u"Timestamp");
  held->DataAttributes()->Remove(u"Timestamp");
  held->DataAttributes()->Add(u"Timestamp", u"new");
  setting->Value(u"old");
  EXPECT_TRUE(Has(Twin(held, u"new")));
}

TEST_F(FIFOIndexTest, EntityWithoutAStampIsFoundByItsEqual) {
  const auto entities = Fill(3);
  entities[1]->DataAttributes()->Remove(u"Timestamp");
  const auto twin = Entity(u"2");
  EXPECT_FALSE(Has(twin));
  twin->DataAttributes()->Remove(u"Timestamp");
  EXPECT_TRUE(Has(twin));
  EXPECT_TRUE(Has(entities[1]));
  Cast<CSettings>(entities[1]->DataAttributes())->Clear();
  EXPECT_FALSE(Has(twin));
}

TEST_F(FIFOIndexTest, StampInAnotherCaseIsAnotherStamp) {
  const auto held = Entity(u"1", u"stamp");
  FIFO->Enqueue(held);
  EXPECT_FALSE(Has(Entity(u"1", u"STAMP")));
  held->TimeStamp(u"STAMP");
  EXPECT_TRUE(Has(Entity(u"1", u"STAMP")));
  EXPECT_FALSE(Has(Entity(u"1", u"stamp")));
}

TEST_F(FIFOIndexTest, KeyIsUniqueAmongFewAndAmongMany) {
  const auto stamp = [](int number) { return u"2004-02-09T08:05:03." + ToText(std::int64_t{number}) + u"-5:00"; };
  const auto refused = [&](const String& key) {
    return Raised([&] { FIFO->Enqueue(Entity(u"again", key)); }).Number == 457;
  };
  std::vector<Ref<IDataEntity>> entities;
  for (int count = 1; count <= 40; ++count) {
    entities.push_back(Entity(u"1", stamp(count)));
    FIFO->Enqueue(entities.back());
    for (int present = 1; present <= count; ++present) {
      EXPECT_TRUE(refused(stamp(present))) << present << " of " << count;
      EXPECT_TRUE(refused(ReplaceAll(stamp(present), u"T", u"t"))) << present << " of " << count;
      EXPECT_TRUE(Has(Twin(entities[static_cast<std::size_t>(present - 1)], stamp(present)))) << present;
    }
  }
  EXPECT_EQ(FIFO->Count(), 40);
  while (FIFO->Count() > 3) FIFO->Dequeue();
  EXPECT_TRUE(refused(stamp(39)));
  FIFO->Enqueue(Entity(u"again", stamp(1))); // which has gone
  EXPECT_TRUE(refused(stamp(1)));
}

TEST_F(FIFOIndexTest, FirstOfTwoEqualsIsMeant) {
  const auto entities = Fill(3);
  for (const std::size_t i : {2u, 0u}) {
    entities[i]->UpdateData(ToBytes(u"same"));
    entities[i]->DataAttribute(u"Timestamp", u"same");
  }
  EXPECT_EQ(FIFO->ComparePositions(entities[2]->Position(), entities[1]->Position()), 1);
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(), entities[2]->Position()), 0);
}

TEST_F(FIFOIndexTest, ObjectThatStandsTwiceIsMeantWhereItStandsFirst) {
  const auto entities = Fill(2);
  entities[0]->DataAttribute(u"Timestamp", u"later");
  FIFO->Enqueue(entities[0]);
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(), entities[1]->Position()), 1);
  FIFO->Dequeue();
  EXPECT_EQ(FIFO->ComparePositions(entities[0]->Position(), entities[1]->Position()), 2);
}

TEST_F(FIFOIndexTest, EntityWithARenamedAttributeEqualsNotEvenItself) {
  const auto entities = Fill(2);
  const auto setting = Cast<CSetting>(entities[0]->DataAttributes()->Item(u"DataType"));
  setting->Name(u"Other");
  EXPECT_FALSE(Has(entities[0]));
  EXPECT_TRUE(Has(entities[1]));
  ExpectError(Raised([&] { FIFO->Dequeue(); }), 51, u"Cannot find a data entity in this container.");
  EXPECT_EQ(FIFO->Count(), 2);
  setting->Name(u"DATATYPE");
  EXPECT_TRUE(Has(entities[0]));
}

TEST_F(FIFOIndexTest, EntityMadeAnewIsFoundByItsNewContent) {
  const auto entities = Fill(2);
  CDataEntity::From(entities[0])->Initialize(ToBytes(u"longer"), u"Remark", u"again");
  EXPECT_TRUE(Has(Entity(u"longer", u"again", u"Remark")));
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(12), entities[1]));
}

TEST_F(FIFOIndexTest, EmptyFIFOTouchesNobody) {
  Lines calls;
  const auto foreign = New<ForeignEntity>(u"f", ByteArray(2), calls);
  auto position = New<CDataPosition>();
  position->Initialize(foreign, NoDataOffset);
  EXPECT_FALSE(Has(New<CDataEntity>()));
  ExpectError(Raised([&] { FIFO->Item(position); }), 5, u"Index is not in FIFO.");
  EXPECT_EQ(calls, Lines());
}

TEST_F(FIFOIndexTest, EntityThatIsNotInitialisedFailsAtTheFirstHeldOne) {
  Fill(1);
  auto position = New<CDataPosition>();
  position->Initialize(New<CDataEntity>(), NoDataOffset);
  ExpectError(Raised([&] { FIFO->Item(position); }), Hex(0x80041460),
              u"Property cannot be accessed before Initialize().");
}

TEST_F(FIFOIndexTest, HeldEntityOfAnotherClassIsAskedInItsTurn) {
  Lines calls;
  const auto foreign = New<ForeignEntity>(u"f", ByteArray(2), calls);
  FIFO->Enqueue(foreign);
  EXPECT_EQ(calls, (Lines{"f.TimeStamp", "f.CompareToMe", "f.TimeStamp", "f.ReadData"})) << "the last for the event";
  const auto own = Entity(u"1");
  calls.clear();
  FIFO->Enqueue(own);
  EXPECT_EQ(calls, (Lines{"f.CompareToMe", "f.DataLength"}));
  calls.clear();
  EXPECT_TRUE(IsSameObject(FIFO->EntityAtDataIndex(3), own));
  EXPECT_EQ(calls, (Lines{"f.DataLength"}));
  foreign->Fails = true;
  EXPECT_EQ(Raised([&] { FIFO->Item(own->Position()); }).Number, 6);
  foreign->Fails = false;
  calls.clear();
  EXPECT_EQ(FIFO->ComparePositions(own->Position(), own->Position()), 0);
  EXPECT_EQ(calls.size(), 4u) << "each position is looked for twice";
}

TEST_F(FIFOIndexTest, FIFOThatGoesLetsItsEntitiesGo) {
  const auto entity = Entity(u"1");
  auto other = New<CDataFIFO>();
  other->Initialize(0);
  other->Enqueue(entity);
  FIFO->Enqueue(entity);
  other = {};
  entity->TimeStamp(u"later");
  entity->UpdateData(ByteArray(6));
  EXPECT_TRUE(Has(entity));
  EXPECT_EQ(entity.Shared().use_count(), 2);
  FIFO = {};
  entity->TimeStamp(u"latest");
  EXPECT_EQ(entity.Shared().use_count(), 1);
}

TEST_F(FIFOIndexTest, FollowingStampsStandSideBySide) {
  const auto hash = [](const char16_t* stamp) { return HashOfStamp(PackedText(stamp)); };
  const std::uint32_t first = hash(u"2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(hash(u"2004-02-09T08:05:03.000000002-5:00"), first + 1);
  EXPECT_EQ(hash(u"2004-02-09t08:05:03.000000001-5:00"), first);
  EXPECT_NE(hash(u"2004-02-09T08:05:04.000000001-5:00"), first);
}

} // namespace
} // namespace portico
