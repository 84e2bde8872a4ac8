#include "memory/Form.h"

#include "framework/Quit.h"
#include "memory/Areas.h"
#include "memory/Bars.h"
#include "memory/DialogControls.h"
#include "memory/RichTextControl.h"
#include "support/Raised.h"
#include "support/WindowPlatform.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

constexpr MenuDesign Menus[] = {
    {.Name = u"mnuFile", .Caption = u"1000"},
    {.Name = u"mnuOpen", .Caption = u"1001", .Parent = u"mnuFile", .Shortcut = u"Ctrl+N"},
    {.Name = u"mnuBar", .Caption = u"-", .Parent = u"mnuFile"},
    {.Name = u"mnuPopup", .Caption = u"6000", .Visible = false, .IsPopup = true},
    {.Name = u"mnuPopupCut", .Caption = u"6010", .Parent = u"mnuPopup"},
};
constexpr ToolButtonDesign Buttons[] = {
    {.Key = u"Open", .ToolTipText = u"8010", .Image = u"Instrument", .Style = ToolButtonStyle::Check},
    {.Key = u"Sep", .Style = ToolButtonStyle::Separator},
    {.Key = u"Cut"},
};
constexpr StatusPanelDesign Panels[] = {{.Key = u"Status"}, {.Key = u"Date", .Style = StatusPanelStyle::Date}};
constexpr ControlDesign Parts[] = {
    {.Kind = ControlKind::SplitPanel, .Name = u"splitter"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtPast", .Parent = u"splitter", .ToolTipText = u"past"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtFuture", .Parent = u"splitter"},
};
constexpr FormDesign Window = {
    .Name = u"frmMain",
    .Caption = u"A Window",
    .Menus = Menus,
    .ToolButtons = Buttons,
    .StatusPanels = Panels,
    .Controls = Parts,
    .Tag = u"17",
};

class FormTest : public test::WindowTest {
protected:
  Form& Main() { return dynamic_cast<Form&>(*Loaded); }
  /// Writes an event down.
  std::function<void()> Note(const std::string& name) {
    return [this, name] { Calls.push_back(name); };
  }

  std::vector<std::string> Calls;
  Ref<IForm> Loaded = gForms->Load(Window);
};

TEST_F(FormTest, HoldsWhatItsDesignTells) {
  EXPECT_EQ(Loaded->Name(), u"frmMain");
  EXPECT_EQ(Loaded->Caption(), u"A Window");
  EXPECT_EQ(Loaded->Tag(), u"17");
  std::vector<std::string> names;
  for (const IControl* control : Loaded->Controls()) names.push_back(ToUtf8(control->Name()));
  EXPECT_THAT(names, ElementsAre("mnuFile", "mnuOpen", "mnuBar", "mnuPopup", "mnuPopupCut", "tbToolBar", "sbStatusBar",
                                 "splitter", "txtPast", "txtFuture"));
}

TEST_F(FormTest, ChosenItemClicksBehindItsMenu) {
  auto& item = Find<MenuItem>(Loaded, u"mnuOpen");
  Find<MenuItem>(Loaded, u"mnuFile").Click().Connect(Note("mnuFile"));
  item.Click().Connect(Note("mnuOpen"));
  EXPECT_FALSE(item.Choose()); // not on the screen
  Loaded->Show();
  EXPECT_TRUE(item.Choose());
  EXPECT_THAT(Calls, ElementsAre("mnuFile", "mnuOpen"));
}

