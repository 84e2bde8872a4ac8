#include "terminal/TerminalWindow.h"

#include "terminal/BatchRunBench.h"

namespace portico::test {
namespace {

class TerminalWindowTest : public BatchRunBench {
protected:
  TerminalWindowTest() { Window->Load(); }
  ~TerminalWindowTest() override { Window->Unload(); }
};

TEST_F(TerminalWindowTest, TellsOfRemarksAfterTheyAreShown) {
  std::vector<std::string> told;
  Window->Remarked.Connect([&](const String& line) { told.push_back(ToUtf8(line) + " in " + ToUtf8(Past->Text())); });
  Window->RunLines({u"REM a"});
  EXPECT_EQ(told, std::vector<std::string>{"REM a in REM a\r\n"});
}

} // namespace
} // namespace portico::test
