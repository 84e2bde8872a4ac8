#include "DocumentTest.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

constexpr char16_t kMethodTooEarly[] = u"Method cannot be called before Initialize().";
constexpr char16_t kPropertyTooEarly[] = u"Property cannot be accessed before Initialize().";

class CDataEntityTest : public test::DocumentTest {};

TEST_F(CDataEntityTest, MadeFromNoDataHasNoneAndNoError) {
  const auto entity = modDataDocument::CreateADataEntity({}, u"Response", {});
  EXPECT_EQ(entity->DataLength(), 0);
  EXPECT_EQ(entity->ReadData(), ByteArray{});
}

TEST_F(CDataEntityTest, UpdateDataWithNothingLeavesNoDataAndNoError) {
  const auto entity = Entity(u"text");
  entity->UpdateData({});
  EXPECT_EQ(entity->DataLength(), 0);
  EXPECT_EQ(entity->ReadData(), ByteArray{});
}

TEST_F(CDataEntityTest, LengthCountsBytes) { EXPECT_EQ(Entity(u"ok\r\n")->DataLength(), 8); }

TEST_F(CDataEntityTest, DataIsCopiedInAndOut) {
  ByteArray bytes = {1, 2, 3};
  const auto entity = modDataDocument::CreateADataEntity(bytes, {}, {});
  bytes[0] = 9;
  entity->ReadData()[1] = 9;
  EXPECT_EQ(entity->ReadData(), (ByteArray{1, 2, 3}));
  entity->UpdateData(bytes);
  bytes[2] = 7;
  EXPECT_EQ(entity->ReadData(), (ByteArray{9, 2, 3}));
}

TEST_F(CDataEntityTest, HasTypeAndStampFromItsCreationInThisOrder) {
  const auto entity = Entity(u"text", u"a stamp", u"Instruction");
  std::vector<String> names;
  for (const auto& attribute : entity->DataAttributes()->NewEnum()) names.push_back(attribute->Name());
  EXPECT_EQ(names, (std::vector<String>{u"DataType", u"Timestamp"}));
  EXPECT_EQ(entity->DataType(), u"Instruction");
  EXPECT_EQ(entity->TimeStamp(), u"a stamp");
  EXPECT_EQ(entity->DataAttribute(u"DataType"), u"Instruction");
  EXPECT_EQ(entity->DataAttribute(u"Timestamp"), u"a stamp");
}

TEST_F(CDataEntityTest, GivenStampIsKeptAndDrawsNothing) {
  gTimeStamper->TimeStamp();
  const auto given = Entity(u"text", u"2004-11-01T16:42:09.000000003-5:00");
  EXPECT_EQ(given->TimeStamp(), u"2004-11-01T16:42:09.000000003-5:00");
  EXPECT_EQ(Entity(u"text")->TimeStamp(), u"2004-02-09T08:05:03.000000002-5:00");
}

TEST_F(CDataEntityTest, WritingAnEmptyStampStoresANewOne) {
  const auto entity = Entity(u"text", u"a stamp");
  entity->TimeStamp(u"");
  EXPECT_EQ(entity->TimeStamp(), u"2004-02-09T08:05:03.000000001-5:00");
  entity->TimeStamp(u"another");
  EXPECT_EQ(entity->TimeStamp(), u"another");
}

TEST_F(CDataEntityTest, NewEntityHasNoDataFormat) {
  const ErrorRecord error = Raised([] { Entity(u"text")->DataAttribute(u"DataFormat"); });
  ExpectError(error, 381, u"Requested data attribute, DataFormat, does not exist.");
  ExpectTrail(error, {u"CDataEntity.DataAttributeValue(Name)", u"CDataEntity.IDataEntity_DataAttribute(Name)"});
}

TEST_F(CDataEntityTest, WritingAnAttributeAddsOrReplacesIt) {
  const auto entity = Entity(u"text");
  entity->DataAttribute(u"DataFormat", u"String");
  EXPECT_EQ(entity->DataAttributeValue(u"dataformat"), u"String");
  entity->DataAttributeValue(u"DataFormat", u"Binary");
  EXPECT_EQ(entity->DataAttribute(u"DataFormat"), u"Binary");
  EXPECT_EQ(entity->DataAttributes()->Count(), 3);
}

