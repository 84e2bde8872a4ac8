#include "document/FIFOFixture.h"

#include "document/entities/CDataSelection.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class CDataPositionTest : public test::DocumentTest {
protected:
  static Ref<CDataPosition> At(const Ref<IDataEntity>& entity, std::optional<std::int32_t> offset = {}) {
    auto position = New<CDataPosition>();
    position->Initialize(entity, offset);
    return position;
  }
};
class CDataSelectionTest : public CDataPositionTest {
protected:
  static Ref<CDataSelection> Selection(const Ref<CDataPosition>& start, const Ref<CDataPosition>& end) {
    auto selection = New<CDataSelection>();
    selection->Initialize(start, end);
    return selection;
  }
};

TEST_F(CDataPositionTest, WithoutAnEntityIsTheEndMarker) {
  EXPECT_TRUE(At(nullptr)->IsLast());
  EXPECT_EQ(At(nullptr)->DataOffset(), 0);
  EXPECT_FALSE(At(nullptr)->DataEntity());
  EXPECT_TRUE(At(nullptr, 0)->IsLast());
}

TEST_F(CDataPositionTest, EndMarkerHasNoOtherOffset) {
  for (const std::int32_t offset : {-1, 1}) {
    const ErrorRecord error = Raised([&] { At(nullptr, offset); });
    ExpectError(error, 5, u"If DataEntity is nothing, DataOffset must be DATA_firstIndex");
    ExpectTrail(error, {u"CDataPosition.Initialize(DataEntity,DataOffset)"});
  }
}

TEST_F(CDataPositionTest, WithoutAnOffsetPointsAtTheFirstByteOrNowhere) {
  EXPECT_EQ(At(Entity(u"1"))->DataOffset(), 0);
  EXPECT_EQ(At(Entity(u""))->DataOffset(), -1);
  EXPECT_FALSE(At(Entity(u""))->IsLast());
}

TEST_F(CDataPositionTest, OffsetLiesWithinTheDataOrIsMinusOne) {
  const auto entity = Entity(u"1");
  for (const std::int32_t offset : {-1, 0, 1}) EXPECT_EQ(At(entity, offset)->DataOffset(), offset);
  for (const std::int32_t offset : {-2, 2}) {
    ExpectError(Raised([&] { At(entity, offset); }), 5, u"DataOffset is an invalid index into data.");
  }
  EXPECT_EQ(At(Entity(u""), -1)->DataOffset(), -1);
  ExpectError(Raised([] { At(Entity(u""), 0); }), 5, u"DataOffset is an invalid index into data.");
}

TEST_F(CDataPositionTest, IsSameComparesContentAndOffset) {
  EXPECT_TRUE(At(Entity(u"1", u"s"))->IsSame(At(Entity(u"1", u"s"))));
  EXPECT_FALSE(At(Entity(u"1", u"s"))->IsSame(At(Entity(u"1", u"s"), 1)));
  EXPECT_FALSE(At(Entity(u"1", u"s"))->IsSame(At(Entity(u"1", u"t"))));
  EXPECT_TRUE(At(nullptr)->IsSame(At(nullptr)));
}

TEST_F(CDataPositionTest, IsSameFailsOneWayAndAnswersTheOther) {
  const auto entity = Entity(u"1");
  EXPECT_FALSE(At(nullptr)->IsSame(At(entity)));
  const ErrorRecord error = Raised([&] { static_cast<void>(At(entity)->IsSame(At(nullptr))); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CDataPosition.IsSame(Position)"});
}

TEST_F(CDataPositionTest, IsSameAsNothingFails) {
  const ErrorRecord error = Raised([] { static_cast<void>(At(nullptr)->IsSame(nullptr)); });
  ExpectError(error, 5, u"Position cannot be nothing.");
  ExpectTrail(error, {u"CDataPosition.IsSame(Position)"});
}

TEST_F(CDataPositionTest, IDIsTheStamp) {
  EXPECT_EQ(At(Entity(u"1", u"s"))->ID(), u"s");
  const ErrorRecord error = Raised([] { At(nullptr)->ID(); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CDataPosition.IPosition_ID"});
}

TEST_F(CDataPositionTest, MembersAreGuardedBeforeInitialize) {
  const auto position = New<CDataPosition>();
  const auto expect = [](auto access, StringView text, StringView label) {
    const ErrorRecord error = Raised(access);
    ExpectError(error, Hex(0x80041460), text);
    ExpectTrail(error, {label});
  };
  constexpr StringView property = u"Property cannot be accessed before Initialize().";
  constexpr StringView method = u"Method cannot be called before Initialize().";
  expect([&] { position->DataOffset(); }, property, u"CDataPosition.DataOffset");
  expect([&] { position->DataEntity(); }, property, u"CDataPosition.DataEntity");
  expect([&] { static_cast<void>(position->IsLast()); }, method, u"CDataPosition.IsLast()");
  expect([&] { static_cast<void>(position->IsSame(nullptr)); }, method, u"CDataPosition.IsSame(Position)");
  expect([&] { position->ID(); }, method, u"CDataPosition.IPosition_ID");
}

TEST_F(CDataSelectionTest, HoldsItsPositions) {
  const auto start = At(Entity(u"1"));
  const auto end = At(nullptr);
  const auto selection = Selection(start, end);
  EXPECT_TRUE(IsSameObject(selection->StartingPosition(), start));
  EXPECT_TRUE(IsSameObject(selection->EndingPosition(), end));
  EXPECT_FALSE(selection->IsEmpty());
}

TEST_F(CDataSelectionTest, IsEmptyIfItsEndIsItsStart) {
  EXPECT_TRUE(Selection(At(nullptr), At(nullptr))->IsEmpty());
  EXPECT_TRUE(Selection(At(Entity(u"1", u"s")), At(Entity(u"1", u"s")))->IsEmpty());
  EXPECT_FALSE(Selection(At(Entity(u"1", u"s")), At(Entity(u"1", u"t")))->IsEmpty());
}

TEST_F(CDataSelectionTest, NeitherPositionMayBeNothing) {
  const ErrorRecord start = Raised([] { Selection(nullptr, At(nullptr)); });
  ExpectError(start, 5, u"Starting position cannot be nothing.");
  ExpectTrail(start, {u"CDataSelection.Initialize(Start,End)"});
  ExpectError(Raised([] { Selection(At(nullptr), nullptr); }), 5, u"Ending position cannot be nothing.");
}

TEST_F(CDataSelectionTest, MembersAreGuardedBeforeInitialize) {
  const auto selection = New<CDataSelection>();
  const ErrorRecord start = Raised([&] { selection->StartingPosition(); });
  ExpectError(start, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
  ExpectTrail(start, {u"CDataSelection.StartingPosition"});
  const ErrorRecord end = Raised([&] { selection->EndingPosition(); });
  ExpectError(end, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
  ExpectTrail(end, {u"CDataSelection.EndingPosition"});
  const ErrorRecord empty = Raised([&] { static_cast<void>(selection->IsEmpty()); });
  ExpectError(empty, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(empty, {u"CDataSelection.IsEmpty()"});
}

} // namespace
} // namespace portico
