// Clipboard, keyboard, settings.

#include "application/SavedSettings.h"
#include "qt/ScreenFixture.h"
#include "qt/desktop/Clipboard.h"
#include "qt/desktop/Keyboard.h"
#include "qt/desktop/SettingsStore.h"

#include <QClipboard>
#include <QDir>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>

namespace portico::test {
namespace {

TEST(ClipboardTest, KnowsTheTextThatWasLastPutThere) {
  QGuiApplication::clipboard()->setText("before");
  const qt::Clipboard clipboard;
  EXPECT_EQ(clipboard.GetText(), u"before");
  QGuiApplication::clipboard()->setText("after");
  EXPECT_EQ(clipboard.GetText(), u"after");
  QGuiApplication::clipboard()->clear();
  EXPECT_EQ(clipboard.GetText(), u"");
}

class KeyboardTest : public ScreenTest {
protected:
  qt::Keyboard keyboard{screen};
  Ref<IForm> form = Shown(SampleWindow);
  QPlainTextEdit* upper = Find<QPlainTextEdit>(form, "txtUpper");
  QPlainTextEdit* lower = Find<QPlainTextEdit>(form, "txtLower");
};

TEST_F(KeyboardTest, KeysReachTheControlWithTheFocusAfterTheCallerHasReturned) {
  upper->setPlainText("abc");
  upper->selectAll();
  upper->setFocus();
  QGuiApplication::clipboard()->clear();
  keyboard.SendKeys(u"^C");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
  loop.DoEvents();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "abc");
  lower->setFocus();
  keyboard.SendKeys(u"^V");
  keyboard.SendKeys(u"x");
  loop.DoEvents();
  EXPECT_EQ(lower->toPlainText(), "abcx");
}

TEST_F(KeyboardTest, KeysGoWhereTheFocusIsWhenTheyArrive) {
  upper->setFocus();
  keyboard.SendKeys(u"ab");
  lower->setFocus();
  loop.DoEvents();
  EXPECT_EQ(lower->toPlainText(), "ab");
}

TEST_F(KeyboardTest, WhileAnotherProgramHasTheFocusTheyGoToTheWindowInFront) {
  lower->setFocus();
  QApplication::setActiveWindow(nullptr);
  keyboard.SendKeys(u"x");
  loop.DoEvents();
  EXPECT_EQ(lower->toPlainText(), "x");
}

class SettingsStoreTest : public testing::Test {
protected:
  QTemporaryDir folder;
  qt::SettingsStore store{folder.path()};
};

TEST_F(SettingsStoreTest, AnswersTheDefaultUntilSomethingIsSaved) {
  EXPECT_EQ(store.GetSetting(u"Portico", u"frmMain", u"MainLeft", u"1000"), u"1000");
  store.SaveSetting(u"Portico", u"frmMain", u"MainLeft", u"1005");
  EXPECT_EQ(store.GetSetting(u"Portico", u"frmMain", u"MainLeft", u"1000"), u"1005");
  EXPECT_EQ(store.GetSetting(u"Portico", u"frmOther", u"MainLeft", u"1000"), u"1000");
  EXPECT_EQ(store.GetSetting(u"Other", u"frmMain", u"MainLeft", u"1000"), u"1000");
}

TEST_F(SettingsStoreTest, KeepsAnyTextForTheNextRun) {
  for (const String value :
       {u"", u" a, b ;\"c\" ", u"@Variant(x)", u"%41\\", u"\u00e4\u20ac\U0001F600", u"two\r\nlines", u"On"}) {
    store.SaveSetting(u"Portico", u"Options", u"Key", value);
    EXPECT_EQ(qt::SettingsStore(folder.path()).GetSetting(u"Portico", u"Options", u"Key", u"none"), value);
  }
}

TEST_F(SettingsStoreTest, KeepsTextThatProgramsWithoutTheToolkitRead) {
  using namespace std::string_literals;
  qt::SettingsStore window(folder.filePath("Portico"));
  SavedSettings saved(folder.path().toStdString());
  for (const String& value : {u""s,
                              u" a, b ;\"c\" "s,
                              u"@Variant(x)"s,
                              u"@"s,
                              u"%41\\"s,
                              u"\u00e4\u20ac\U0001F600"s,
                              u"two\r\nlines"s,
                              u"\u0001f\u007f\u0085"s,
                              u"\a\b\f\v"s,
                              u"\t[a]\t"s,
                              u"a\0b"s,
                              u"\u00001"s,
                              u"#a=b"s,
                              u"TCPIP::192.0.2.7::hislip0,4881::INSTR"s,
                              u"  "s,
                              u"\""s,
                              u"\\"s,
                              u","s,
                              u";"s,
                              u"="s,
                              u"\u00a0a"s,
                              u"@Invalid()"s,
                              u"@String(a)"s,
                              u"%20\\x41\\"s}) {
    window.SaveSetting(u"Portico", u"Options", u"Key", value);
    EXPECT_EQ(saved.GetSetting(u"Portico", u"Options", u"Key", u"none"), value);
  }
}

/// The window saves none.
TEST_F(SettingsStoreTest, ListIsNoTextForProgramsWithoutTheToolkitUnlessItHasOneEntry) {
  QDir(folder.path()).mkdir("Portico");
  QSettings settings(folder.filePath("Portico/Portico.conf"), QSettings::IniFormat);
  SavedSettings saved(folder.path().toStdString());
  const std::vector<std::pair<QStringList, std::string>> lists = {
      {{}, "none"},           {{"a", "b"}, "none"}, {{"", "a"}, "none"}, {{"a", ""}, "none"},
      {{"", "", ""}, "none"}, {{""}, ""},           {{"a"}, "a"},        {{" a,\"b\\"}, " a,\"b\\"}};
  for (const auto& [list, text] : lists) {
    settings.setValue("Options/Key", list);
    settings.sync();
    EXPECT_EQ(ToUtf8(saved.GetSetting(u"Portico", u"Options", u"Key", u"none")), text) << list.join('|').toStdString();
  }
}

TEST_F(SettingsStoreTest, HasAFileOfTheTitlesName) {
  store.SaveSetting(u"Tolvane Portico", u"frmMain", u"MainTop", u"1");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"Tolvane Portico.conf"});
}