TEST_F(CDataEntityTest, AttributesAreTheCollectionItself) {
  const auto entity = Entity(u"text");
  entity->DataAttributes()->ItemValue(u"DataType", u"Configuration");
  EXPECT_EQ(entity->DataType(), u"Configuration");
  entity->DataType(u"Response");
  EXPECT_EQ(entity->DataAttributes()->ItemValue(u"DataType"), u"Response");
}

TEST_F(CDataEntityTest, CompareToMeTellsWhatDiffers) {
  const auto entity = Entity(u"text", u"a stamp");
  EXPECT_EQ(entity->CompareToMe(entity), 0);
  EXPECT_EQ(entity->CompareToMe(Entity(u"text", u"a stamp")), 0);
  EXPECT_EQ(entity->CompareToMe(nullptr), 6);
  EXPECT_EQ(entity->CompareToMe(Entity(u"text", u"another stamp")), 2);
  EXPECT_EQ(entity->CompareToMe(Entity(u"test", u"a stamp")), 4);
  EXPECT_EQ(entity->CompareToMe(Entity(u"longer text", u"another stamp")), 6);
}

TEST_F(CDataEntityTest, CompareToMeRegardsTheCaseOfValuesAndThePrivateAttributes) {
  const auto entity = Entity(u"text", u"a stamp");
  EXPECT_EQ(entity->CompareToMe(Entity(u"text", u"A STAMP")), 2);
  const auto encoded = Entity(u"text", u"a stamp");
  encoded->DataAttribute(u"_RTFVisibleTextOffset", u"0");
  EXPECT_EQ(entity->CompareToMe(encoded), 2);
}

TEST_F(CDataEntityTest, WithoutAStamperNoEntityIsMade) {
  gTimeStamper = nullptr;
  const ErrorRecord error = Raised([] { Entity(u"text"); });
  ExpectError(error, 424, u"Data entity requires a time stamper. There is none.");
  ExpectTrail(error,
              {u"CDataEntity.Initialize(data,DataType,TimeStamp)", u"CtorSubscriptionAgent.ICreator_Create(Params)",
               u"modDataDocument.CreateADataEntity(data,DataType,TimeStamp)"});
}

TEST_F(CDataEntityTest, WithoutAFactoryNoEntityIsMade) {
  gObjectFactory = nullptr;
  const ErrorRecord error = Raised([] { Entity(u"text"); });
  ExpectError(error, 17, u"The object factory does not exist.");
  ExpectTrail(error, {u"modDataDocument.CreateADataEntity(data,DataType,TimeStamp)"});
}

TEST_F(CDataEntityTest, CreatorTakesThreeParametersAndBearsAnOlderName) {
  const ErrorRecord error =
      Raised([] { gObjectFactory->CreateObject(u"DataEntity", modGlobals::VarArray(ByteArray{})); });
  ExpectError(error, 450, u"Expected 3 parameter.");
  ExpectTrail(error, {u"CtorSubscriptionAgent.ICreator_Create(Params)"});
}

struct Access {
  const char* Name;
  void (*Call)(CDataEntity&);
  StringView Text;
  std::vector<StringView> Labels;
};

class UninitializedEntity : public test::FrameworkTest, public ::testing::WithParamInterface<Access> {};

TEST_P(UninitializedEntity, RefusesAccess) {
  const auto entity = New<CDataEntity>();
  const ErrorRecord error = Raised([&] { GetParam().Call(*entity); });
  ExpectError(error, Hex(0x80041460), GetParam().Text);
  const auto calls = test::CallStack(error);
  ASSERT_EQ(calls.size(), GetParam().Labels.size());
  for (std::size_t i = 0; i < calls.size(); ++i)
    EXPECT_TRUE(test::Bears(calls[i], GetParam().Labels[i])) << ToUtf8(calls[i]);
}

