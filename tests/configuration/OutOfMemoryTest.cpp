#include "support/Allocation.h"

#include "configuration/CConfiguration.h"
#include "configuration/CSettings.h"
#include "configuration/PackedText.h"
#include "support/Labels.h"

namespace portico {
namespace {

using test::AllocationsAlive;
using test::ExpectTrail;
using test::FailingAllocation;
using test::FailsAllocation;
using test::OutOfMemory;

/// Longer than what a text holds without allocating.
const String LongText(40, u'x');

class ConfigurationOutOfMemory : public ::testing::Test {
protected:
  ~ConfigurationOutOfMemory() override { HuntERR::Reset(); }
};

TEST_F(ConfigurationOutOfMemory, WashPassesItsFailureOn) {
  CSetting setting;
  setting.Initialize(u"A", u"1");
  setting.Value(LongText);
  const ErrorRecord error = OutOfMemory(1, [&] { setting.Wash(); });
  EXPECT_EQ(error.Number, 7);
  ExpectTrail(error, {u"CSetting.Wash()"});
  EXPECT_FALSE(setting.IsDirty());
}

TEST_F(ConfigurationOutOfMemory, CollectionThatCannotBeMadePassesItsFailureOn) {
  CSettings settings;
  const ErrorRecord error = OutOfMemory(1, [&] { settings.Initialize(); });
  EXPECT_EQ(error.Number, 7);
  ExpectTrail(error, {u"CSettings.Initialize"});
  settings.Initialize();
  settings.Add(u"A", u"1");
  ExpectTrail(OutOfMemory(1, [&] { settings.Clear(); }), {u"CSettings.Clear()"});
  EXPECT_EQ(settings.Count(), 1);
}

TEST_F(ConfigurationOutOfMemory, AdditionThatFailsAddsNothing) {
  for (const std::int32_t before : {0, 1, 2, 8, 9}) {
    CSettings settings;
    settings.Initialize();
    for (std::int32_t i = 0; i < before; ++i) settings.Value(u"key" + ToText(std::int64_t{i}), u"1");
    bool failed = true;
    for (std::size_t number = 1; failed; ++number) {
      const String name = u"new" + ToText(static_cast<std::int64_t>(number)); // of which nothing is shared yet
      const FailingAllocation failing(number);
      try {
        settings.Add(name, LongText);
        failed = false;
      } catch (const Error&) {
        EXPECT_EQ(settings.Count(), before) << number;
        EXPECT_FALSE(settings.Item(name)) << number;
      }
    }
    EXPECT_EQ(settings.Count(), before + 1);
  }
}

TEST(PackedTextMemory, IsOneForAllCopiesAndGoesWithTheLast) {
  const std::size_t before = AllocationsAlive();
  {
    PackedText copy;
    {
      const PackedText text(u"shared");
      copy = text;
    }
    EXPECT_EQ(AllocationsAlive(), before + 1);
  }
  EXPECT_EQ(AllocationsAlive(), before);
}

/// A server with so many items, all with names and values that need memory of their own.
class WriteOutOfMemory : public ::testing::TestWithParam<int> {
protected:
  WriteOutOfMemory() { m_server.Initialize(); }
  ~WriteOutOfMemory() override { HuntERR::Reset(); }

  static String NameOf(int i) { return LongText + ToText(std::int64_t{i}); }
  /// Writes while one allocation after the other fails, until there is none left to fail.
  template <class Check>
  void WriteWithEachAllocationFailing(const String& name, const String& value, Check check) {
    bool failed = true;
    std::size_t number = 0;
    while (failed) {
      Fill();
      const auto write = [&] { m_server.ItemValue(name, value); };
      ASSERT_NO_THROW(failed = FailsAllocation(++number, write)) << "allocation " << number;
      for (int i = 1; i < GetParam(); ++i) EXPECT_EQ(m_server.ItemValue(NameOf(i)), Old);
      check();
      m_server.ItemValue(name, value);
      EXPECT_EQ(m_server.ItemValue(name), value);
      EXPECT_EQ(CountInXML(name), 1U);
    }
    EXPECT_GT(number, 1U) << "no allocation was made";
  }
  std::size_t CountInXML(const String& name) {
    return Split(m_server.Retrieve(u"")->ResponseData(), u"\"" + name + u"\"").size() - 1;
  }

  const String Old = u"old " + LongText;
  CConfiguration m_server;

private:
  void Fill() {
    m_server.Clear();
    for (int i = 0; i < GetParam(); ++i) m_server.ItemValue(NameOf(i), Old);
  }
};

INSTANTIATE_TEST_SUITE_P(AroundTheIndexThreshold, WriteOutOfMemory, ::testing::Values(1, 7, 8, 9, 30));

TEST_P(WriteOutOfMemory, OfANewItemCarriesOnAndLeavesItOnceOrNotAtAll) {
  const String name = NameOf(GetParam());
  WriteWithEachAllocationFailing(name, u"new " + LongText, [&] { EXPECT_LE(CountInXML(name), 1U); });
}

TEST_P(WriteOutOfMemory, OfAnItemThatIsThereCarriesOnAndKeepsOneValueOrTheOther) {
  const String value = u"quite another " + LongText;
  WriteWithEachAllocationFailing(NameOf(0), value, [&] {
    const String kept = m_server.ItemValue(NameOf(0));
    EXPECT_TRUE(kept == Old || kept == value) << ToUtf8(kept);
  });
}

} // namespace
} // namespace portico
