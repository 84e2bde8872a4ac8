#include "memory/forms/FormTest.h"

#include "framework/errors/Quit.h"

#include <stdexcept>

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

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
  EXPECT_EQ(NumberOf([&] { bar.Buttons(u"none"); }), ErrorNumber::ElementNotFound);
}

TEST_F(FormTest, PanelsCountFromOne) {
  auto& bar = Find<StatusBar>(Loaded, StatusBarName);
  bar.Panels(1).Text(u"text");
  EXPECT_EQ(bar.Panels(1).Text(), u"text");
  EXPECT_EQ(NumberOf([&] { bar.Panels(0); }), ErrorNumber::IndexOutOfBounds);
  EXPECT_EQ(NumberOf([&] { bar.Panels(3); }), ErrorNumber::IndexOutOfBounds);
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
  const Ref<IForm> dialog = OtherForm(u"dialog");
  dialog->Events().Unload.Connect(Note("Unload"));
  Platform.Screen->OnShowModal(u"dialog", [&](Form&) { gEventLoop->RequestQuit(); });
  EXPECT_THROW(dialog->ShowModal(nullptr), Quit);
  EXPECT_THAT(Calls, ElementsAre("Unload"));
  EXPECT_FALSE(dynamic_cast<Form&>(*dialog).IsLoaded());
}

TEST_F(FormTest, ModalFormIsNotShownAfterQuit) {
  const Ref<IForm> dialog = OtherForm(u"dialog");
  dialog->Events().Activate.Connect(Note("Activate"));
  dialog->Events().Unload.Connect(Note("Unload"));
  gEventLoop->RequestQuit();
  EXPECT_THROW(dialog->ShowModal(nullptr), Quit);
  EXPECT_THAT(Calls, ElementsAre("Unload"));
}

TEST_F(FormTest, QuitEndsAPopupMenu) {
  Loaded->Show();
  auto& menu = Find<MenuItem>(Loaded, u"mnuPopup");
  Platform.Screen->OnPopup(u"mnuPopup", [&](MenuItem&) { gEventLoop->RequestQuit(); });
  EXPECT_THROW(Loaded->PopupMenu(menu), Quit);
  EXPECT_EQ(Main().OpenPopup(), nullptr);
  EXPECT_THROW(Loaded->PopupMenu(menu), Quit);
}

