#include "configuration/CSettings.h"
#include "support/Labels.h"

#include <optional>

namespace portico {
namespace {

using test::Raised;

/// A collection's settings as objects, which are made when they are asked for.
class SettingObjectsTest : public ::testing::Test {
protected:
  SettingObjectsTest() {
    Table.Create();
    Settings->Value(u"A", u"1");
    Settings->Value(u"B", u"2");
    Changes = 0;
  }
  ~SettingObjectsTest() override { HuntERR::Reset(); }
  void SettingsChanged() {
    ++Changes;
    Seen.clear();
    for (const StringView name : {u"A", u"B", u"C", u"D"}) {
      const std::size_t at = Table.Find(name);
      Seen.push_back(at == Table.Count() ? u"-" : Table.Value(at).ToString());
    }
  }

  SettingTable Table;
  Ref<CSettings> Settings = New<CSettings>(Table, [this] { SettingsChanged(); });
  int Changes = 0;
  std::vector<String> Seen; // by the observer: the values of A to D
};

/// Attributes of another class.
class ForeignAttributes final : public IAttributes {
public:
  explicit ForeignAttributes(Ref<CSettings> inner) : m_inner(std::move(inner)) {}
  StringView ClassName() const override { return u"ForeignAttributes"; }
  bool IsDirty() const override { return m_inner->IsDirty(); }
  void Wash() override { m_inner->Wash(); }
  bool IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const override {
    return m_inner->IsSame(Other, CaseSensitive);
  }
  Ref<IAttribute> Add(const String& Name, const String& Value) override { return m_inner->Add(Name, Value); }
  Ref<IAttribute> Item(const String& Name) const override { return m_inner->Item(Name); }
  String ItemValue(const String& Name) const override { return m_inner->ItemValue(Name); }
  void ItemValue(const String& Name, const String& Value) override { m_inner->ItemValue(Name, Value); }
  std::int32_t Count() const override { return m_inner->Count(); }
  void Remove(const String& Name) override { m_inner->Remove(Name); }
  std::vector<Ref<IAttribute>> NewEnum() const override { return m_inner->NewEnum(); }

private:
  Ref<CSettings> m_inner;
};

TEST_F(SettingObjectsTest, SameObjectIsGivenForAsLongAsAnybodyHoldsIt) {
  const auto item = Settings->Item(u"A");
  EXPECT_TRUE(IsSameObject(item, Settings->Item(u"a")));
  EXPECT_TRUE(IsSameObject(item, Settings->NewEnum()[0]));
  const auto added = Settings->Add(u"C", u"3");
  EXPECT_TRUE(IsSameObject(added, Settings->Item(u"C")));
}

TEST_F(SettingObjectsTest, ObjectAndCollectionShowTheSame) {
  const auto item = Settings->Item(u"A");
  Settings->Value(u"A", u"one");
  EXPECT_EQ(item->Value(), u"one");
  EXPECT_FALSE(item->IsDirty());
  item->Value(u"two");
  EXPECT_EQ(Settings->Value(u"A"), u"two");
  Settings->Wash();
  EXPECT_TRUE(item->IsDirty());
  item->Value(u"three");
  EXPECT_FALSE(Settings->IsDirty());
  item->Wash();
  EXPECT_TRUE(Settings->IsDirty());
}

TEST_F(SettingObjectsTest, NewObjectShowsWhatThePreviousOneLeft) {
  Cast<CSetting>(Settings->Item(u"A"))->Name(u"Other");
  Settings->Item(u"A")->Value(u"changed");
  const auto item = Settings->Item(u"A");
  EXPECT_EQ(item->Name(), u"Other");
  EXPECT_EQ(item->Value(), u"changed");
  EXPECT_FALSE(item->IsDirty());
  item->Value(u"1");
  EXPECT_TRUE(item->IsDirty());
}

TEST_F(SettingObjectsTest, ObjectKeepsItsStateWhenItIsTakenOut) {
  const auto removed = Settings->Item(u"A");
  const auto cleared = Settings->Item(u"B");
  Settings->Remove(u"A");
  removed->Value(u"alone");
  EXPECT_EQ(removed->Value(), u"alone");
  EXPECT_FALSE(removed->IsDirty());
  Settings->Clear();
  cleared->Wash();
  EXPECT_EQ(cleared->Value(), u"2");
  EXPECT_EQ(Settings->Count(), 0);
  auto own = New<CSettings>();
  own->Initialize();
  const auto orphan = own->Add(u"C", u"3");
  own = {};
  orphan->Value(u"4");
  EXPECT_EQ(orphan->Value(), u"4");
}

TEST_F(SettingObjectsTest, ObjectInitialisedAgainChangesTheCollection) {
  Cast<CSetting>(Settings->Item(u"A"))->Initialize(u"New", u"value");
  EXPECT_EQ(Settings->Value(u"A"), u"value");
  EXPECT_TRUE(Settings->HasRenamed());
  EXPECT_TRUE(Settings->IsDirty());
}

TEST_F(SettingObjectsTest, OnlyAnotherNameCountsAsRenamed) {
  const auto item = Cast<CSetting>(Settings->Item(u"A"));
  item->Name(u"a");
  EXPECT_FALSE(Settings->HasRenamed());
  item->Name(u"B");
  EXPECT_TRUE(Settings->HasRenamed());
  item->Name(u"A");
  EXPECT_FALSE(Settings->HasRenamed());
}

TEST_F(SettingObjectsTest, ObserverIsToldOfEveryChange) {
  const auto expectTold = [this](auto change) {
    Changes = 0;
    change();
    EXPECT_GE(Changes, 1);
  };
  const auto item = Settings->Item(u"A");
  expectTold([&] { Settings->Value(u"A", u"x"); });
  expectTold([&] { Settings->Value(u"B", u"x"); });
  expectTold([&] { Settings->Value(u"C", u"x"); });
  expectTold([&] { Settings->Add(u"D", u"x"); });
  expectTold([&] { item->Value(u"y"); });
  expectTold([&] { Cast<CSetting>(item)->Name(u"Other"); });
  expectTold([&] { Cast<CSetting>(item)->Initialize(u"A", u"z"); });
  expectTold([&] { Settings->Remove(u"B"); });
  expectTold([&] { Settings->Clear(); });
  expectTold([&] { Settings->Initialize(); });
  Changes = 0;
  item->Value(u"taken out");
  EXPECT_EQ(Changes, 0);
}

TEST_F(SettingObjectsTest, ObserverSeesTheChangeThatItIsToldOf) {
  const auto item = Settings->Item(u"A");
  Settings->Value(u"B", u"x");
  EXPECT_EQ(Seen, (std::vector<String>{u"1", u"x", u"-", u"-"}));
  Settings->Value(u"C", u"y");
  EXPECT_EQ(Seen, (std::vector<String>{u"1", u"x", u"y", u"-"}));
  Settings->Add(u"D", u"z");
  EXPECT_EQ(Seen, (std::vector<String>{u"1", u"x", u"y", u"z"}));
  item->Value(u"w");
  EXPECT_EQ(Seen, (std::vector<String>{u"w", u"x", u"y", u"z"}));
  Settings->Remove(u"B");
  EXPECT_EQ(Seen, (std::vector<String>{u"w", u"-", u"y", u"z"}));
  Settings->Clear();
  EXPECT_EQ(Seen, (std::vector<String>{u"-", u"-", u"-", u"-"}));
}

TEST_F(SettingObjectsTest, AttributesOfAnotherClassAreAskedOneByOne) {
  const auto same = New<CSettings>();
  same->Initialize();
  same->Value(u"b", u"2");
  same->Value(u"a", u"1");
  EXPECT_TRUE(Settings->IsSame(New<ForeignAttributes>(same), true));
  same->Value(u"a", u"x");
  EXPECT_FALSE(Settings->IsSame(New<ForeignAttributes>(same), true));
  same->Remove(u"a");
  EXPECT_FALSE(Settings->IsSame(New<ForeignAttributes>(same), true));
}

TEST_F(SettingObjectsTest, ComparisonWithAMissingNameIsRecordedAsAnError) {
  const auto other = New<CSettings>();
  other->Initialize();
  other->Value(u"A", u"1");
  other->Value(u"C", u"2");
  HuntERR::Reset();
  EXPECT_FALSE(Settings->IsSame(other, true));
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  test::ExpectTrail(HuntERR::ErrDescription(), {u"Get CSettings.Item(AttributeName)"});
}

TEST_F(SettingObjectsTest, ComparisonWithWhatIsNotThereFails) {
  EXPECT_EQ(Raised([&] { static_cast<void>(Settings->IsSame(nullptr, true)); }).Number, 91);
  EXPECT_EQ(Raised([&] { static_cast<void>(Settings->IsSame(New<CSettings>(), true)); }).Number, 91);
}

TEST_F(SettingObjectsTest, ClearMakesACollectionBeforeInitialize) {
  CSettings settings;
  settings.Clear();
  EXPECT_EQ(settings.Count(), 0);
}

} // namespace
} // namespace portico
