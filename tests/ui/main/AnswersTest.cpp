#include "memory/forms/DialogControls.h"
#include "platform/IProgress.h"
#include "support/Files.h"
#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace portico::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// Answers that go from the window into files.
class AnswersTest : public MainWindowFixture {
protected:
  AnswersTest() {
    HasSpies = false;
    Choose(Folder.At("answer.bin"));
  }

  /// The file that the next dialogs bring.
  void Choose(const std::string& file) { CommonDialog->FileName = FromUtf8(file).Text; }

  /// Clicks "Fetch Answer to File..." and answers its first dialog; what that offered.
  String Fetch(const String& query) {
    String offered;
    Screen->OnShowModal(u"QueryDialog", [&](memory::Form& form) {
      auto& field = FindControl<memory::TextBox>(form, u"txtQuery");
      offered = field.Text();
      field.Text(query);
      form.PressKey(ReturnKey);
      if (form.IsShown()) form.PressKey(EscapeKey);
    });
    Click(u"mnuFetchAnswer");
    return offered;
  }
  void ShowAnswer(const std::string& answer) {
    Driver->Answer = answer;
    Click(u"mnuOPC");
  }
  std::vector<std::string> Told() {
    std::vector<std::string> prompts;
    for (const auto& call : Box->Calls()) prompts.push_back(ToUtf8(call.Prompt));
    return prompts;
  }
  bool IsLeft() const { return !std::filesystem::is_empty(Folder.Path()); }

  const TemporaryFolder Folder;
};

TEST_F(AnswersTest, AnAnswerIsSavedWhileTheCaretIsInOne) {
  Start(u"DMM");
  EXPECT_FALSE(Menu(u"mnuSaveAnswer").Enabled());
  ShowAnswer("1.5");
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuSaveAnswer").Enabled());
  Past().SelStart(0); // in the instruction
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuSaveAnswer").Enabled());
}

TEST_F(AnswersTest, OfABlockItsBytesAreSavedAndOfAnyOtherAnswerAll) {
  Start(u"DMM");
  ShowAnswer("#16a\r\n{\\}\r");
  Click(u"mnuSaveAnswer");
  EXPECT_EQ(Folder.Read("answer.bin"), "a\r\n{\\}");
  ShowAnswer("{\"volt\":1.5}, \x80");
  Click(u"mnuSaveAnswer");
  EXPECT_EQ(Folder.Read("answer.bin"), "{\"volt\":1.5}, \x80");
  ExpectNoBox();
}

TEST_F(AnswersTest, WhatCannotBeSavedIsOneSentence) {
  Start(u"DMM");
  ShowAnswer("#16abc");
  Click(u"mnuSaveAnswer");
  Choose("/dev/full");
  ShowAnswer("1.5");
  Click(u"mnuSaveAnswer");
  EXPECT_THAT(Told(),
              ElementsAre(Folder.At("answer.bin") + " was not written: the block is torn, of 6 bytes 3 are there.",
                          "/dev/full cannot be written: No space left on device."));
  EXPECT_FALSE(IsLeft());
}

TEST_F(AnswersTest, WithoutAFileNothingIsSavedOrAsked) {
  Start(u"DMM");
  ShowAnswer("1.5");
  CommonDialog->FileName.reset();
  Wire.clear();
  Click(u"mnuSaveAnswer");
  Fetch(u"CURV?");
  EXPECT_THAT(Wire, IsEmpty());
  ExpectNoBox();
}

TEST_F(AnswersTest, AnAnswerIsFetchedWhileAnInstrumentIsOpenAndNothingRuns) {
  Start();
  EXPECT_FALSE(Menu(u"mnuFetchAnswer").Enabled());
  Click(u"mnuFetchAnswer");
  ExpectNoBox();
  SetOpened();
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuFetchAnswer").Enabled());
  Window->Executing(true);
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuFetchAnswer").Enabled());
  Window->Executing(false);
}

TEST_F(AnswersTest, QueryAndAnswerStandInTheHistory) {
  Start(u"DMM");
  Past().Text({});
  Wire.clear();
  Driver->Pieces = {"#15he", "llo"};
  Driver->OnCall = [this](const std::string& call) {
    EXPECT_TRUE(call != "stream" || Window->Executing()) << "nothing else can be started";
  };
  Fetch(u" CURV? ");
  EXPECT_THAT(Wire, ElementsAre("write CURV?", "stream"));
  EXPECT_EQ(ToUtf8(Past().Text()), "\u00A9CURV?\r\n\u00AE#15hello\r\n");
  EXPECT_EQ(Folder.Read("answer.bin"), "hello");
  EXPECT_FALSE(Window->Executing());
  EXPECT_TRUE(Menu(u"mnuFetchAnswer").Enabled());
  ExpectNoBox();
}