INSTANTIATE_TEST_SUITE_P(Members, UninitializedEntity,
                         ::testing::Values(Access{"AttributeValueRead",
                                                  [](CDataEntity& e) { e.DataAttributeValue(u"A"); },
                                                  kMethodTooEarly,
                                                  {u"CDataEntity.DataAttributeValue(Name)"}},
                                           Access{"AttributeRead",
                                                  [](CDataEntity& e) { e.DataAttribute(u"A"); },
                                                  kMethodTooEarly,
                                                  {u"CDataEntity.DataAttributeValue(Name)",
                                                   u"CDataEntity.IDataEntity_DataAttribute(Name)"}},
                                           Access{"AttributeValueWrite",
                                                  [](CDataEntity& e) { e.DataAttributeValue(u"A", u"b"); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.DataAttributeValue(Name,Value)"}},
                                           Access{"AttributeWrite",
                                                  [](CDataEntity& e) { e.DataAttribute(u"A", u"b"); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.DataAttributeValue(Name,Value)",
                                                   u"CDataEntity.IDataEntity_DataAttribute(Name,Value)"}},
                                           Access{"TimeStampWrite",
                                                  [](CDataEntity& e) { e.TimeStamp(u"a"); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.TimeStamp(newValue)"}},
                                           Access{"TimeStamp",
                                                  [](CDataEntity& e) { e.TimeStamp(); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_TimeStamp()"}},
                                           Access{"DataTypeWrite",
                                                  [](CDataEntity& e) { e.DataType(u"a"); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.DataType(newValue)"}},
                                           Access{"DataType",
                                                  [](CDataEntity& e) { e.DataType(); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_DataType()"}},
                                           Access{"Position",
                                                  [](CDataEntity& e) { e.Position({}); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_Position(DataOffset)"}},
                                           Access{"DataAttributes",
                                                  [](CDataEntity& e) { e.DataAttributes(); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_DataAttributes()"}},
                                           Access{"DataLength",
                                                  [](CDataEntity& e) { e.DataLength(); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_DataLength()"}},
                                           Access{"ReadData",
                                                  [](CDataEntity& e) { e.ReadData(); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_ReadData()"}},
                                           Access{"UpdateData",
                                                  [](CDataEntity& e) { e.UpdateData({}); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_UpdateData(data)"}},
                                           Access{"CompareToMe",
                                                  [](CDataEntity& e) { e.CompareToMe({}); },
                                                  kPropertyTooEarly,
                                                  {u"CDataEntity.IDataEntity_CompareToMe(DataEntity)"}}),
                         [](const auto& test) { return test.param.Name; });

class CMockTimeStampServerTest : public test::FrameworkTest {};

TEST_F(CMockTimeStampServerTest, StampHasItsForm) {
  Environment.Now = test::FakeErrorEnvironment::At(2004, 11, 1, 16, 42, 9);
  CMockTimeStampServer server;
  EXPECT_EQ(server.TimeStamp(), u"2004-11-01T16:42:09.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, EveryFieldIsFilledWithZeros) {
  Environment.Now = test::FakeErrorEnvironment::At(2005, 1, 2, 3, 4, 5);
  CMockTimeStampServer server;
  EXPECT_EQ(server.TimeStamp(), u"2005-01-02T03:04:05.000000001-5:00");
}

TEST_F(CMockTimeStampServerTest, StampsOfOneSecondDifferInTheSequenceOnly) {
  CMockTimeStampServer server;
  EXPECT_EQ(server.TimeStamp(), u"2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(server.TimeStamp(), u"2004-02-09T08:05:03.000000002-5:00");
}

TEST_F(CMockTimeStampServerTest, SequenceBeginsAnewWithTheSecond) {
  CMockTimeStampServer server;
  server.TimeStamp();
  ++Environment.Now.tm_sec;
  EXPECT_EQ(server.TimeStamp(), u"2004-02-09T08:05:04.000000000-5:00");
  EXPECT_EQ(server.TimeStamp(), u"2004-02-09T08:05:04.000000001-5:00");
}

} // namespace
} // namespace portico
