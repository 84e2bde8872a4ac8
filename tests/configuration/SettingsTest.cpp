#include "configuration/CSettings.h"

#include "framework/errors/HuntERR.h"
#include "support/Labels.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

Ref<CSettings> Settings(const std::vector<std::pair<String, String>>& pairs = {}) {
  auto settings = New<CSettings>();
  settings->Initialize();
  for (const auto& [name, value] : pairs) settings->Add(name, value);
  return settings;
}

class CSettingsTest : public ::testing::Test {
protected:
  ~CSettingsTest() override { HuntERR::Reset(); }
  Ref<CSettings> Pair = Settings({{u"First", u"1"}, {u"Second", u"2"}});
};

TEST_F(CSettingsTest, AddReturnsTheNewAttribute) {
  const auto attribute = Pair->Add(u"Third", u"3");
  EXPECT_EQ(attribute->Name(), u"Third");
  EXPECT_EQ(attribute->Value(), u"3");
  EXPECT_EQ(Pair->Count(), 3);
  EXPECT_TRUE(IsSameObject(attribute, Pair->Item(u"Third")));
}

TEST_F(CSettingsTest, AddOfANameInAnotherCaseFails) {
  const ErrorRecord error = Raised([&] { Pair->Add(u"FIRST", u"x"); });
  EXPECT_EQ(error.Number, 457);
  ExpectTrail(error, {u"CSettings.Add(AttributeName, AttributeValue)"});
  EXPECT_EQ(Pair->Count(), 2);
  EXPECT_EQ(Pair->Value(u"First"), u"1");
}

TEST_F(CSettingsTest, AddOfAnEmptyNamePassesBothLabels) {
  const ErrorRecord error = Raised([&] { Pair->Add(u"", u"x"); });
  ExpectError(error, 5, u"Setting name cannot be an empty string.");
  ExpectTrail(error, {u"CSetting.Initialize", u"CSettings.Add(AttributeName, AttributeValue)"});
}

TEST_F(CSettingsTest, ItemIgnoresCase) { EXPECT_EQ(Pair->Item(u"sEcOnD")->Value(), u"2"); }

TEST_F(CSettingsTest, ItemOfAMissingNameIsAbsentAndRecordsWithoutRaising) {
  EXPECT_FALSE(Pair->Item(u"Third"));
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  ExpectTrail(HuntERR::ErrDescription(), {u"Get CSettings.Item(AttributeName)"});
}

TEST_F(CSettingsTest, ItemBeforeInitializeIsAbsentAndRecords91) {
  CSettings settings;
  EXPECT_FALSE(settings.Item(u"First"));
  EXPECT_EQ(HuntERR::ErrNumber(), 91);
  ExpectTrail(HuntERR::ErrDescription(), {u"Get CSettings.Item(AttributeName)"});
}

TEST_F(CSettingsTest, ValueOfAMissingNameRaises381) {
  const ErrorRecord error = Raised([&] { static_cast<void>(Pair->Value(u"Third")); });
  EXPECT_EQ(error.Number, 381);
  EXPECT_EQ(ToUtf8(error.Description.Text()), "Requested data attribute, Third, does not exist.");
}

TEST_F(CSettingsTest, ValueIsReadAndWrittenByNameInAnyCase) {
  Pair->Value(u"FIRST", u"one");
  EXPECT_EQ(Pair->Value(u"first"), u"one");
  EXPECT_EQ(Pair->Count(), 2);
  EXPECT_EQ(Pair->Item(u"First")->Name(), u"First");
}

TEST_F(CSettingsTest, WriteOfAMissingNameAddsIt) {
  Pair->Value(u"Third", u"3");
  EXPECT_EQ(Pair->Value(u"Third"), u"3");
  EXPECT_EQ(Pair->Count(), 3);
}

TEST_F(CSettingsTest, WriteOfAMissingNameRecordsThatItWasMissing) {
  HuntERR::Reset();
  Pair->Value(u"Third", u"3");
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(test::Labels(HuntERR::ErrReport()), std::vector<String>{u"Get CSettings.Item(AttributeName)"});
}