TEST_F(AnswersTest, OfAnAnswerThatIsTooLongForAReadNothingStandsInTheHistory) {
  Start(u"DMM");
  Past().Text({});
  Driver->Pieces = {"#72000000", std::string(2'000'000, 'x')};
  Fetch(u"CURV?");
  EXPECT_EQ(ToUtf8(Past().Text()), "\u00A9CURV?\r\n");
  EXPECT_EQ(Folder.Read("answer.bin").size(), 2'000'000U);
}

TEST_F(AnswersTest, TheCaretsLineIsOfferedIfItHoldsAQuery) {
  Start(u"DMM");
  Future().Text(u"VOLT 1\r\n  WAV:DATA?\r\nREM why?\r\n\u00AE1?\r\n\u00A9*OPC?\r\n");
  const auto offered = [this](std::int32_t caret) {
    Future().SelStart(caret);
    return ToUtf8(Fetch(u""));
  };
  EXPECT_EQ(offered(0), "");
  EXPECT_EQ(offered(8), "WAV:DATA?");
  EXPECT_EQ(offered(22), "");
  EXPECT_EQ(offered(32), "");
  EXPECT_EQ(offered(38), "*OPC?");
}

TEST_F(AnswersTest, WhatIsNoQueryIsRefusedAndTheDialogStays) {
  Start(u"DMM");
  Wire.clear();
  Fetch(u"  ");
  Fetch(u"\u0394?");
  EXPECT_THAT(Told(),
              ElementsAre("Type a query.", "The query holds a character that the instrument's code page lacks."));
  EXPECT_THAT(Wire, IsEmpty());
}

TEST_F(AnswersTest, AFailureLeavesNoFileAndIsToldOnce) {
  Start(u"DMM");
  Driver->Pieces = {"#15he"};
  Driver->Statuses = {{"stream", -1151016}};
  Fetch(u"CURV?");
  EXPECT_THAT(Told(), ElementsAre("failure -1151016"));
  EXPECT_FALSE(IsLeft());
  EXPECT_FALSE(Window->Executing());
}

TEST_F(AnswersTest, AFullDiskIsOneSentence) {
  Start(u"DMM");
  Choose("/dev/full");
  Driver->Pieces = {"1", "2"};
  Fetch(u"CURV?");
  EXPECT_THAT(Told(), ElementsAre("/dev/full cannot be written: No space left on device."));
}

TEST_F(AnswersTest, WhatTheDriverCannotIsToldAndNothingIsSent) {
  Start(u"DMM");
  Wire.clear();
  Driver->Statuses = {{"CanReadInPieces", -1151021}};
  Fetch(u"CURV?");
  EXPECT_THAT(Told(), ElementsAre("failure -1151021"));
  EXPECT_THAT(Wire, IsEmpty());
  EXPECT_FALSE(IsLeft());
}

/// Progress that a test can give up, or that the program's end comes in.
class GivenUpProgress final : public IProgress {
public:
  void Begin(const String& Prompt) override { Prompts.push_back(ToUtf8(Prompt)); }
  bool Step(double Done, double Total) override {
    Steps.emplace_back(Done, Total);
    if (Quits) throw Quit{};
    return Steps.size() < 2;
  }
  void End() noexcept override { ++Ends; }

  std::vector<std::string> Prompts;
  std::vector<std::pair<double, double>> Steps;
  bool Quits = false;
  int Ends = 0;
};

TEST_F(AnswersTest, TheUserMayGiveItUp) {
  const auto progress = std::make_shared<GivenUpProgress>();
  gProgress = progress;
  Start(u"DMM");
  Driver->Pieces = {"#2101234", "5", "67890"};
  Fetch(u"CURV?");
  gProgress = nullptr;
  EXPECT_THAT(progress->Prompts, ElementsAre("CURV?"));
  EXPECT_THAT(progress->Steps, ElementsAre(std::pair(8.0, 10.0), std::pair(9.0, 10.0)));
  EXPECT_EQ(progress->Ends, 1);
  EXPECT_FALSE(IsLeft());
  ExpectNoBox();
  EXPECT_THAT(Wire, Not(Contains("stream"))) << "it has ended before";
}

TEST_F(AnswersTest, TheEndOfTheProgramEndsIt) {
  const auto progress = std::make_shared<GivenUpProgress>();
  progress->Quits = true;
  gProgress = progress;
  Start(u"DMM");
  Driver->Pieces = {"1", "2"};
  EXPECT_TRUE(Quits([&] { Fetch(u"CURV?"); }));
  gProgress = nullptr;
  EXPECT_EQ(progress->Ends, 1);
  EXPECT_FALSE(IsLeft());
}

} // namespace
} // namespace portico::test
