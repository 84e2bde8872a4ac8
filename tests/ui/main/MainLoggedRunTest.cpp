#include "support/Files.h"
#include "ui/main/MainWindowFixture.h"

#include <filesystem>

namespace portico::test {
namespace {

/// A run in the window that is logged, from New Log to the viewer.
class MainLoggedRunTest : public MainWindowFixture {
protected:
  MainLoggedRunTest() {
    HasSpies = false;
    CommonDialog->FileName = FromUtf8(m_folder.At("run.log")).Text;
    Start(u"DMM");
    for (const auto* item : {u"OPCPacing", u"AutoErrorCheckingMode"}) SetItem(item, u"Off");
    Future().Text({});
  }

  void Run(StringView lines) {
    Future().Text(lines);
    Click(u"mnuRun");
  }
  std::string History() { return ToUtf8(Past().Text()); }
  /// What a viewer shows of the log.
  std::string Viewed() {
    Click(u"mnuFileViewLog");
    const auto viewer = Screen->Find(u"frmViewLog");
    std::string text = ToUtf8(FindControl<memory::RichTextControl>(*viewer, u"txtPast").Text());
    viewer->Close();
    return text;
  }
  void SetClock(int hour) { Environment.Now = FakeErrorEnvironment::At(2004, 10, 31, hour, 59, 59); }

private:
  const TemporaryFolder m_folder;
};

TEST_F(MainLoggedRunTest, AClockThatIsSetBackInARunLosesNoLine) {
  Click(u"mnuFileNewLog");
  SetClock(1);
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write LATER?") SetClock(2);
    if (line == "write BACK?") SetClock(1);
  };
  const std::string before = History();
  Run(u"ONE?\r\nTWO?\r\nLATER?\r\nBACK?\r\nFOUR?\r\nFIVE?\r\n");
  ExpectNoBox();
  EXPECT_EQ(ToUtf8(Future().Text()), "");
  std::string expected;
  for (const char* line : {"ONE?", "TWO?", "LATER?", "BACK?", "FOUR?", "FIVE?"}) {
    expected += std::string(line) + "\r\n\u00AEanswer\r\n";
  }
  EXPECT_EQ(History().substr(before.size()), expected);
  Click(u"mnuCloseLog");
  EXPECT_EQ(Viewed(), expected);
  ExpectNoBox();
}

} // namespace
} // namespace portico::test