TEST_F(CSettingsTest, IsSameRecordsANameThatIsMissing) {
  const auto other = Settings();
  other->Add(u"First", u"1");
  other->Add(u"Third", u"2");
  HuntERR::Reset();
  EXPECT_FALSE(Pair->IsSame(other, true));
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(test::Labels(HuntERR::ErrReport()), std::vector<String>{u"Get CSettings.Item(AttributeName)"});
}

TEST_F(CSettingsTest, ItemValueOfTheInterfaceForwards) {
  const Ref<IAttributes> attributes = Pair;
  attributes->ItemValue(u"First", u"one");
  attributes->ItemValue(u"Third", u"3");
  EXPECT_EQ(attributes->ItemValue(u"first"), u"one");
  EXPECT_EQ(Pair->Value(u"Third"), u"3");
  EXPECT_EQ(Raised([&] { static_cast<void>(attributes->ItemValue(u"Fourth")); }).Number, 381);
}

TEST_F(CSettingsTest, WriteOfAnEmptyNamePassesAllLabels) {
  const ErrorRecord error = Raised([&] { Pair->Value(u"", u"x"); });
  ExpectError(error, 5, u"Setting name cannot be an empty string.");
  ExpectTrail(error, {u"CSetting.Initialize", u"CSettings.Add(AttributeName, AttributeValue)",
                      u"Let CSettings.Value(Name, Value)"});
}

TEST_F(CSettingsTest, RemoveIgnoresCase) {
  Pair->Remove(u"FIRST");
  EXPECT_EQ(Pair->Count(), 1);
  EXPECT_FALSE(Pair->Item(u"First"));
}

TEST_F(CSettingsTest, RemoveOfAMissingNameRaises5) {
  const ErrorRecord error = Raised([&] { Pair->Remove(u"Third"); });
  EXPECT_EQ(error.Number, 5);
  ExpectTrail(error, {u"CSettings.Remove(AttributeName)"});
}

TEST_F(CSettingsTest, NewEnumVisitsInOrderOfInsertion) {
  const auto settings = Settings({{u"Zeta", u"1"}, {u"Alpha", u"2"}, {u"Mid", u"3"}});
  settings->Remove(u"Alpha");
  settings->Add(u"Alpha", u"4");
  String names;
  for (const auto& attribute : settings->NewEnum()) names += attribute->Name() + u";";
  EXPECT_EQ(names, u"Zeta;Mid;Alpha;");
}

TEST_F(CSettingsTest, IsDirtyOfAnEmptyCollectionIsFalse) { EXPECT_FALSE(Settings()->IsDirty()); }

TEST_F(CSettingsTest, IsDirtyIsTrueOnlyIfEverySettingAnswersTrue) {
  EXPECT_TRUE(Pair->IsDirty());
  Pair->Value(u"First", u"changed");
  EXPECT_FALSE(Pair->IsDirty());
  Pair->Value(u"First", u"1");
  Pair->Value(u"Second", u"changed");
  EXPECT_FALSE(Pair->IsDirty());
}

TEST_F(CSettingsTest, WashWashesEverySetting) {
  Pair->Value(u"First", u"changed");
  Pair->Value(u"Second", u"changed");
  Pair->Wash();
  EXPECT_TRUE(Pair->IsDirty());
  Pair->Value(u"First", u"1");
  EXPECT_FALSE(Pair->IsDirty());
}

TEST_F(CSettingsTest, TwoEmptyCollectionsAreTheSame) { EXPECT_TRUE(Settings()->IsSame(Settings(), true)); }

TEST_F(CSettingsTest, IsSameComparesCountsFirst) {
  EXPECT_FALSE(Pair->IsSame(Settings({{u"First", u"1"}}), true));
  EXPECT_FALSE(Settings({{u"First", u"1"}})->IsSame(Pair, true));
}

TEST_F(CSettingsTest, IsSameLooksUpByNameInAnyOrderAndCase) {
  EXPECT_TRUE(Pair->IsSame(Settings({{u"SECOND", u"2"}, {u"first", u"1"}}), true));
}

