#include "document/FIFOFixture.h"
#include "document/entities/ForeignEntity.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::ForeignEntity;
using test::Hex;
using test::Raised;

class CDataEntityTest : public test::DocumentTest {};

TEST_F(CDataEntityTest, HasItsTypeAndStampFromTheStart) {
  const auto entity = Entity(u"1", u"", u"Instruction");
  EXPECT_EQ(entity->DataType(), u"Instruction");
  EXPECT_EQ(ToUtf8(entity->TimeStamp()), "2004-02-09T08:05:03.000000001-5:00");
  std::string names;
  for (const auto& attribute : entity->DataAttributes()->NewEnum()) names += ToUtf8(attribute->Name()) + ";";
  EXPECT_EQ(names, "DataType;Timestamp;");
}

TEST_F(CDataEntityTest, CountsBytes) {
  const auto entity = Entity(u"12");
  EXPECT_EQ(entity->DataLength(), 4);
  EXPECT_EQ(entity->ReadData(), (ByteArray{'1', 0, '2', 0}));
}

TEST_F(CDataEntityTest, MadeFromAnArrayThatWasNeverAllocatedHasNoData) {
  const auto entity = Cast<CDataEntity>(MakeCreator(CtorDataEntity)->Create({Value(), u"", u""}));
  EXPECT_EQ(entity->DataLength(), 0);
  EXPECT_EQ(entity->ReadData(), ByteArray());
}

TEST_F(CDataEntityTest, UpdateDataWithoutDataLeavesNone) {
  const auto entity = Entity(u"12");
  entity->UpdateData(Value().ToByteArray());
  EXPECT_EQ(entity->DataLength(), 0);
}

TEST_F(CDataEntityTest, DataIsCopiedInAndOut) {
  ByteArray data{1, 2};
  const auto entity = modDataDocument::CreateADataEntity(data, u"", u"");
  data[0] = 9;
  entity->ReadData()[0] = 9;
  EXPECT_EQ(entity->ReadData(), (ByteArray{1, 2}));
}

TEST_F(CDataEntityTest, GivenStampIsKeptAndDrawsNothing) {
  EXPECT_EQ(Entity(u"1", u"once")->TimeStamp(), u"once");
  EXPECT_EQ(Entity(u"1")->TimeStamp().substr(19), u".000000001-5:00");
}

TEST_F(CDataEntityTest, WritingAnEmptyStampDrawsOne) {
  const auto entity = Entity(u"1", u"once");
  entity->TimeStamp(u"");
  EXPECT_EQ(entity->TimeStamp().substr(19), u".000000001-5:00");
  entity->TimeStamp(u"twice");
  EXPECT_EQ(entity->DataAttribute(u"timestamp"), u"twice");
}

TEST_F(CDataEntityTest, AttributesAreReadAndWrittenByAllRoads) {
  const auto entity = Entity(u"1");
  entity->DataAttributeValue(u"A", u"1");
  EXPECT_EQ(entity->DataAttributes()->ItemValue(u"a"), u"1");
  entity->DataAttributes()->ItemValue(u"A", u"2");
  EXPECT_EQ(entity->DataAttribute(u"A"), u"2");
  entity->DataAttribute(u"a", u"3");
  EXPECT_EQ(entity->DataAttributeValue(u"A"), u"3");
  entity->DataType(u"Remark");
  EXPECT_EQ(entity->DataAttribute(u"DataType"), u"Remark");
  EXPECT_TRUE(IsSameObject(entity->DataAttributes(), entity->DataAttributes()));
}

TEST_F(CDataEntityTest, LivesAsLongAsItsCollectionIsHeld) {
  auto entity = Entity(u"1", u"once");
  const std::weak_ptr<CDataEntity> seen = entity.Shared();
  auto attributes = entity->DataAttributes();
  entity = {};
  EXPECT_EQ(attributes->ItemValue(u"Timestamp"), u"once");
  const auto setting = attributes->Item(u"Timestamp");
  attributes = {};
  EXPECT_TRUE(seen.expired());
  setting->Value(u"alone");
  EXPECT_EQ(setting->Value(), u"alone");
}

TEST_F(CDataEntityTest, NewEntityHasNoDataFormat) {
  const auto entity = Entity(u"1");
  const ErrorRecord error = Raised([&] { entity->DataAttribute(u"DataFormat"); });
  ExpectError(error, 381, u"Requested data attribute, DataFormat, does not exist.");
  ExpectTrail(error, {u"CDataEntity.DataAttributeValue(Name)", u"CDataEntity.IDataEntity_DataAttribute(Name)"});
}

TEST_F(CDataEntityTest, ComparesByContent) {
  const auto entity = Entity(u"1", u"s", u"Response");
  EXPECT_EQ(entity->CompareToMe(entity), 0);
  EXPECT_EQ(entity->CompareToMe(nullptr), 6);
  EXPECT_EQ(entity->CompareToMe(Entity(u"1", u"s")), 0);
  EXPECT_EQ(entity->CompareToMe(Entity(u"1", u"other")), 2);
  EXPECT_EQ(entity->CompareToMe(Entity(u"2", u"s")), 4);
  EXPECT_EQ(entity->CompareToMe(Entity(u"1 ", u"s")), 4);
  EXPECT_EQ(entity->CompareToMe(Entity(u"2", u"other")), 6);
}

