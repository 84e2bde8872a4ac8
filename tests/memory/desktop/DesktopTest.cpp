#include "memory/desktop/Desktop.h"

#include "framework/errors/Quit.h"
#include "memory/FormBench.h"

#include <stdexcept>

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

constexpr ControlDesign DesktopParts[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"box", .Caption = u"some text"},
    {.Kind = ControlKind::CommandButton, .Name = u"button", .Caption = u""},
};
constexpr FormDesign DesktopWindow = {.Name = u"frmMain", .Caption = u"", .Controls = DesktopParts};

TEST(MessageBoxTest, IsAnsweredFromTheQueueAndWritesDownWhatItShows) {
  MessageBox box;
  box.Answer(MessageBoxAnswer::No);
  box.Answer();
  EXPECT_EQ(box.Show(u"Sure?", u"Title", MessageBoxButtons::YesNo, MessageBoxIcon::Question), MessageBoxAnswer::No);
  EXPECT_EQ(box.Show(u"Done.", u"Title"), MessageBoxAnswer::OK);
  EXPECT_THAT(box.Calls(),
              ElementsAre(MessageBox::Call{u"Sure?", u"Title", MessageBoxButtons::YesNo, MessageBoxIcon::Question},
                          MessageBox::Call{u"Done.", u"Title"}));
  EXPECT_EQ(box.AnswersLeft(), 0U);
  EXPECT_TRUE(box.Unexpected().empty());
}

TEST(MessageBoxTest, UnexpectedOneIsALogicError) {
  MessageBox box;
  EXPECT_THROW(box.Show(u"Oh.", u"Title"), std::logic_error);
  EXPECT_THAT(box.Unexpected(), ElementsAre(MessageBox::Call{u"Oh.", u"Title"}));
}

TEST(MessageBoxTest, AnswerWithoutAButtonIsALogicError) {
  MessageBox box;
  box.Answer(MessageBoxAnswer::Yes);
  EXPECT_THROW(box.Show(u"Oh.", u"Title"), std::logic_error);
  box.Answer(MessageBoxAnswer::OK);
  EXPECT_THROW(box.Show(u"Oh?", u"Title", MessageBoxButtons::YesNo), std::logic_error);
  EXPECT_EQ(box.Unexpected().size(), 2U);
}

TEST(MessageBoxTest, MayAnswerAllWithOKButNotAQuestion) {
  MessageBox box;
  box.AnswerAllWithOK();
  EXPECT_EQ(box.Show(u"1", u"Title"), MessageBoxAnswer::OK);
  EXPECT_EQ(box.Show(u"2", u"Title"), MessageBoxAnswer::OK);
  EXPECT_THROW(box.Show(u"3", u"Title", MessageBoxButtons::YesNo), std::logic_error);
}

TEST(MessageBoxTest, ThrowsQuitBeforeItShowsAndWhileItIsOpen) {
  bool quit = false;
  MessageBox box([&] { return quit; });
  box.OnShow = [&](const MessageBox::Call& call) { quit = call.Prompt == u"quit"; };
  box.Answer();
  box.Answer();
  EXPECT_EQ(box.Show(u"go on", u"Title"), MessageBoxAnswer::OK);
  EXPECT_THROW(box.Show(u"quit", u"Title"), Quit);
  EXPECT_THROW(box.Show(u"again", u"Title"), Quit);
  EXPECT_EQ(box.Calls().size(), 2U);
}

class DesktopTest : public FormBench {
protected:
  void Select(std::int32_t start, std::int32_t length) {
    Box.SelStart(start);
    Box.SelLength(length);
  }
  void Send(const String& keys) {
    gKeyboard->SendKeys(keys);
    Platform.Keyboard->Deliver();
  }

  Ref<IForm> Loaded = gForms->Load(DesktopWindow);
  Form& TheForm = Shown(Loaded);
  RichTextControl& Box = Find<RichTextControl>(Loaded, u"box");
};

TEST_F(DesktopTest, KeysWaitUntilTheyAreDelivered) {
  gKeyboard->SendKeys(u"a");
  gKeyboard->SendKeys(u"^V");
  EXPECT_EQ(Box.Text(), u"some text");
  EXPECT_THAT(Platform.Keyboard->Sent(), ElementsAre(u"a", u"^V"));
  Platform.Clipboard->SetText(u"b");
  Platform.Keyboard->Deliver();
  Platform.Keyboard->Deliver(); // nothing is left
  EXPECT_EQ(Box.Text(), u"absome text");
}

TEST_F(DesktopTest, CtrlCCopiesTheSelection) {
  Platform.Clipboard->SetText(u"before");
  Select(0, 0);
  Send(u"^C");
  EXPECT_EQ(gClipboard->GetText(), u"before"); // nothing was selected
  Select(0, 4);
  Send(u"^c");
  EXPECT_EQ(gClipboard->GetText(), u"some");
  EXPECT_EQ(Box.Text(), u"some text");
}

TEST_F(DesktopTest, CtrlXCutsAndCtrlVPastesOverTheSelection) {
  Select(0, 5);
  Send(u"^X");
  EXPECT_EQ(gClipboard->GetText(), u"some ");
  EXPECT_EQ(Box.Text(), u"text");
  Select(0, 1);
  Send(u"^V");
  EXPECT_EQ(Box.Text(), u"some ext");
}

TEST_F(DesktopTest, LockedBoxIsCopiedFromOnly) {
  Box.Locked(true);
  Select(0, 4);
  Send(u"^X");
  EXPECT_EQ(gClipboard->GetText(), u"some");
  Send(u"^V");
  Send(u"x");
  EXPECT_EQ(Box.Text(), u"some text");
}

TEST_F(DesktopTest, KeysGetLostElsewhere) {
  Find<CommandButton>(Loaded, u"button").TakeFocus();
  Select(0, 4);
  Send(u"^C^");
  Send(u"x^Y");
  EXPECT_EQ(gClipboard->GetText(), u"");
  EXPECT_EQ(Box.Text(), u"some text");
  TheForm.Hide();
  Send(u"x");
  EXPECT_EQ(Box.Text(), u"some text");
}

TEST_F(DesktopTest, PrinterKeepsWhatIsPrinted) {
  gPrinter->Print({});
  gPrinter->Print(u"text");
  EXPECT_THAT(Platform.Printer->Printed(), ElementsAre(u"", u"text"));
}

TEST_F(DesktopTest, HelpViewerKeepsWhatItIsAskedFor) {
  gHelpViewer->WinHelp(u"file.hlp", 11, u"");
  Platform.HelpViewer->LoseFiles();
  EXPECT_EQ(NumberOf([] { gHelpViewer->WinHelp(u"file.hlp", 261, u"word"); }), ErrorNumber::FileNotFound);
  EXPECT_THAT(Platform.HelpViewer->Calls(),
              ElementsAre(HelpViewer::Call{u"file.hlp", 11, u""}, HelpViewer::Call{u"file.hlp", 261, u"word"}));
}

} // namespace
} // namespace portico::memory
