#include "configuration/CSetting.h"

#include "framework/errors/HuntERR.h"
#include "support/Labels.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

Ref<CSetting> Setting(const String& name, const String& value) {
  auto setting = New<CSetting>();
  setting->Initialize(name, value);
  return setting;
}

class CSettingTest : public ::testing::Test {
protected:
  ~CSettingTest() override { HuntERR::Reset(); }
};

TEST_F(CSettingTest, HoldsItsNameAndValue) {
  const auto setting = Setting(u"Logging", u"On");
  EXPECT_EQ(setting->Name(), u"Logging");
  EXPECT_EQ(setting->Value(), u"On");
}

TEST_F(CSettingTest, ValueMayBeEmpty) { EXPECT_EQ(Setting(u"InstrumentName", u"")->Value(), u""); }

TEST_F(CSettingTest, RefusesAnEmptyName) {
  const ErrorRecord error = Raised([] { Setting(u"", u"On"); });
  ExpectError(error, 5, u"Setting name cannot be an empty string.");
  ExpectTrail(error, {u"CSetting.Initialize"});
}

TEST_F(CSettingTest, IsDirtyIsTrueUntilTheValueChanges) {
  const auto setting = Setting(u"Logging", u"On");
  EXPECT_TRUE(setting->IsDirty());
  setting->Value(u"Off");
  EXPECT_FALSE(setting->IsDirty());
  setting->Wash();
  EXPECT_TRUE(setting->IsDirty());
}

TEST_F(CSettingTest, SettingTheWashedTextBackMakesIsDirtyTrueAgain) {
  const auto setting = Setting(u"Logging", u"On");
  setting->Value(u"Off");
  setting->Value(u"On");
  EXPECT_TRUE(setting->IsDirty());
}

TEST_F(CSettingTest, IsDirtyComparesExactly) {
  const auto setting = Setting(u"Logging", u"On");
  setting->Value(u"on");
  EXPECT_FALSE(setting->IsDirty());
}

TEST_F(CSettingTest, WashedValueIsTheCurrentOne) {
  const auto setting = Setting(u"Logging", u"On");
  setting->Value(u"Off");
  setting->Wash();
  setting->Value(u"On");
  EXPECT_FALSE(setting->IsDirty());
}

TEST_F(CSettingTest, IsDirtyAndWashHaveNoGuard) {
  CSetting setting;
  EXPECT_TRUE(setting.IsDirty());
  EXPECT_NO_THROW(setting.Wash());
}

TEST_F(CSettingTest, IsSameIgnoresTheCaseOfNamesAlways) {
  const auto setting = Setting(u"Logging", u"On");
  EXPECT_TRUE(setting->IsSame(Setting(u"LOGGING", u"On"), true));
  EXPECT_TRUE(setting->IsSame(Setting(u"logging", u"On"), false));
  EXPECT_FALSE(setting->IsSame(Setting(u"Logging2", u"On"), false));
}

TEST_F(CSettingTest, OnlyTheValueCountsForCase) {
  const auto setting = Setting(u"Logging", u"On");
  EXPECT_TRUE(setting->IsSame(Setting(u"LOGGING", u"ON"), false));
  EXPECT_FALSE(setting->IsSame(Setting(u"LOGGING", u"ON"), true));
  EXPECT_FALSE(setting->IsSame(Setting(u"Logging", u"Off"), false));
}

TEST_F(CSettingTest, IsSameAsNothingIsFalse) {
  EXPECT_FALSE(Setting(u"Logging", u"On")->IsSame(nullptr, true));
  EXPECT_FALSE(Setting(u"Logging", u"On")->IsSame(nullptr, false));
}

TEST_F(CSettingTest, NameMayBeRewritten) {
  const auto setting = Setting(u"Logging", u"On");
  setting->Name(u"Other");
  EXPECT_EQ(setting->Name(), u"Other");
}

TEST_F(CSettingTest, PropertiesAreGuardedBeforeInitialize) {
  CSetting setting;
  const auto expect = [](auto access, StringView label) {
    const ErrorRecord error = Raised(access);
    ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
    ExpectTrail(error, {label});
  };
  expect([&] { static_cast<void>(setting.Value()); }, u"CSetting.Value");
  expect([&] { setting.Value(u"On"); }, u"CSetting.Value(newValue)");
  expect([&] { static_cast<void>(setting.Name()); }, u"CSetting.Name");
  expect([&] { setting.Name(u"X"); }, u"CSetting.Name(newValue)");
}

TEST_F(CSettingTest, IsSameIsGuardedBeforeInitialize) {
  CSetting setting;
  const ErrorRecord error = Raised([&] { static_cast<void>(setting.IsSame(nullptr, true)); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CSetting.IsSame(OtherSetting, CaseSensitive)"});
}

TEST_F(CSettingTest, IsSameAsAnUninitializedOnePassesBothLabels) {
  const ErrorRecord error =
      Raised([] { static_cast<void>(Setting(u"Logging", u"On")->IsSame(New<CSetting>(), true)); });
  ExpectTrail(error, {u"CSetting.Name", u"CSetting.IsSame(OtherSetting, CaseSensitive)"});
}

} // namespace
} // namespace portico