TEST_F(FormTest, EscapeClosesADialogThatHasNoButtonForIt) {
  const auto dialog = gForms->Load({.Name = u"dialog", .Caption = u"", .Style = FormStyle::Dialog});
  dialog->Events().QueryUnload.Connect(Note("QueryUnload"));
  Shown(dialog).PressKey(EscapeKey);
  dialog->Hide();
  Loaded->Events().QueryUnload.Connect(Note("window"));
  Shown(Loaded).PressKey(EscapeKey);
  EXPECT_THAT(Calls, ElementsAre("QueryUnload"));
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

TEST_F(FormTest, ItemsThatHaveShortcutsArePressedByTheirKeys) {
  Find<MenuItem>(Loaded, u"mnuFile").Click().Connect(Note("mnuFile"));
  auto& item = Find<MenuItem>(Loaded, u"mnuOpen");
  item.Click().Connect(Note("mnuOpen"));
  Loaded->Events().KeyDown.Connect([&](std::int32_t code, std::int32_t) { Calls.push_back(std::to_string(code)); });
  EXPECT_FALSE(Main().PressKey('N', CtrlState));
  Loaded->Show();
  EXPECT_TRUE(Main().PressKey('N', CtrlState));
  EXPECT_TRUE(Main().PressKey(F1Key, CtrlState));
  EXPECT_TRUE(Main().PressKey(F1Key + 11, AltState | ShiftState));
  item.Enabled(false);
  EXPECT_TRUE(Main().PressKey('N', CtrlState));
  item.Enabled(true);
  item.Visible(false);
  EXPECT_TRUE(Main().PressKey('N', CtrlState));
  EXPECT_THAT(Calls, ElementsAre("mnuOpen", "112", "123", "78", "78"));
}

TEST_F(FormTest, FunctionKeysAreShortcutsToo) {
  const MenuDesign menus[] = {{.Name = u"mnuRun", .Caption = u"", .Shortcut = u"F5"},
                              {.Name = u"mnuRunTo", .Caption = u"", .Shortcut = u"Ctrl+F5"}};
  const Ref<IForm> form = gForms->Load({.Name = u"frm", .Caption = u"", .Menus = menus});
  Find<MenuItem>(form, u"mnuRun").Click().Connect(Note("run"));
  Find<MenuItem>(form, u"mnuRunTo").Click().Connect(Note("run to"));
  Form& shown = Shown(form);
  shown.PressKey(F1Key + 4);
  shown.PressKey(F1Key + 4, CtrlState);
  EXPECT_THAT(Calls, ElementsAre("run", "run to"));
}

TEST_F(FormTest, MenuMayEnableItsItemWhenItDropsDown) {
  Loaded->Show();
  auto& item = Find<MenuItem>(Loaded, u"mnuOpen");
  item.Enabled(false);
  Find<MenuItem>(Loaded, u"mnuFile").Click().Connect([&] { item.Enabled(true); });
  EXPECT_TRUE(item.Choose());
  Find<MenuItem>(Loaded, u"mnuFile").Enabled(false);
  EXPECT_FALSE(item.Choose());
}

TEST_F(FormTest, MenuItemHoldsWhatWasSet) {
  auto& item = Find<MenuItem>(Loaded, u"mnuOpen");
  Loaded->Show();
  item.Checked(true);
  item.Choose();
  EXPECT_TRUE(item.Checked());
  item.Caption(u"&Open");
  EXPECT_EQ(item.Caption(), u"&Open");
  EXPECT_EQ(NumberOf([&] { item.ToolTipText(u"tip"); }), ErrorNumber::PropertyNotFound);
  EXPECT_TRUE(Find<MenuItem>(Loaded, u"mnuPopup").IsPopup());
}

TEST_F(FormTest, PopupMenuClosesBeforeItsItemIsHandled) {
  Loaded->Show();
  auto& menu = Find<MenuItem>(Loaded, u"mnuPopup");
  auto& item = Find<MenuItem>(Loaded, u"mnuPopupCut");
  item.Click().Connect([&] { Calls.emplace_back(Main().OpenPopup() == nullptr ? "closed" : "open"); });
  Platform.Screen->OnPopup(u"mnuPopup", [&](MenuItem& open) {
    EXPECT_EQ(&open, &menu);
    EXPECT_TRUE(item.Choose());
    EXPECT_FALSE(item.Choose()); // one choice
  });
  Loaded->PopupMenu(menu);
  Loaded->PopupMenu(menu); // nothing is chosen
  EXPECT_THAT(Calls, ElementsAre("closed"));
}

TEST_F(FormTest, ToolButtonHoldsWhatWasSet) {
  auto& bar = Find<ToolBar>(Loaded, ToolBarName);
  EXPECT_EQ(bar.Buttons().size(), 3U);
  IToolButton& button = bar.Buttons(u"Open");
  EXPECT_EQ(button.ToolTipText(), u"8010");
  EXPECT_EQ(bar.Buttons(u"Open").Design().Image, u"Instrument");
  button.ToolTipText(u"Open Instrument");
  button.Value(1);
  button.Visible(false);
  EXPECT_EQ(button.ToolTipText(), u"Open Instrument");
  EXPECT_EQ(button.Value(), 1);
  EXPECT_FALSE(bar.Buttons(u"Open").Press());
  EXPECT_EQ(button.Value(), 1);
  EXPECT_EQ(NumberOf([&] { button.Value(2); }), ErrorNumber::BadPropertyValue);
}

TEST_F(FormTest, ToolBarThatIsHiddenOrDisabledIsNotPressed) {
  Loaded->Show();
  auto& bar = Find<ToolBar>(Loaded, ToolBarName);
  bar.Enabled(false);
  EXPECT_FALSE(bar.Buttons(u"Cut").Press());
  bar.Enabled(true);
  bar.Visible(false);
  EXPECT_FALSE(bar.Buttons(u"Cut").Press());
}

TEST_F(FormTest, StatusBarStandsAtTheBottom) {
  auto& bar = Find<StatusBar>(Loaded, StatusBarName);
  EXPECT_EQ(bar.Top() + bar.Height(), Loaded->ScaleHeight());
  Loaded->Move(0, 0, 15000, 12000);
  EXPECT_EQ(bar.Top() + bar.Height(), Loaded->ScaleHeight());
  EXPECT_EQ(bar.Width(), Loaded->ScaleWidth());
  EXPECT_EQ(bar.Panels(2).Design().Style, StatusPanelStyle::Date);
  bar.Panels(2).ToolTipText(u"tip");
  EXPECT_EQ(bar.Panels(2).ToolTipText(), u"tip");
}

} // namespace
} // namespace portico::memory
