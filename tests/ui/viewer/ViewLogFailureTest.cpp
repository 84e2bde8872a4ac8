#include "ui/commands/ReadingCommands.h"
#include "ui/viewer/ViewLogFixture.h"

namespace portico::test {
namespace {

/// What fails in a viewer is told.
class ViewLogFailureTest : public ViewLogFixture {
protected:
  Ref<memory::Form> ViewWithSelection() {
    auto viewer = ViewOf({u"*IDN?\r\n"});
    Past(viewer).SetFocus();
    Select(Past(viewer), 0, 4);
    return viewer;
  }
  void Fail(const std::function<void()>& act, StringView sentence, StringView label, StringView description) {
    Platform.MessageBox->Answer();
    act();
    ExpectBox(sentence, label, description);
  }
  /// A turn of the loop fails.
  void BreakTurns() {
    m_timer = gEventLoop->MakeTimer();
    m_timer->Interval(1);
    m_timer->Enabled(true);
    m_timer->Timer().Connect([this] {
      m_timer->Enabled(false);
      HuntERR::Raise(ErrorNumber::InternalState, u"Loop", u"Not now.");
    });
    Platform.Time.Advance(std::chrono::milliseconds(1));
  }

private:
  std::unique_ptr<ITimer> m_timer;
};

TEST_F(ViewLogFailureTest, AFailureOfItsViewMenuBearsTheItemsLabel) {
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  Calls.clear();
  gObjectFactory->Remove(MakeCreator(CtorZoomIn));
  Platform.MessageBox->Answer();
  EXPECT_TRUE(Menu(viewer, u"mnuZoomIn").Choose());
  ASSERT_EQ(Platform.MessageBox->Calls().size(), 1U);
  const String& prompt = Platform.MessageBox->Calls()[0].Prompt;
  EXPECT_EQ(prompt.find(u"Can't change the size of the text.\r\n"), 0U);
  EXPECT_EQ(ToUtf8(CallStack(prompt).back()), "frmViewLog.mnuZoomIn_Click()");
}

TEST_F(ViewLogFailureTest, AFailedCopyIsTold) {
  const auto viewer = ViewWithSelection();
  gKeyboard.reset();
  Fail([&] { Menu(viewer, u"mnuCopy").Choose(); }, u"Can't perform copy operation.", u"frmViewLog.mnuCopy_Click",
       u"Object reference is not set.");
}

TEST_F(ViewLogFailureTest, AFailedCopyOfTheToolbarIsToldAsTheMenusIs) {
  const auto viewer = ViewWithSelection();
  Bar(viewer).Buttons(u"Copy").Enabled(true);
  gKeyboard.reset();
  Fail([&] { Bar(viewer).Buttons(u"Copy").Press(); }, u"Can't perform copy operation.", u"frmViewLog.mnuCopy_Click",
       u"Object reference is not set.");
}

TEST_F(ViewLogFailureTest, AFailureThatIsLeftToTheToolbarIsToldWithTheButtonsKey) {
  const auto viewer = ViewWithSelection();
  Bar(viewer).Buttons(u"Copy").Enabled(true);
  gKeyboard.reset();
  Platform.MessageBox->AnswerAllWithOK();
  bool failed = false;
  Platform.MessageBox->OnShow = [&](const auto&) {
    if (!std::exchange(failed, true)) HuntERR::Raise(ErrorNumber::InternalState, u"Box", u"Not now.");
  };
  Bar(viewer).Buttons(u"Copy").Press();
  ASSERT_EQ(Platform.MessageBox->Calls().size(), 2U);
  const String& shown = Platform.MessageBox->Calls().back().Prompt;
  EXPECT_EQ(ToUtf8(shown.substr(0, shown.find(u" \r\n  Time="))), "Can't perform Copy operation.\r\nNot now.");
  EXPECT_EQ(Labels(shown).back(), u"frmViewLog.tbToolBar_ButtonClick()");
}

TEST_F(ViewLogFailureTest, ACancelledPrintIsTold) {
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  const String cancelled = FirstDescription(Raised([] { HuntERR::RaiseStandard(ErrorNumber::DialogCancelled); }));
  Fail([&] { Menu(viewer, u"mnuFilePrint").Choose(); }, u"Can't perform print operation.",
       u"frmViewLog.mnuFilePrint_Click", cancelled);
}

TEST_F(ViewLogFailureTest, AFailedPageSetupIsTold) {
  const auto viewer = ViewOf({});
  gCommonDialog = {};
  Fail([&] { Menu(viewer, u"mnuFilePageSetup").Choose(); }, u"Can't setup page.", u"frmViewLog.mnuFilePageSetup_Click",
       u"Command dialog control cannot be nothing.");
}

TEST_F(ViewLogFailureTest, AFailedClosingIsTold) {
  const auto viewer = ViewOf({});
  viewer->Events().Unload.Connect([] { HuntERR::Raise(ErrorNumber::InternalState, u"Form", u"Not now."); });
  Fail([&] { Menu(viewer, u"mnuFileClose").Choose(); }, u"An error occured while closing.",
       u"frmViewLog.mnuFileClose_Click", u"Not now.");
}

TEST_F(ViewLogFailureTest, AFailedAboutBoxIsTold) {
  const auto viewer = ViewOf({});
  Platform.Screen->OnShowModal(u"frmAbout",
                               [](memory::Form&) { HuntERR::Raise(ErrorNumber::InternalState, u"Form", u"Not now."); });
  Fail([&] { Menu(viewer, u"mnuHelpAbout").Choose(); }, u"An error occured while displaying about box.",
       u"frmViewLog.mnuHelpAbout_Click", u"Not now.");
}

TEST_F(ViewLogFailureTest, FailedUpdatesAreTold) {
  const StringView sentence = u"An error occured while changing focus.";
  const auto viewer = ViewWithSelection();
  const auto check = [&](StringView handler, const std::function<void()>& act) {
    SCOPED_TRACE(ToUtf8(handler));
    const std::size_t before = Platform.MessageBox->Calls().size();
    Platform.MessageBox->Answer();
    BreakTurns();
    act();
    ASSERT_EQ(Platform.MessageBox->Calls().size(), before + 1);
    const String& shown = Platform.MessageBox->Calls().back().Prompt;
    EXPECT_EQ(ToUtf8(shown.substr(0, sentence.size() + 10)), ToUtf8(sentence) + "\r\nNot now.");
    ExpectTrail(shown, {u"frmViewLog.UpdateUI()", u"frmViewLog." + String(handler)});
  };
  check(u"mnuEdit_Click", [&] { Menu(viewer, u"mnuEdit").Choose(); });
  check(u"txtPast_MouseUp", [&] {
    Past(viewer).PressMouse({LeftButton, 0, 0, 0});
    Past(viewer).ReleaseMouse({LeftButton, 0, 0, 0});
  });
  check(u"txtPast_LostFocus", [&] { Platform.Screen->SwitchAway(); });
  check(u"Form_Activate", [&] { Platform.Screen->SwitchBack(); });
}

TEST_F(ViewLogFailureTest, AFailedUpdateBehindAKeyIsTold) {
  const auto viewer = ViewWithSelection();
  viewer->PressKey(65, CtrlState);
  BreakTurns(); // due behind the update
  Fail([] { gEventLoop->DoEvents(); }, u"An error occured while changing focus.", u"frmViewLog.Form_KeyDown",
       u"Not now.");
}

} // namespace
} // namespace portico::test
