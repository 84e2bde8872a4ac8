#include "views/RunFrame.h"

#include "views/RunFixture.h"

namespace portico::test {
namespace {

class RunFrameTest : public RunFixture {
protected:
  RunFrameTest() {
    Box->OnCall = [this](const std::string& call) {
      if (call == "future.SetFocus") Calls.push_back(call);
    };
    for (LineRunner* runner : Frame.Runners()) {
      runner->Add2History.Connect([this](const String& line) { Frame.Add2History(line); });
    }
  }
  void Type(StringView text) {
    Box->Type(text);
    Calls.clear();
  }

  std::vector<std::string> PastCalls;
  Ref<RecordingTextBox> Past = New<RecordingTextBox>(PastCalls);
  RunFrame Frame{Box, Past};
};

const std::vector<std::string> Ending = {"Executing off", "StopRequested off", "UpdateUI =", "future.SetFocus"};

std::vector<std::string> Around(std::vector<std::string> lines) {
  lines.insert(lines.end(), Ending.begin(), Ending.end());
  return lines;
}

TEST_F(RunFrameTest, RunStandsBetweenTwoUpdates) {
  Type(u"*RST\r\n");
  Frame.Run();
  EXPECT_EQ(Calls, Around({"Executing on", "StopRequested off", "UpdateUI =", "CurrentInstruction=*RST",
                           "send SCPI.Send *RST"}));
}

TEST_F(RunFrameTest, RunToCursorIsFramedLikeRun) {
  Type(u"*RST\r\n*CLS\r\n");
  Box->PlaceCaret(7);
  Frame.RunToCursor();
  EXPECT_EQ(Calls, Around({"Executing on", "StopRequested off", "UpdateUI =", "CurrentInstruction=*RST",
                           "send SCPI.Send *RST"}));
  EXPECT_EQ(Shown(), "*CLS\\r\\n");
}

TEST_F(RunFrameTest, StepCountsAsARunOnlyAfterTheUpdate) {
  Type(u"*RST\r\n*CLS\r\n");
  Frame.Step();
  EXPECT_EQ(Calls, Around({"StopRequested off", "UpdateUI =", "Executing on", "CurrentInstruction=*RST",
                           "send SCPI.Send *RST"}));
  EXPECT_EQ(Shown(), "*CLS\\r\\n");
}

TEST_F(RunFrameTest, AnEmptyWindowRunsToItsEnd) {
  Frame.Run();
  EXPECT_EQ(Calls, Around({"Executing on", "StopRequested off", "UpdateUI ="}));
}

TEST_F(RunFrameTest, StopIsForgottenAtTheEnd) {
  Type(u"one\r\ntwo\r\nthree\r\n");
  Processor->OnSend = [&](const std::string&) { Window->StopRequested(true); };
  Frame.Run();
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_FALSE(Window->Executing());
  EXPECT_EQ(Shown(), "three\\r\\n");
}

TEST_F(RunFrameTest, StopFromBeforeIsForgottenAtTheStart) {
  Type(u"one\r\n");
  Window->StopRequested(true);
  Frame.Run();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Current(), "one");
}

TEST_F(RunFrameTest, FailureLeavesTheWindowExecuting) {
  Processor->Answer = 1;
  for (const auto& run :
       std::vector<std::function<void()>>{[&] { Frame.Run(); }, [&] { Frame.Step(); }, [&] { Frame.RunToCursor(); }}) {
    Box->Type(u"one\r\n");
    Window->Executing(false);
    Window->StopRequested(true);
    Processor->OnSend = [&](const std::string&) { Window->StopRequested(true); };
    Calls.clear();
    ExpectError(Raised(run), 17, u"Instruction was not handled.");
    HuntERR::Reset();
    EXPECT_TRUE(Window->Executing());
    EXPECT_TRUE(Window->StopRequested());
    EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "UpdateUI ="), 1);
    EXPECT_EQ(std::count(Calls.begin(), Calls.end(), "future.SetFocus"), 0);
    EXPECT_EQ(Current(), "one");
  }
}

TEST_F(RunFrameTest, RemarkGoesToTheEndOfTheHistoryWithTheFocus) {
  Past->Type(u"ab");
  Type(u"REM hello\r\n");
  Frame.Run();
  const auto writes = Writes(PastCalls);
  ASSERT_EQ(writes.size(), 6U);
  EXPECT_EQ((List{writes.begin(), writes.begin() + 4}), (List{"SetFocus", "SelStart 3", "SetFocus", "Span \\n"}));
  EXPECT_EQ(writes[4].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[5], Fragment("REM hello\\r\\n"));
}

TEST_F(RunFrameTest, RemarkIsBoldAndDarkGreen) {
  Type(u"REM hello\r\n");
  Frame.Run();
  EXPECT_EQ(Escaped(Past->Contents()), "REM hello\\r\\n");
  EXPECT_EQ(Past->FormatAt(0).SelBold, true);
  EXPECT_EQ(Past->FormatAt(0).SelColor, 0x007F00);
}

TEST_F(RunFrameTest, BlankLineIsShownAsALineEnd) {
  Type(u"\r\n");
  Frame.Run();
  EXPECT_EQ(Escaped(Past->Contents()), "\\r\\n");
}

TEST_F(RunFrameTest, AllThreeShowRemarks) {
  Type(u"REM a\r\n");
  Frame.Run();
  Type(u"REM b\r\n");
  Frame.Step();
  Type(u"REM c\r\n");
  Frame.RunToCursor();
  EXPECT_EQ(Escaped(Past->Contents()), "REM a\\r\\nREM b\\r\\nREM c\\r\\n");
}

TEST_F(RunFrameTest, RemarkIsNoReport) {
  class Listener final : public ISubscriber {
  public:
    StringView ClassName() const override { return u"Listener"; }
    void Update(const Ref<IObject>&) override { ++Updates; }
    int Updates = 0;
  };
  const auto listener = New<Listener>();
  Create<IPublisher>(u"CmdSubscriptionAgent")->Subscribe(listener);
  Type(u"REM a\r\n");
  Frame.Run();
  EXPECT_EQ(listener->Updates, 0);
  EXPECT_EQ(Stamper->Drawn, 0);
}

TEST_F(RunFrameTest, RunCanStartInsideAStep) {
  Type(u"one\r\ntwo\r\n");
  Processor->OnSend = [&](const std::string& text) {
    if (text == "one") Frame.Run();
  };
  Frame.Step();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Current(), "two");
}

} // namespace
} // namespace portico::test