TEST_F(FormTest, HiddenOrDisabledItemIsNotChosen) {
  Loaded->Show();
  auto& item = Find<MenuItem>(Loaded, u"mnuOpen");
  item.Click().Connect(Note("mnuOpen"));
  item.Enabled(false);
  EXPECT_FALSE(item.Choose());
  item.Enabled(true);
  item.Visible(false);
  EXPECT_FALSE(item.Choose());
  EXPECT_FALSE(Find<MenuItem>(Loaded, u"mnuBar").Choose());
  EXPECT_FALSE(Find<MenuItem>(Loaded, u"mnuPopupCut").Choose());
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_F(FormTest, ItemOfAPopupMenuIsChosenWhileItIsOpen) {
  Loaded->Show();
  auto& menu = Find<MenuItem>(Loaded, u"mnuPopup");
  auto& item = Find<MenuItem>(Loaded, u"mnuPopupCut");
  menu.Click().Connect(Note("mnuPopup"));
  item.Click().Connect(Note("mnuPopupCut"));
  Platform.Screen->OnPopup(u"mnuPopup", [&](MenuItem&) { EXPECT_TRUE(item.Choose()); });
  Loaded->PopupMenu(menu);
  EXPECT_THAT(Calls, ElementsAre("mnuPopup", "mnuPopupCut"));
  EXPECT_FALSE(item.Choose());
}

TEST_F(FormTest, CheckButtonTurnsBeforeItsClick) {
  Loaded->Show();
  auto& bar = Find<ToolBar>(Loaded, ToolBarName);
  bar.ButtonClick().Connect(
      [&](IToolButton& button) { Calls.push_back(ToUtf8(button.Key()) + " " + std::to_string(button.Value())); });
  EXPECT_TRUE(bar.Buttons(u"Open").Press());
  EXPECT_TRUE(bar.Buttons(u"open").Press());
  EXPECT_TRUE(bar.Buttons(u"Cut").Press());
  EXPECT_FALSE(bar.Buttons(u"Sep").Press());
  bar.Buttons(u"Cut").Enabled(false);
  EXPECT_FALSE(bar.Buttons(u"Cut").Press());
  EXPECT_THAT(Calls, ElementsAre("Open 1", "Open 0", "Cut 0"));
  EXPECT_EQ(test::Raised([&] { bar.Buttons(u"none"); }).Number, ErrorNumber::ElementNotFound);
}

TEST_F(FormTest, PanelsCountFromOne) {
  auto& bar = Find<StatusBar>(Loaded, StatusBarName);
  bar.Panels(1).Text(u"text");
  EXPECT_EQ(bar.Panels(1).Text(), u"text");
  EXPECT_EQ(test::Raised([&] { bar.Panels(0); }).Number, ErrorNumber::IndexOutOfBounds);
  EXPECT_EQ(test::Raised([&] { bar.Panels(3); }).Number, ErrorNumber::IndexOutOfBounds);
}

TEST_F(FormTest, FocusMovesFromOneBoxToTheOther) {
  auto& past = Find<RichTextControl>(Loaded, u"txtPast");
  auto& future = Find<RichTextControl>(Loaded, u"txtFuture");
  past.GotFocus().Connect(Note("past got"));
  past.LostFocus().Connect(Note("past lost"));
  future.GotFocus().Connect(Note("future got"));
  EXPECT_EQ(gForms->ActiveControl(), nullptr);
  Loaded->Show();
  EXPECT_EQ(gForms->ActiveControl(), &past); // the first tab stop
  future.SetFocus();
  future.SetFocus();
  EXPECT_EQ(gForms->ActiveControl(), &future);
  EXPECT_THAT(Calls, ElementsAre("past got", "past lost", "future got"));
}

TEST_F(FormTest, FirstShowResizesActivatesAndFocuses) {
  Loaded->Events().Resize.Connect(Note("Resize"));
  Loaded->Events().Activate.Connect(Note("Activate"));
  Find<RichTextControl>(Loaded, u"txtPast").GotFocus().Connect(Note("GotFocus"));
  Loaded->Width(5000);
  EXPECT_THAT(Calls, ElementsAre());
  Loaded->Show();
  Loaded->Show();
  EXPECT_THAT(Calls, ElementsAre("Resize", "Activate", "GotFocus"));
  Loaded->Width(6000);
  Loaded->WindowState(WindowState::Minimized);
  EXPECT_THAT(Calls, ElementsAre("Resize", "Activate", "GotFocus", "Resize", "Resize"));
}

TEST_F(FormTest, ModalFormWithoutAScriptIsALogicError) {
  Screen screen;
  EXPECT_THROW(screen.Load({.Name = u"frmAbout", .Caption = u""})->ShowModal(nullptr), std::logic_error);
  EXPECT_THAT(screen.Unexpected(), ElementsAre(u"frmAbout"));
}

TEST_F(FormTest, ModalFormTakesTheInputUntilItIsHidden) {
  Loaded->Show();
  const Ref<IForm> dialog = gForms->Load({.Name = u"frmAbout", .Caption = u""});
  Platform.Screen->OnShowModal(u"frmAbout", [&](Form& shown) {
    EXPECT_EQ(&shown, dialog.Get());
    EXPECT_FALSE(Find<MenuItem>(Loaded, u"mnuOpen").Choose());
    EXPECT_TRUE(shown.TakesInput());
    shown.Hide();
    Calls.emplace_back("hidden");
  });
  dialog->ShowModal(Loaded.Get());
  EXPECT_THAT(Calls, ElementsAre("hidden"));
  EXPECT_TRUE(Find<MenuItem>(Loaded, u"mnuOpen").Choose());
}

TEST_F(FormTest, QuitClosesAModalForm) {
  const Ref<IForm> dialog = gForms->Load({.Name = u"frmAbout", .Caption = u""});
  Platform.Screen->OnShowModal(u"frmAbout", [&](Form&) { gEventLoop->RequestQuit(); });
  EXPECT_THROW(dialog->ShowModal(nullptr), Quit);
  EXPECT_FALSE(dynamic_cast<Form&>(*dialog).IsShown());
  EXPECT_THROW(dialog->ShowModal(nullptr), Quit);
}

TEST_F(FormTest, CloseAsksAndUnloadsOnlyByItselfIfNobodyAnswers) {
  Loaded->Show();
  Loaded->Events().Unload.Connect(Note("Unload"));
  const auto question = Loaded->Events().QueryUnload.Connect(Note("QueryUnload"));
  EXPECT_TRUE(Main().PressCloseBox());
  EXPECT_TRUE(Main().PressCloseBox());
  EXPECT_EQ(gForms->Forms().size(), 1U);
  Loaded->Events().QueryUnload.Disconnect(question);
  Loaded->Close();
  EXPECT_THAT(Calls, ElementsAre("QueryUnload", "QueryUnload", "Unload"));
  EXPECT_EQ(gForms->Forms().size(), 0U);
}

TEST_F(FormTest, WhatItKeepsOutlivesTheHandlerThatUnloadsIt) {
  Loaded->Show();
  auto kept = New<Form>(*Platform.Screen, FormDesign{.Name = u"kept", .Caption = u""});
  const std::weak_ptr<Form> watch = kept.Shared();
  Loaded->Keep(kept);
  auto* item = &Find<MenuItem>(Loaded, u"mnuOpen");
  const std::weak_ptr<IForm> form = Loaded.Shared();
  item->Click().Connect([&, held = kept.Get()] {
    Loaded->Unload();
    Loaded = {};
    Calls.push_back(ToUtf8(held->Name()));
  });
  kept = {};
  EXPECT_TRUE(item->Choose());
  EXPECT_THAT(Calls, ElementsAre("kept"));
  EXPECT_TRUE(watch.expired());
  EXPECT_TRUE(form.expired());
}

} // namespace
} // namespace portico::memory
