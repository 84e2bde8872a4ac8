#include "application/SavedSettings.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace portico {
namespace {

namespace fs = std::filesystem;

class SavedSettingsTest : public ::testing::Test {
protected:
  void Save(const std::string& file, const std::string& folder = ".") const {
    fs::create_directories(m_folder.Path() / folder / "A Title");
    test::WriteFile(m_folder.Path() / folder / "A Title" / "A Title.conf", file);
  }
  static std::string Get(SavedSettings settings, StringView key = u"Name1") {
    return ToUtf8(settings.GetSetting(u"A Title", u"Opened", String(key), u"none"));
  }
  std::string Get(StringView key = u"Name1") const { return Get(SavedSettings(m_folder.Path()), key); }
  std::string Read(const std::string& value) const {
    Save("[Opened]\nName1=" + value + "\n");
    return Get();
  }

  const test::TemporaryFolder m_folder;
};

TEST_F(SavedSettingsTest, AreFoundBySectionAndKey) {
  Save("[Before]\nName1=a\n\n[Opened]\nName1=b\nName10=c\n\n[OpenedAlike]\nName1=d\nName2=e\n");
  EXPECT_EQ(Get(), "b");
  EXPECT_EQ(Get(u"Name10"), "c");
  EXPECT_EQ(Get(u"Name2"), "none");
}

TEST_F(SavedSettingsTest, AreNoneWithoutAFileThatCanBeRead) {
  EXPECT_EQ(Get(), "none");
  fs::create_directories(m_folder.Path() / "A Title" / "A Title.conf");
  EXPECT_EQ(Get(), "none");
}

TEST_F(SavedSettingsTest, ReadWhatTheWindowsToolkitWrites) {
  EXPECT_EQ(Read("SIM::dmm::INSTR"), "SIM::dmm::INSTR");
  EXPECT_EQ(Read("\"TCPIP::h::hislip0,4881::INSTR\""), "TCPIP::h::hislip0,4881::INSTR");
  EXPECT_EQ(Read("\" a;b=\\\"c\\\" \\\\ \""), " a;b=\"c\" \\ ");
  EXPECT_EQ(Read("ASRL/dev/\u00e4::INSTR"), "ASRL/dev/\u00e4::INSTR");
  EXPECT_EQ(Read("a\\r\\n\\tb\\x1\\x66"), "a\r\n\tb\x01"
                                          "f");
  EXPECT_EQ(Read("\\a\\b\\f\\v"), "\a\b\f\v");
  EXPECT_EQ(Read("\\x20aC"), "\u20ac");
  EXPECT_EQ(Read("@@a"), "@a");
  EXPECT_EQ(Read(""), "");
}

TEST_F(SavedSettingsTest, ReadWhatAUserHasWrittenByHand) {
  Save("; Name1=a\n[Opened]\r\n#Name1=b\r\n  Name1 = c d \r\nrubbish\r\n");
  EXPECT_EQ(Get(), "c d");
  EXPECT_EQ(Read("\ta\\1018\\9\t"), "aA89");
  Save("[Opened]\nName1=a\nName1=b\nName1");
  EXPECT_EQ(Get(), "b");
}

TEST_F(SavedSettingsTest, AreNoTextWhereTheValueIsSomethingElse) {
  EXPECT_EQ(Read("a, b"), "none");
  EXPECT_EQ(Read("@Invalid()"), "none");
  EXPECT_EQ(Read("@String(a"), "none");
}

TEST_F(SavedSettingsTest, EndWithAnEscapeThatIsCutOff) {
  EXPECT_EQ(Read("a\\"), "a\\");
  EXPECT_EQ(Read("\"a"), "a");
}

TEST_F(SavedSettingsTest, LieInTheFolderThatTheUserHasNamed) {
  Save("[Opened]\nName1=named\n", "named");
  Save("[Opened]\nName1=at home\n", "home/.config");
  const test::EnvironmentVariable home("HOME", m_folder.At("home").c_str());
  const test::EnvironmentVariable named("XDG_CONFIG_HOME", m_folder.At("named").c_str());
  EXPECT_EQ(Get(SavedSettings()), "named");
}

TEST_F(SavedSettingsTest, LieInTheHomeDirectoryOtherwise) {
  Save("[Opened]\nName1=at home\n", "home/.config");
  const test::EnvironmentVariable home("HOME", m_folder.At("home").c_str());
  for (const char* const named : {static_cast<const char*>(nullptr), "", "relative"}) {
    const test::EnvironmentVariable place("XDG_CONFIG_HOME", named);
    EXPECT_EQ(Get(SavedSettings()), "at home");
  }
}

TEST_F(SavedSettingsTest, AreNeverWritten) {
  Save("[Opened]\nName1=a\n");
  SavedSettings(m_folder.Path()).SaveSetting(u"A Title", u"Opened", u"Name1", u"b");
  EXPECT_EQ(Get(), "a");
}

} // namespace
} // namespace portico
