#include "DocumentTest.h"

#include "document/CDataSelection.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

constexpr char16_t kMethodTooEarly[] = u"Method cannot be called before Initialize().";
constexpr char16_t kPropertyTooEarly[] = u"Property cannot be accessed before Initialize().";

class CDataPositionTest : public test::DocumentTest {
protected:
  static Ref<CDataPosition> At(const Ref<IDataEntity>& entity, std::optional<std::int32_t> offset = {}) {
    auto position = New<CDataPosition>();
    position->Initialize(entity, offset);
    return position;
  }
};

TEST_F(CDataPositionTest, EndMarkerHasNoEntityAndTheOffsetZero) {
  const auto marker = At(nullptr);
  EXPECT_TRUE(marker->IsLast());
  EXPECT_FALSE(marker->DataEntity());
  EXPECT_EQ(marker->DataOffset(), 0);
  EXPECT_EQ(At(nullptr, 0)->DataOffset(), 0);
}

TEST_F(CDataPositionTest, EndMarkerWithAnotherOffsetIsRefused) {
  for (const std::int32_t offset : {-1, 1}) {
    const ErrorRecord error = Raised([&] { At(nullptr, offset); });
    ExpectError(error, 5, u"If DataEntity is nothing, DataOffset must be DATA_firstIndex");
    ExpectTrail(error, {u"CDataPosition.Initialize(DataEntity,DataOffset)"});
  }
}

TEST_F(CDataPositionTest, WithoutAnOffsetItIsTheFirstByte) { EXPECT_EQ(At(Entity(u"text"))->DataOffset(), 0); }

TEST_F(CDataPositionTest, OnAnEntityWithoutDataTheOffsetIsMinusOne) { EXPECT_EQ(At(Entity(u""))->DataOffset(), -1); }

TEST_F(CDataPositionTest, OffsetLiesInTheDataOrIsMinusOne) {
  const auto entity = Entity(u"ab");
  for (const std::int32_t offset : {-1, 0, 3}) EXPECT_EQ(At(entity, offset)->DataOffset(), offset);
  for (const std::int32_t offset : {-2, 4}) {
    ExpectError(Raised([&] { At(entity, offset); }), 5, u"DataOffset is an invalid index into data.");
  }
}

TEST_F(CDataPositionTest, EntityMakesItsPositionsUnderTheCreatorsLabel) {
  const auto entity = Entity(u"ab");
  const auto position = Cast<CDataPosition>(entity->Position(2));
  EXPECT_EQ(position->DataOffset(), 2);
  EXPECT_TRUE(IsSameObject(position->DataEntity(), entity));
  EXPECT_FALSE(position->IsLast());
  const ErrorRecord error = Raised([&] { entity->Position(4); });
  ExpectTrail(error, {u"CDataPosition.Initialize(DataEntity,DataOffset)", u"CtorDataPosition.ICreator_Create(Params)",
                      u"CDataEntity.IDataEntity_Position(DataOffset)"});
}

TEST_F(CDataPositionTest, FactoryTakesAnOmittedOffset) {
  const auto entity = Entity(u"ab");
  const auto make = [&](const Value& offset) {
    return Create<CDataPosition>(u"DataPosition", Params{Ref<IDataEntity>(entity), offset});
  };
  EXPECT_EQ(make(Value())->DataOffset(), 0);
  EXPECT_EQ(make(3)->DataOffset(), 3);
}

TEST_F(CDataPositionTest, IdIsTheStampOfItsEntity) {
  EXPECT_EQ(At(Entity(u"ab", u"a stamp"))->ID(), u"a stamp");
  EXPECT_EQ(Raised([&] { At(nullptr)->ID(); }).Number, 91);
}

TEST_F(CDataPositionTest, IsSameComparesContentAndOffset) {
  const auto position = At(Entity(u"ab", u"a stamp"), 0);
  EXPECT_TRUE(position->IsSame(At(Entity(u"ab", u"a stamp"), 0)));
  EXPECT_FALSE(position->IsSame(At(Entity(u"ab", u"a stamp"), 1)));
  EXPECT_FALSE(position->IsSame(At(Entity(u"ab", u"another"), 0)));
  EXPECT_TRUE(At(nullptr)->IsSame(At(nullptr)));
}

TEST_F(CDataPositionTest, IsSameAsksTheArgumentsEntity) {
  const auto position = At(Entity(u"ab"));
  EXPECT_FALSE(At(nullptr)->IsSame(position));
  const ErrorRecord error = Raised([&] { position->IsSame(At(nullptr)); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CDataPosition.IsSame(Position)"});
}

TEST_F(CDataPositionTest, IsSameWithNothingIsRefused) {
  ExpectError(Raised([&] { At(nullptr)->IsSame(nullptr); }), 5, u"Position cannot be nothing.");
}

TEST_F(CDataPositionTest, MembersAreRefusedBeforeInitialize) {
  const auto fresh = New<CDataPosition>();
  ExpectError(Raised([&] { fresh->DataOffset(); }), Hex(0x80041460), kPropertyTooEarly);
  ExpectError(Raised([&] { fresh->DataEntity(); }), Hex(0x80041460), kPropertyTooEarly);
  ExpectError(Raised([&] { fresh->IsLast(); }), Hex(0x80041460), kMethodTooEarly);
  ExpectError(Raised([&] { fresh->IsSame(fresh); }), Hex(0x80041460), kMethodTooEarly);
  const ErrorRecord error = Raised([&] { fresh->ID(); });
  ExpectError(error, Hex(0x80041460), kMethodTooEarly);
  ExpectTrail(error, {u"CDataPosition.IPosition_ID()"});
}

class CDataSelectionTest : public CDataPositionTest {};

TEST_F(CDataSelectionTest, KeepsItsEnds) {
  const auto start = At(Entity(u"a"));
  const auto end = At(nullptr);
  CDataSelection selection;
  selection.Initialize(start, end);
  EXPECT_TRUE(IsSameObject(selection.StartingPosition(), start));
  EXPECT_TRUE(IsSameObject(selection.EndingPosition(), end));
  EXPECT_FALSE(selection.IsEmpty());
}

TEST_F(CDataSelectionTest, IsEmptyWhenItsEndsAreTheSame) {
  CDataSelection selection;
  selection.Initialize(At(nullptr), At(nullptr));
  EXPECT_TRUE(selection.IsEmpty());
}

TEST_F(CDataSelectionTest, NeitherEndMayBeNothing) {
  CDataSelection selection;
  ExpectError(Raised([&] { selection.Initialize(nullptr, At(nullptr)); }), 5, u"Starting position cannot be nothing.");
  ExpectError(Raised([&] { selection.Initialize(At(nullptr), nullptr); }), 5, u"Ending position cannot be nothing.");
}

TEST_F(CDataSelectionTest, MembersAreRefusedBeforeInitialize) {
  const CDataSelection fresh;
  ExpectError(Raised([&] { fresh.StartingPosition(); }), Hex(0x80041460), kPropertyTooEarly);
  ExpectError(Raised([&] { fresh.EndingPosition(); }), Hex(0x80041460), kPropertyTooEarly);
  ExpectError(Raised([&] { fresh.IsEmpty(); }), Hex(0x80041460), kMethodTooEarly);
}

} // namespace
} // namespace portico
