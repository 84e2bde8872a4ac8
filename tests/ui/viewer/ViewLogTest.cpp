#include "support/Allocation.h"

#include "ui/viewer/ViewLogFixture.h"

#include "framework/errors/Quit.h"
#include "memory/forms/DeviceContext.h"

namespace portico::test {
namespace {

constexpr ControlDesign OtherControls[] = {{.Kind = ControlKind::CommandButton, .Name = u"cmdOther"}};
constexpr FormDesign OtherForm = {.Name = u"frmOther", .Caption = u"Other", .Controls = OtherControls};

class ViewLogTest : public ViewLogFixture {
protected:
  /// The viewer's copy states, as the menu and the toolbar have them.
  static std::string CopyStates(const Ref<memory::Form>& form) {
    std::string states;
    for (const bool state :
         {Menu(form, u"mnuCopy").Enabled(), Menu(form, u"mnuCopyto").Enabled(), Bar(form).Buttons(u"Copy").Enabled()}) {
      states += state ? '+' : '-';
    }
    return states;
  }
  /// States that the next update has to set right.
  static void Upset(const Ref<memory::Form>& form, bool state) {
    Menu(form, u"mnuCopy").Enabled(state);
    Menu(form, u"mnuCopyto").Enabled(state);
    Bar(form).Buttons(u"Copy").Enabled(state);
    Menu(form, u"mnuFilePrint").Enabled(!state);
  }
  static bool IsUpToDate(const Ref<memory::Form>& form) {
    return CopyStates(form) == "+++" && Menu(form, u"mnuFilePrint").Enabled();
  }
  Ref<memory::Form> ViewWithSelection() {
    auto viewer = ViewOf({u"*IDN?\r\n"});
    Past(viewer).SetFocus();
    Select(Past(viewer), 0, 4);
    Upset(viewer, false);
    return viewer;
  }
};

TEST_F(ViewLogTest, ASelectionEnablesCopy) {
  const auto viewer = ViewWithSelection();
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_EQ(CopyStates(viewer), "+++");
  Select(Past(viewer), 2, 0);
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_EQ(CopyStates(viewer), "---");
}

TEST_F(ViewLogTest, AnEmptyViewerDisablesPrint) {
  MakeLog("run.log", {});
  MakeLog("full.log", {u"x\r\n"});
  EXPECT_FALSE(Menu(View("run.log"), u"mnuFilePrint").Enabled());
  EXPECT_TRUE(Menu(View("full.log"), u"mnuFilePrint").Enabled());
}

TEST_F(ViewLogTest, StatesAreUpToDateWhenTheMenuDropsDown) {
  const auto viewer = ViewWithSelection();
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, StatesAreUpToDateWhenTheWindowIsActivated) {
  const auto viewer = ViewWithSelection();
  Platform.Screen->SwitchAway();
  Upset(viewer, false);
  Platform.Screen->SwitchBack();
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, StatesAreUpToDateWhenTheTextLosesTheFocus) {
  const auto viewer = ViewWithSelection();
  Platform.Screen->SwitchAway();
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, StatesAreUpToDateWhenAMouseButtonIsReleased) {
  const auto viewer = ViewWithSelection();
  Past(viewer).PressMouse({LeftButton, 0, 0, 0});
  EXPECT_EQ(CopyStates(viewer), "---");
  Past(viewer).ReleaseMouse({LeftButton, 0, 0, 0});
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, StatesAreUpToDateWhenAKeyHasReachedTheSelection) {
  const auto viewer = ViewWithSelection();
  Select(Past(viewer), 0, 0);
  viewer->PressKey(65, CtrlState);
  Select(Past(viewer), 0, 4); // what the key does
  gEventLoop->DoEvents();
  EXPECT_EQ(CopyStates(viewer), "---");
  Platform.Time.Advance(std::chrono::milliseconds(1));
  gEventLoop->DoEvents();
  EXPECT_TRUE(IsUpToDate(viewer));
  Upset(viewer, false);
  Platform.Time.Advance(std::chrono::milliseconds(10));
  gEventLoop->DoEvents();
  EXPECT_FALSE(IsUpToDate(viewer)); // once for each key
}

TEST_F(ViewLogTest, AnUpdateDoesNotCopyWhatIsSelected) {
  constexpr std::int32_t units = 1000000;
  const auto viewer = ViewWithSelection();
  Past(viewer).Text(String(units, u'x'));
  Past(viewer).SelLength(units);
  const std::size_t largest = LargestAllocation([&] { viewer->Events().Activate(); });
  EXPECT_LT(largest, std::size_t{units});
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, CopyIsForWhateverTextHasTheFocus) {
  const auto viewer = ViewWithSelection();
  Main->Form().Hide();
  Main->Form().Show();
  Main->txtFuture()->Text(u"*RST");
  Main->txtFuture()->SetFocus();
  viewer->Events().Activate();
  EXPECT_EQ(CopyStates(viewer), "---");
  Main->txtFuture()->SelStart(0);
  Main->txtFuture()->SelLength(4);
  viewer->Events().Activate();
  EXPECT_EQ(CopyStates(viewer), "+++");
}

TEST_F(ViewLogTest, CopyIsOffWhileNoTextHasTheFocus) {
  const auto viewer = ViewWithSelection();
  const auto other = gForms->Load(OtherForm);
  other->Show();
  ASSERT_NE(gForms->ActiveControl(), nullptr);
  Upset(viewer, true);
  viewer->Events().Activate();
  EXPECT_EQ(CopyStates(viewer), "---");
  other->Unload();
  viewer->Hide();
  Main->Form().Hide();
  ASSERT_EQ(gForms->ActiveControl(), nullptr);
  Upset(viewer, true);
  viewer->Events().Activate();
  EXPECT_EQ(CopyStates(viewer), "---");
}

TEST_F(ViewLogTest, AnUpdateTurnsTheLoopOnce) {
  const auto viewer = ViewWithSelection();
  const auto timer = gEventLoop->MakeTimer();
  int turns = 0;
  timer->Interval(1);
  timer->Enabled(true);
  timer->Timer().Connect([&] { ++turns; });
  Platform.Time.Advance(std::chrono::milliseconds(1));
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_EQ(turns, 1);
}

TEST_F(ViewLogTest, TheArgumentsOfAnUpdateHaveNoUse) {
  MakeLog("run.log", {u"*IDN?\r\n"});
  const auto logic = frmViewLog::Make();
  logic->FileName(NameOf("run.log"));
  logic->Show(&Main->Form());
  const auto viewer = Platform.Screen->Find(u"frmViewLog");
  Select(Past(viewer), 0, 4);
  logic->UpdateUI(u"LogFileName", u"x");
  EXPECT_TRUE(IsUpToDate(viewer));
}

TEST_F(ViewLogTest, AViewerMayBeClosedInTheMiddleOfAnUpdate) {
  const auto viewer = ViewWithSelection();
  const auto timer = gEventLoop->MakeTimer();
  timer->Interval(1);
  timer->Enabled(true);
  timer->Timer().Connect([&] {
    timer->Enabled(false);
    viewer->Close();
  });
  Platform.Time.Advance(std::chrono::milliseconds(1));
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_FALSE(viewer->IsLoaded());
}

TEST_F(ViewLogTest, CopiesTheSelection) {
  const auto viewer = ViewWithSelection();
  EXPECT_TRUE(Menu(viewer, u"mnuCopy").Choose());
  EXPECT_EQ(Platform.Keyboard->Sent(), (std::vector<String>{u"^C"}));
  Platform.Keyboard->Deliver();
  EXPECT_EQ(gClipboard->GetText(), u"*IDN");
}

TEST_F(ViewLogTest, CopiesByTheToolbar) {
  const auto viewer = ViewWithSelection();
  Bar(viewer).Buttons(u"Copy").Enabled(true);
  EXPECT_TRUE(Bar(viewer).Buttons(u"Copy").Press());
  EXPECT_EQ(Platform.Keyboard->Sent(), (std::vector<String>{u"^C"}));
}

TEST_F(ViewLogTest, LooksForATextByMenuAndKeys) {
  const auto viewer = ViewOf({u"*IDN?\r\n", u"*RST\r\n", u"*idn?\r\n"});
  auto& box = Past(viewer);
  box.SelStart(0);
  EXPECT_TRUE(Menu(viewer, u"mnuFind").Choose());
  EXPECT_EQ(box.SoughtText(), u"");
  box.LookFor(u"*idn");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_TRUE(Menu(viewer, u"mnuFindNext").Choose());
  EXPECT_EQ(box.SelText(), u"*idn");
  EXPECT_TRUE(viewer->PressKey(u'G', CtrlState + ShiftState));
  EXPECT_EQ(box.SelText(), u"*IDN");
  EXPECT_TRUE(viewer->PressKey(u'G', CtrlState));
  EXPECT_EQ(box.SelText(), u"*idn");
  EXPECT_TRUE(Menu(viewer, u"mnuFindPrevious").Choose());
  EXPECT_EQ(box.SelText(), u"*IDN");
}

TEST_F(ViewLogTest, ZoomsByMenuAndKeys) {
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  auto& box = Past(viewer);
  EXPECT_TRUE(Menu(viewer, u"mnuZoomIn").Choose());
  EXPECT_DOUBLE_EQ(box.ZoomFactor(), 1.1);
  EXPECT_TRUE(viewer->PressKey(u'0', CtrlState));
  EXPECT_EQ(box.ZoomFactor(), 1);
  EXPECT_TRUE(Menu(viewer, u"mnuZoomOut").Choose());
  EXPECT_DOUBLE_EQ(box.ZoomFactor(), 1 / 1.1);
  EXPECT_TRUE(Menu(viewer, u"mnuActualSize").Choose());
  EXPECT_EQ(box.ZoomFactor(), 1);
}

TEST_F(ViewLogTest, TheToolbarsPrintDoesNothing) {
  const auto viewer = ViewWithSelection();
  Calls.clear();
  EXPECT_TRUE(Bar(viewer).Buttons(u"Print").Press());
  Bar(viewer).Buttons(u"Copy to").Visible(true);
  EXPECT_TRUE(Bar(viewer).Buttons(u"Copy to").Press());
  EXPECT_EQ(Calls, List{});
  EXPECT_TRUE(Platform.Keyboard->Sent().empty());
}

TEST_F(ViewLogTest, PrintsItsText) {
  const auto context = New<memory::DeviceContext>();
  Dialog->Context = context;
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  Calls.clear();
  EXPECT_TRUE(Menu(viewer, u"mnuFilePrint").Choose());
  EXPECT_EQ(Calls, (List{"ShowPrinter 'Print Setup' flags 268 CancelError"}));
  EXPECT_EQ(context->Printed(), (std::vector<String>{u"*IDN?\r\n"}));
  EXPECT_TRUE(viewer->PressKey(u'P', CtrlState));
  EXPECT_EQ(context->Printed().size(), 2U);
}

TEST_F(ViewLogTest, PresetsTheSelectionThatTheMainWindowHas) {
  Dialog->Context = New<memory::DeviceContext>();
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  Main->txtPast()->Text(u"past");
  Main->txtPast()->SelLength(4);
  Calls.clear();
  Menu(viewer, u"mnuFilePrint").Choose();
  EXPECT_EQ(Calls, (List{"ShowPrinter 'Print Setup' flags 265 CancelError"}));
}

TEST_F(ViewLogTest, SetsUpThePage) {
  const auto viewer = ViewOf({});
  Calls.clear();
  EXPECT_TRUE(Menu(viewer, u"mnuFilePageSetup").Choose());
  EXPECT_EQ(Calls, (List{"ShowPrinter 'Print Setup' flags 64"}));
}

TEST_F(ViewLogTest, ShowsTheAboutBoxModally) {
  const auto viewer = ViewOf({});
  bool shown = false;
  Platform.Screen->OnShowModal(u"frmAbout", [&](memory::Form& about) {
    shown = true;
    EXPECT_FALSE(viewer->TakesInput());
    about.Unload();
  });
  EXPECT_TRUE(Menu(viewer, u"mnuHelpAbout").Choose());
  EXPECT_TRUE(shown);
}

TEST_F(ViewLogTest, TheEndOfTheProgramPassesItsHandlers) {
  const auto viewer = ViewWithSelection();
  gEventLoop->RequestQuit();
  EXPECT_THROW(Menu(viewer, u"mnuEdit").Choose(), Quit);
  EXPECT_THROW(Menu(viewer, u"mnuHelpAbout").Choose(), Quit);
}

} // namespace
} // namespace portico::test
