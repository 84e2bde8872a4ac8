#include "support/FailedAllocation.h"

#include "configuration/CConfiguration.h"
#include "configuration/CSettings.h"
#include "configuration/PackedText.h"
#include "support/Labels.h"

namespace portico {
namespace {

using test::ExpectTrail;
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

TEST(PackedTextMemory, IsOneForAllCopiesAndGoesWithTheLast) {
  using test::allocation::alive;
  const std::size_t before = alive;
  {
    PackedText copy;
    {
      const PackedText text(u"shared");
      copy = text;
    }
    EXPECT_EQ(alive, before + 1);
  }
  EXPECT_EQ(alive, before);
}

} // namespace
} // namespace portico
