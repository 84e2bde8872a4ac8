#include "ui/viewer/ViewLogFixture.h"

namespace portico::test {
namespace {

/// Viewers of logs whose end is missing. Stamps of this fixture are "stamp 1", "stamp 2", …
class ViewLogCutTest : public ViewLogFixture {
protected:
  ViewLogCutTest() { MakeLog("run.log", {u"one\r\n", u"two\r\n"}); }

  void CutBehind(const std::string& text) {
    const std::string log = Read("run.log");
    Write("run.log", log.substr(0, log.find(text) + text.size()));
  }
  void ExpectWarning(const String& place) {
    ASSERT_EQ(Platform.MessageBox->Calls().size(), 1U);
    const memory::MessageBox::Call expected = {u"The end of the log, " + NameOf("run.log") +
                                                   u", is missing. It breaks off " + place +
                                                   u". What stands in front of that is shown.",
                                               u"Tolvane Portico", MessageBoxButtons::OKOnly, MessageBoxIcon::None};
    EXPECT_EQ(ToUtf8(Platform.MessageBox->Calls().front().Prompt), ToUtf8(expected.Prompt));
    EXPECT_EQ(Platform.MessageBox->Calls().front(), expected);
  }
};

TEST_F(ViewLogCutTest, ShowWhatIsWholeAndSayInWhichSessionTheLogBreaksOff) {
  CutBehind("</Instruction>\n<Instr");
  Platform.MessageBox->Answer();
  const auto viewer = View("run.log");
  EXPECT_EQ(Past(viewer).Text(), u"one\r\n");
  EXPECT_EQ(viewer->Caption(), u"Log Viewer - " + NameOf("run.log"));
  ExpectWarning(u"in session 1, opened stamp 1");
}

TEST_F(ViewLogCutTest, SayBehindWhichSessionTheLogBreaksOff) {
  CutBehind("</Session>");
  Platform.MessageBox->Answer();
  EXPECT_EQ(Past(View("run.log")).Text(), u"one\r\ntwo\r\n");
  ExpectWarning(u"behind session 1, opened stamp 1");
}

TEST_F(ViewLogCutTest, SayThatNoSessionIsLeft) {
  CutBehind("/>\n<Sess");
  Platform.MessageBox->Answer();
  EXPECT_EQ(Past(View("run.log")).Text(), u"");
  ExpectWarning(u"in front of its first session");
}

TEST_F(ViewLogCutTest, NameASessionWithoutAStampByItsNumber) {
  Write("run.log", "<SCPICommLog><Header ApplicationName=\"Tolvane Portico\"/><Session/><Session>");
  Platform.MessageBox->Answer();
  View("run.log");
  ExpectWarning(u"in session 2");
}

TEST_F(ViewLogCutTest, WarnWhenTheLogIsShown) {
  CutBehind("</Session>");
  Platform.MessageBox->Answer();
  bool shown = false;
  Platform.MessageBox->OnShow = [&](const auto&) {
    const auto viewer = Platform.Screen->Find(u"frmViewLog");
    shown = viewer->IsShown();
    EXPECT_EQ(Past(viewer).Text(), u"one\r\ntwo\r\n");
  };
  View("run.log");
  EXPECT_TRUE(shown);
}

TEST_F(ViewLogCutTest, SayNothingOfALogThatIsWhole) {
  EXPECT_EQ(Past(View("run.log")).Text(), u"one\r\ntwo\r\n");
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
}

TEST_F(ViewLogCutTest, SayNothingMoreOfALogThatIsRefused) {
  CutBehind("<SCPICommLog>");
  Platform.MessageBox->Answer();
  const auto viewer = View("run.log");
  ExpectBox(u"An error occured while loading.", u"frmViewLog.Form_Load",
            u"The file, " + NameOf("run.log") + u", is not a valid data store.");
}

} // namespace
} // namespace portico::test