TEST_F(CDataEntityTest, ComparesAttributesWithTheCaseOfTheirValues) {
  const auto entity = Entity(u"1", u"s", u"Response");
  EXPECT_EQ(entity->CompareToMe(Entity(u"1", u"S")), 2);
  const auto more = Entity(u"1", u"s");
  more->DataAttribute(u"A", u"1");
  EXPECT_EQ(entity->CompareToMe(more), 2);
  entity->DataAttribute(u"a", u"1");
  EXPECT_EQ(entity->CompareToMe(more), 0);
}

TEST_F(CDataEntityTest, AsksTheAttributesOfTheOther) {
  const auto entity = Entity(u"1", u"s");
  const auto other = Entity(u"1", u"s");
  // A renamed setting is looked up by its new name elsewhere, and found at home by its old one.
  Cast<CSetting>(entity->DataAttributes()->Item(u"DataType"))->Name(u"Other");
  EXPECT_EQ(entity->CompareToMe(other), 2);
  EXPECT_EQ(other->CompareToMe(entity), 2);
  EXPECT_EQ(entity->CompareToMe(entity), 2);
  other->DataAttributes()->Remove(u"DataType");
  other->DataAttributes()->Add(u"Other", u"Response");
  EXPECT_EQ(other->CompareToMe(entity), 0);
  EXPECT_EQ(entity->CompareToMe(other), 2);
}

TEST_F(CDataEntityTest, AnotherClassIsAskedForItsContent) {
  std::vector<std::string> calls;
  const auto foreign = New<test::ForeignEntity>(u"f", ByteArray(), calls);
  EXPECT_EQ(Raised([&] { static_cast<void>(Entity(u"1")->CompareToMe(foreign)); }).Number, 17);
  EXPECT_EQ(calls, (std::vector<std::string>{"f.DataAttributes"}));
}

TEST_F(CDataEntityTest, PositionsPointAtTheEntity) {
  const auto entity = Entity(u"1");
  const auto position = Cast<CDataPosition>(entity->Position());
  EXPECT_TRUE(IsSameObject(position->DataEntity(), entity));
  EXPECT_EQ(position->DataOffset(), 0);
  EXPECT_EQ(Cast<CDataPosition>(entity->Position(1))->DataOffset(), 1);
}

TEST_F(CDataEntityTest, PositionOutsideTheDataPassesTheCreatorsLabel) {
  const auto entity = Entity(u"1");
  const ErrorRecord error = Raised([&] { entity->Position(2); });
  ExpectError(error, 5, u"DataOffset is an invalid index into data.");
  ExpectTrail(error, {u"CDataPosition.Initialize(DataEntity,DataOffset)", u"CtorDataPosition.ICreator_Create(Params)",
                      u"CDataEntity.IDataEntity_Position(DataOffset)"});
}

TEST_F(CDataEntityTest, CannotBeMadeWithoutATimeStamper) {
  gTimeStamper = {};
  const ErrorRecord error = Raised([] { New<CDataEntity>()->Initialize({}, u"", u"given"); });
  ExpectError(error, 424, u"Data entity requires a time stamper. There is none.");
  ExpectTrail(error, {u"CDataEntity.Initialize(data,DataType,TimeStamp)"});
}

TEST_F(CDataEntityTest, CannotBeAskedForWithoutAFactory) {
  gObjectFactory = {};
  const ErrorRecord error = Raised([] { modDataDocument::CreateADataEntity({}, u"", u""); });
  ExpectError(error, 17, u"The object factory does not exist.");
  ExpectTrail(error, {u"modDataDocument.CreateADataEntity(data,DataType,TimeStamp)"});
}