TEST_F(SettingsStoreTest, TellsOnceOnStandardErrorThatNothingCanBeSaved) {
  QFile file(folder.filePath("file"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  qt::SettingsStore lost(file.fileName()); // which is no folder
  testing::internal::CaptureStderr();
  lost.SaveSetting(u"Portico", u"frmMain", u"MainLeft", u"1005");
  lost.SaveSetting(u"Portico", u"frmMain", u"MainTop", u"1005");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "portico: the settings cannot be saved in " + file.fileName().toStdString() + "/Portico.conf\n");
}

TEST_F(SettingsStoreTest, SaysNothingOfWhatIsSaved) {
  testing::internal::CaptureStderr();
  store.SaveSetting(u"Portico", u"frmMain", u"MainLeft", u"1005");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SettingsStoreTest, SavesOverAFileThatItCannotRead) {
  QFile file(folder.filePath("Portico.conf"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[frmMain\nno settings\n");
  file.close();
  testing::internal::CaptureStderr();
  store.SaveSetting(u"Portico", u"frmMain", u"MainLeft", u"1005");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(qt::SettingsStore(folder.path()).GetSetting(u"Portico", u"frmMain", u"MainLeft", u"none"), u"1005");
}

TEST(UserSettingsTest, StandInTheUsersOwnFile) {
  qt::SettingsStore store;
  store.SaveSetting(u"Portico tests", u"Section", u"Key", u"value");
  EXPECT_EQ(qt::SettingsStore().GetSetting(u"Portico tests", u"Section", u"Key", u""), u"value");
  const QSettings settings("Portico tests", "Portico tests");
  EXPECT_EQ(settings.value("Section/Key").toString(), "value");
  SavedSettings saved(QFileInfo(settings.fileName()).dir().filePath("..").toStdString());
  EXPECT_EQ(saved.GetSetting(u"Portico tests", u"Section", u"Key", u""), u"value");
  QFile::remove(settings.fileName());
}

} // namespace
} // namespace portico::test
