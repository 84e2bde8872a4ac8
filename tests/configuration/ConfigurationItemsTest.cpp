#include "framework/shared/ConfigurationItems.h"

#include "configuration/CConfiguration.h"

#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::Raised;

class ConfigurationItemsTest : public test::FrameworkTest {
protected:
  ConfigurationItemsTest() {
    const auto server = New<CConfiguration>();
    server->Initialize();
    Configuration = server;
  }

  Ref<IConfiguration> Configuration;
};

TEST_F(ConfigurationItemsTest, OnlyOnIsOn) {
  for (const char16_t* text : {u"Off", u"", u"on", u"ON", u"True", u"On "}) {
    Configuration->ItemValue(u"Logging", text);
    EXPECT_FALSE(Configuration->IsOn(Item::Logging)) << ToUtf8(text);
  }
  Configuration->ItemValue(u"Logging", u"On");
  EXPECT_TRUE(Configuration->IsOn(Item::Logging));
}

TEST_F(ConfigurationItemsTest, ASwitchIsStoredAsOnAndOff) {
  Configuration->Set(Item::Logging, true);
  EXPECT_EQ(Configuration->ItemValue(u"Logging"), u"On");
  Configuration->Set(Item::Logging, false);
  EXPECT_EQ(Configuration->ItemValue(u"Logging"), u"Off");
}

TEST_F(ConfigurationItemsTest, ATruthIsStoredAsTrueAndFalse) {
  Configuration->Set(Item::InstrumentOpened, true);
  EXPECT_EQ(Configuration->ItemValue(u"InstrumentOpened"), u"True");
  EXPECT_TRUE(Configuration->IsTrue(Item::InstrumentOpened));
  Configuration->Set(Item::InstrumentOpened, false);
  EXPECT_EQ(Configuration->ItemValue(u"InstrumentOpened"), u"False");
  EXPECT_FALSE(Configuration->IsTrue(Item::InstrumentOpened));
}

TEST_F(ConfigurationItemsTest, ATruthIsReadInAnyCaseAndFromANumber) {
  for (const char16_t* text : {u"TRUE", u"1", u"-1"}) {
    Configuration->ItemValue(u"OpenfromTree", text);
    EXPECT_TRUE(Configuration->IsTrue(Item::OpenfromTree)) << ToUtf8(text);
  }
  Configuration->ItemValue(u"OpenfromTree", u"0");
  EXPECT_FALSE(Configuration->IsTrue(Item::OpenfromTree));
}

TEST_F(ConfigurationItemsTest, ATextThatIsNoTruthRaises13) {
  Configuration->ItemValue(u"InstrumentOpened", u"On");
  EXPECT_EQ(Raised([this] { Configuration->IsTrue(Item::InstrumentOpened); }).Number, 13);
}

TEST_F(ConfigurationItemsTest, AnIntervalIsReadAsANumber) {
  Configuration->ItemValue(u"PacingInterval", u"1000");
  EXPECT_EQ(Configuration->Milliseconds(Item::PacingInterval), 1000);
  Configuration->ItemValue(u"PacingInterval", u"soon");
  EXPECT_EQ(Raised([this] { Configuration->Milliseconds(Item::PacingInterval); }).Number, 13);
  Configuration->ItemValue(u"PacingInterval", u"4294967296");
  EXPECT_EQ(Raised([this] { Configuration->Milliseconds(Item::PacingInterval); }).Number, 6);
}

TEST_F(ConfigurationItemsTest, AnAbsentItemRaisesTheSameWhicheverWayItIsRead) {
  const auto absent = static_cast<std::int32_t>(0x80041461);
  EXPECT_EQ(Raised([this] { Configuration->ItemValue(Item::LogFileName); }).Number, absent);
  EXPECT_EQ(Raised([this] { Configuration->IsOn(Item::Logging); }).Number, absent);
  EXPECT_EQ(Raised([this] { Configuration->IsTrue(Item::OpenfromTree); }).Number, absent);
  EXPECT_EQ(Raised([this] { Configuration->Milliseconds(Item::PacingInterval); }).Number, absent);
}

TEST_F(ConfigurationItemsTest, KeysBearTheNamesOfTheirItems) {
  for (const AnyItemKey& key : std::initializer_list<AnyItemKey>{Item::CurrentInstruction, Item::CopyToFileName,
                                                                 Item::PasteFromFileName, Item::RunningMode}) {
    Configuration->ItemValue(key.Name, u"x");
  }
  for (const char16_t* name : {u"CurrentInstruction", u"CopyToFileName", u"PasteFromFileName", u"RunningMode"}) {
    EXPECT_EQ(Configuration->ItemValue(name), u"x");
  }
}

} // namespace
} // namespace portico