TEST_F(CDataEntityTest, MembersAreGuardedBeforeInitialize) {
  const auto entity = New<CDataEntity>();
  const auto expect = [](auto access, std::initializer_list<StringView> labels) {
    const ErrorRecord error = Raised(access);
    ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
    ExpectTrail(error, labels);
  };
  expect([&] { entity->Position(); }, {u"CDataEntity.IDataEntity_Position(DataOffset)"});
  expect([&] { entity->DataAttributes(); }, {u"CDataEntity.IDataEntity_DataAttributes"});
  expect([&] { entity->DataAttributeValue(u"A", u"1"); }, {u"CDataEntity.DataAttributeValue(Name,Value)"});
  expect([&] { entity->DataAttribute(u"A", u"1"); },
         {u"CDataEntity.DataAttributeValue(Name,Value)", u"CDataEntity.IDataEntity_DataAttribute(Name,Value)"});
  expect([&] { entity->DataLength(); }, {u"CDataEntity.IDataEntity_DataLength"});
  expect([&] { entity->DataType(); }, {u"CDataEntity.DataType"});
  expect([&] { entity->DataType(u"Remark"); }, {u"CDataEntity.DataType(newValue)"});
  expect([&] { entity->ReadData(); }, {u"CDataEntity.IDataEntity_ReadData"});
  expect([&] { entity->UpdateData({}); }, {u"CDataEntity.IDataEntity_UpdateData(data)"});
  expect([&] { entity->TimeStamp(); }, {u"CDataEntity.TimeStamp"});
  expect([&] { entity->TimeStamp(u"s"); }, {u"CDataEntity.TimeStamp(newValue)"});
  expect([&] { static_cast<void>(entity->CompareToMe(nullptr)); },
         {u"CDataEntity.IDataEntity_CompareToMe(DataEntity)"});
  expect([&] { static_cast<void>(Entity(u"1")->CompareToMe(entity)); },
         {u"CDataEntity.IDataEntity_DataAttributes", u"CDataEntity.IDataEntity_CompareToMe(DataEntity)"});
}

TEST_F(CDataEntityTest, AttributeThatIsPackedAlreadyIsWrittenAlike) {
  const auto entity = Entity(u"1", u"s");
  const KeptName name(u"_Name");
  entity->KeepAttribute(name, PackedText(u"1"));
  EXPECT_EQ(entity->DataAttribute(u"_NAME"), u"1");
  entity->DataAttribute(u"_name", u"2");
  entity->KeepAttribute(name, PackedText(u"3"));
  EXPECT_EQ(entity->DataAttribute(u"_Name"), u"3");
  EXPECT_EQ(entity->DataAttributes()->Count(), 3);
  const auto shown = entity->DataAttributes()->Item(u"_Name");
  entity->KeepAttribute(name, PackedText(u"4"));
  EXPECT_EQ(shown->Value(), u"4");
  entity->KeepAttribute(KeptName(u"timestamp"), PackedText(u"other"));
  EXPECT_EQ(entity->TimeStamp(), u"other");

  const auto fresh = New<CDataEntity>();
  ExpectTrail(Raised([&] { fresh->KeepAttribute(name, PackedText(u"1")); }),
              {u"CDataEntity.DataAttributeValue(Name,Value)", u"CDataEntity.IDataEntity_DataAttribute(Name,Value)"});
  const ErrorRecord refused = Raised([&] { entity->KeepAttribute(KeptName(u""), PackedText(u"1")); });
  EXPECT_EQ(refused.Number, Raised([&] { entity->DataAttribute(u"", u"1"); }).Number);
}

TEST_F(CDataEntityTest, TextOfItsDataIsReadLikeItsBytes) {
  EXPECT_EQ(Entity(u"12\u0416")->ReadText(), u"12\u0416");
  const ErrorRecord error = Raised([] { New<CDataEntity>()->ReadText(); });
  ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
  ExpectTrail(error, {u"CDataEntity.IDataEntity_ReadData"});
}

TEST_F(CDataEntityTest, AnotherClassReadsAndKeepsByItsOwnOperations) {
  std::vector<std::string> calls;
  const auto foreign = New<ForeignEntity>(u"f", ByteArray{'7', 0}, calls);
  EXPECT_EQ(foreign->ReadText(), u"7");
  foreign->KeepAttribute(KeptName(u"A"), PackedText(u"1"));
  EXPECT_EQ(calls, (std::vector<std::string>{"f.ReadData", "f.DataAttribute(A,1)"}));
}

TEST_F(CDataEntityTest, CallThroughTheInterfaceAddsItsOwnLine) {
  const auto fresh = New<CDataEntity>();
  const IDataEntity& entity = *fresh;
  ExpectTrail(Raised([&] { entity.DataType(); }), {u"CDataEntity.DataType", u"CDataEntity.IDataEntity_DataType"});
  ExpectTrail(Raised([&] { entity.TimeStamp(); }), {u"CDataEntity.TimeStamp", u"CDataEntity.IDataEntity_TimeStamp"});
  ExpectTrail(Raised([&] { entity.DataAttribute(u"A"); }),
              {u"CDataEntity.DataAttributeValue(Name)", u"CDataEntity.IDataEntity_DataAttribute(Name)"});
}

TEST_F(CDataEntityTest, ReadsOfOneAttributeAreGuardedAsMethods) {
  const auto entity = New<CDataEntity>();
  const ErrorRecord error = Raised([&] { entity->DataAttribute(u"A"); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CDataEntity.DataAttributeValue(Name)", u"CDataEntity.IDataEntity_DataAttribute(Name)"});
}

TEST_F(CDataEntityTest, AttributesOutliveTheEntityWhoHoldsThem) {
  auto entity = Entity(u"1", u"s");
  const Ref<IAttributes> attributes = entity->DataAttributes();
  entity = {};
  EXPECT_EQ(attributes->ItemValue(u"Timestamp"), u"s");
}

} // namespace
} // namespace portico
