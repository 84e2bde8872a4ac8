#include "support/Files.h"
#include "support/Journal.h"
#include "ui/main/MainWindowFixture.h"

#include <filesystem>

namespace portico::test {
namespace {

/// Logging through the window's own handlers, on a machine without an XML parser.
class MainLogTest : public MainWindowFixture {
protected:
  MainLogTest() {
    HasParser = false;
    HasSpies = false;
    CommonDialog->FileName = FromUtf8(Path.string()).Text;
    Driver->Answer = "1.25";
    Start(u"DMM");
    ExpectNothingBut({});
  }

  /// What the user and the disk see: the dialogs since the last time, no message, no report, no file.
  void ExpectNothingBut(const Journal& dialogs) {
    EXPECT_EQ(Dialogs, dialogs);
    Dialogs.clear();
    ExpectNoBox();
    EXPECT_TRUE(Environment.Appended.empty());
    EXPECT_FALSE(std::filesystem::exists(Path));
    EXPECT_EQ(Window->MousePointer(), 0) << "no command has failed";
  }
  void Query(const String& line) {
    Wire.clear();
    Future().Text(line + String(NewLine));
    Click(u"mnuRun");
    EXPECT_EQ(Wire,
              (test::Journal{"write *OPC?", "read", "write " + ToUtf8(line), "read", "write :SYST:ERR?", "read"}));
  }

  const TemporaryFolder Folder;
  const std::filesystem::path Path = Folder.Path() / "log.xml";
};

TEST_F(MainLogTest, WithoutAParserLoggingDoesNothingAndShowsNothing) {
  Click(u"mnuFileNewLog");
  ExpectNothingBut({"ShowOpen 'Open a log file'"});
  EXPECT_EQ(Item(u"LogFileName"), ToUtf8(*CommonDialog->FileName));
  EXPECT_EQ(Item(u"Logging"), "On");
  EXPECT_TRUE(bool(Window->Logger()));

  Query(u"MEAS:VOLT?");
  ExpectNothingBut({});

  Click(u"mnuFilePause");
  EXPECT_EQ(Item(u"Logging"), "Off");
  Query(u"MEAS:CURR?");
  ExpectNothingBut({});

  Click(u"mnuFilePause");
  EXPECT_EQ(Item(u"Logging"), "On");
  Query(u"MEAS:RES?");
  ExpectNothingBut({});

  Click(u"mnuCloseLog");
  EXPECT_EQ(Item(u"LogFileName"), "");
  EXPECT_FALSE(bool(Window->Logger()));
  ExpectNothingBut({});

  End();
  ExpectNothingBut({});
}

TEST_F(MainLogTest, WithoutAParserTheWindowClosesOnALogThatIsOpen) {
  Click(u"mnuFileNewLog");
  Query(u"MEAS:VOLT?");
  End();
  ExpectNothingBut({"ShowOpen 'Open a log file'"});
}

} // namespace
} // namespace portico::test
