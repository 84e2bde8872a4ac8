#include "ui/base/ShowFailure.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/Quit.h"
#include "support/Labels.h"
#include "support/fixtures/WindowPlatform.h"

namespace portico::test {
namespace {

class ShowFailureTest : public WindowTest {
protected:
  static void Fail() { HuntERR::Raise(ErrorNumber::FileNotFound, u"Disk", u"There is no such file."); }
  const std::vector<memory::MessageBox::Call>& Boxes() const { return Platform.MessageBox->Calls(); }
};

TEST_F(ShowFailureTest, AHandlerThatSucceedsShowsNothing) {
  bool ran = false;
  EXPECT_TRUE(RunHandler(u"frmMain.mnuStop_Click", u"Can't stop.", [&] { ran = true; }));
  EXPECT_TRUE(ran);
}

TEST_F(ShowFailureTest, AFailureShowsTheSentenceALineEndAndTheReport) {
  Platform.MessageBox->Answer();
  EXPECT_FALSE(RunHandler(u"frmMain.mnuStop_Click", u"Can't stop.", Fail));
  ASSERT_EQ(Boxes().size(), 1U);
  const auto& box = Boxes().front();
  EXPECT_EQ(box.Title, u"Tolvane Portico");
  EXPECT_EQ(box.Buttons, MessageBoxButtons::OKOnly);
  EXPECT_EQ(box.Icon, MessageBoxIcon::None);
  EXPECT_EQ(box.Prompt, u"Can't stop.\r\n" + HuntERR::ErrDescription());
  ASSERT_EQ(box.Prompt.substr(0, 13), u"Can't stop.\r\n");
  const String report = box.Prompt.substr(13);
  EXPECT_EQ(FirstDescription(report), u"There is no such file.");
  ExpectTrail(report, {u"frmMain.mnuStop_Click"});
}

TEST_F(ShowFailureTest, AnExpectedErrorShowsItsPlainText) {
  Platform.MessageBox->Answer();
  RunHandler(u"frmMain.mnuStop_Click", u"Can't stop.",
             [] { HuntERR::Raise(ErrorNumber::FirstExpected, u"Disk", u"Not now."); });
  EXPECT_EQ(Boxes().front().Prompt, u"Can't stop.\r\nNot now.");
}

TEST_F(ShowFailureTest, AFailureWhileTheBoxIsUpDoesNotDisturbIt) {
  Platform.MessageBox->AnswerAllWithOK();
  bool nested = false;
  Platform.MessageBox->OnShow = [&](const auto&) {
    if (std::exchange(nested, true)) return;
    EXPECT_FALSE(RunHandler(u"frmMain.mnuRun_Click", u"Can't run.", Fail));
  };
  EXPECT_FALSE(RunHandler(u"frmMain.mnuStop_Click", u"Can't stop.", Fail));
  ASSERT_EQ(Boxes().size(), 2U);
  ExpectTrail(Boxes()[0].Prompt, {u"frmMain.mnuStop_Click"});
  ExpectTrail(Boxes()[1].Prompt, {u"frmMain.mnuRun_Click"});
}

TEST_F(ShowFailureTest, TheEndOfTheProgramPassesWithoutABox) {
  EXPECT_THROW(RunHandler(u"frmMain.mnuStop_Click", u"Can't stop.", [] { throw Quit{}; }), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

} // namespace
} // namespace portico::test