TEST_F(CSettingsTest, IsSameHasTheCaseOfValuesAsAsked) {
  const auto lower = Settings({{u"A", u"on"}});
  const auto upper = Settings({{u"A", u"ON"}});
  EXPECT_TRUE(lower->IsSame(upper, false));
  EXPECT_FALSE(lower->IsSame(upper, true));
}

TEST_F(CSettingsTest, IsSameIsFalseForAnotherNameOrValue) {
  EXPECT_FALSE(Pair->IsSame(Settings({{u"First", u"1"}, {u"Third", u"2"}}), true));
  EXPECT_FALSE(Pair->IsSame(Settings({{u"First", u"1"}, {u"Second", u"3"}}), true));
}

TEST_F(CSettingsTest, RenamedSettingKeepsItsKey) {
  const auto setting = Cast<CSetting>(Pair->Item(u"First"));
  setting->Name(u"Renamed");
  EXPECT_TRUE(IsSameObject(setting, Pair->Item(u"First")));
  EXPECT_FALSE(Pair->Item(u"Renamed"));
  EXPECT_EQ(Raised([&] { Pair->Add(u"First", u"x"); }).Number, 457);
}

TEST_F(CSettingsTest, RenamedSettingIsLookedUpElsewhereByItsNewName) {
  Cast<CSetting>(Pair->Item(u"First"))->Name(u"Renamed");
  EXPECT_FALSE(Pair->IsSame(Settings({{u"First", u"1"}, {u"Second", u"2"}}), true));
  EXPECT_TRUE(Pair->IsSame(Settings({{u"Renamed", u"1"}, {u"Second", u"2"}}), true));
}

TEST_F(CSettingsTest, ClearLeavesANewEmptyCollection) {
  const auto kept = Pair->Item(u"First");
  Pair->Clear();
  EXPECT_EQ(Pair->Count(), 0);
  EXPECT_EQ(kept->Value(), u"1");
  Pair->Add(u"First", u"again");
  EXPECT_EQ(Pair->Value(u"First"), u"again");
}

TEST_F(CSettingsTest, MethodsAreGuardedBeforeInitialize) {
  CSettings settings;
  const auto expect = [](auto call, StringView label) {
    const ErrorRecord error = Raised(call);
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
  };
  expect([&] { static_cast<void>(settings.IsDirty()); }, u"CSettings.IsDirty()");
  expect([&] { settings.Wash(); }, u"CSettings.Wash()");
  expect([&] { settings.Add(u"A", u"1"); }, u"CSettings.Add(AttributeName, AttributeValue)");
}

TEST_F(CSettingsTest, IsSameAndValueAreGuardedWithoutALabel) {
  CSettings settings;
  const ErrorRecord same = Raised([&] { static_cast<void>(settings.IsSame(Pair, true)); });
  ExpectError(same, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(same, {});
  const ErrorRecord value = Raised([&] { static_cast<void>(settings.Value(u"A")); });
  ExpectError(value, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(value, {});
}

TEST_F(CSettingsTest, WriteOfAValueIsGuardedAsAProperty) {
  CSettings settings;
  const ErrorRecord error = Raised([&] { settings.Value(u"A", u"1"); });
  ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
  ExpectTrail(error, {u"Let CSettings.Value(Name, Value)"});
}

TEST_F(CSettingsTest, OthersFailOnTheAbsentCollectionBeforeInitialize) {
  CSettings settings;
  const ErrorRecord count = Raised([&] { static_cast<void>(settings.Count()); });
  EXPECT_EQ(count.Number, 91);
  ExpectTrail(count, {u"Get CSettings.Count()"});
  const ErrorRecord removed = Raised([&] { settings.Remove(u"A"); });
  EXPECT_EQ(removed.Number, 91);
  ExpectTrail(removed, {u"CSettings.Remove(AttributeName)"});
  EXPECT_EQ(Raised([&] { settings.NewEnum(); }).Number, 91);
}

} // namespace
} // namespace portico
