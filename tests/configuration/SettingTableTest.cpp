#include "configuration/CSettings.h"
#include "support/Allocation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace portico {
namespace {

/// What a collection of settings holds, kept in the plainest way.
struct Plain {
  struct Setting {
    String Key, Name, Value, Washed;
  };
  std::vector<Setting> Settings;

  std::vector<Setting>::iterator Find(const String& key) {
    return std::find_if(Settings.begin(), Settings.end(),
                        [&key](const Setting& setting) { return EqualNoCase(setting.Key, key); });
  }
  bool IsDirty() const {
    return !Settings.empty() && std::all_of(Settings.begin(), Settings.end(),
                                            [](const Setting& setting) { return setting.Value == setting.Washed; });
  }
};

/// Does the same to a collection and to a plain one, and compares them after each step.
class SettingTableTest : public ::testing::TestWithParam<unsigned> {
protected:
  SettingTableTest() { Settings->Initialize(); }
  ~SettingTableTest() override { HuntERR::Reset(); }

  unsigned Below(unsigned limit) { return static_cast<unsigned>(Random() % limit); }
  String SomeText() {
    return Below(3) == 0 ? ToText(std::int64_t{Below(5)}) : u"text " + ToText(std::int64_t{Below(3)});
  }
  String SomeKey() { return u"key" + ToText(std::int64_t{Below(12)}); }

  void Write(const String& key, const String& value) {
    Settings->Value(key, value);
    const auto at = Expected.Find(key);
    if (at == Expected.Settings.end()) {
      Expected.Settings.push_back({key, key, value, value});
    } else {
      at->Value = value;
    }
  }
  void Remove(const String& key) {
    const auto at = Expected.Find(key);
    if (at == Expected.Settings.end()) return;
    Settings->Remove(key);
    Expected.Settings.erase(at);
  }
  void ChangeObject(const String& key) {
    const auto at = Expected.Find(key);
    if (at == Expected.Settings.end()) return;
    const auto object = Cast<CSetting>(Settings->Item(key));
    if (Below(2) == 0) object->Value(at->Value = SomeText());
    if (Below(3) == 0) object->Name(at->Name = SomeKey());
    if (Below(3) == 0) object->Wash(), at->Washed = at->Value;
    if (Below(2) == 0) Held.push_back(object);
  }
  void Step() {
    switch (Below(12)) {
    case 0:
      return Remove(SomeKey());
    case 1:
    case 2:
      return ChangeObject(SomeKey());
    case 3:
      Settings->Wash();
      for (auto& setting : Expected.Settings) setting.Washed = setting.Value;
      return;
    case 4:
      return Held.clear();
    case 5:
      if (Below(10) != 0) return;
      Settings->Clear();
      return Expected.Settings.clear();
    default:
      return Write(SomeKey(), SomeText());
    }
  }
  void Compare() const {
    ASSERT_EQ(Settings->Count(), static_cast<std::int32_t>(Expected.Settings.size()));
    ASSERT_EQ(Settings->IsDirty(), Expected.IsDirty());
    const auto items = Settings->NewEnum();
    for (std::size_t i = 0; i < items.size(); ++i) {
      const Plain::Setting& expected = Expected.Settings[i];
      ASSERT_EQ(Settings->Value(expected.Key), expected.Value);
      ASSERT_EQ(items[i]->Name(), expected.Name);
      ASSERT_EQ(items[i]->Value(), expected.Value);
      ASSERT_EQ(items[i]->IsDirty(), expected.Value == expected.Washed);
      ASSERT_TRUE(IsSameObject(items[i], Settings->Item(expected.Key)));
    }
  }

  std::mt19937 Random{GetParam()};
  Ref<CSettings> Settings = New<CSettings>();
  Plain Expected;
  std::vector<Ref<CSetting>> Held;
};

INSTANTIATE_TEST_SUITE_P(Seeds, SettingTableTest, ::testing::Range(1U, 21U));

TEST_P(SettingTableTest, HoldsWhatAPlainListWould) {
  for (int step = 0; step < 400; ++step) {
    Step();
    ASSERT_NO_FATAL_FAILURE(Compare()) << "step " << step;
  }
}

TEST(SettingTableMemory, CollectionsWithTheSameKeysTakeOnePieceEach) {
  const auto fill = [](CSettings& settings) {
    settings.Initialize();
    for (const auto* key : {u"DataType", u"Timestamp", u"A", u"B"}) settings.Value(key, u"1");
  };
  CSettings first;
  fill(first);
  CSettings second;
  const std::size_t before = test::AllocationsAlive();
  fill(second);
  EXPECT_EQ(test::AllocationsAlive(), before + 1) << "the block; keys and values are those of the first";
  HuntERR::Reset();
}

TEST(SettingTableMemory, ManyKeysOfOneCollectionAreNotKeptForEachLength) {
  CSettings settings;
  settings.Initialize();
  constexpr std::int64_t count = 2000;
  const std::size_t largest = test::LargestAllocation([&] {
    const std::size_t before = test::AllocationsAlive();
    for (std::int64_t i = 0; i < count; ++i) settings.Value(u"key" + ToText(i), u"1");
    EXPECT_LT(test::AllocationsAlive() - before, count + 100);
  });
  EXPECT_LT(largest, 64 * count);
  EXPECT_EQ(settings.Value(u"key1999"), u"1");
  HuntERR::Reset();
}

} // namespace
} // namespace portico
