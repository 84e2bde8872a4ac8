#include "memory/Form.h"

#include "framework/Quit.h"
#include "memory/FormBench.h"

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

class FormTest : public FormBench {
protected:
  Form& Main() { return dynamic_cast<Form&>(*Loaded); }
  Ref<IForm> OtherForm(StringView name) { return gForms->Load({.Name = name, .Caption = u""}); }
  static std::vector<std::string> NamesOf(const std::vector<Ref<IForm>>& forms) {
    std::vector<std::string> names;
    for (const auto& form : forms) names.push_back(ToUtf8(form->Name()));
    return names;
  }

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

TEST_F(FormTest, InnerAreaIsWhatFrameAndMenuBarLeave) {
  Loaded->Move(15, 30, 9000, 6000);
  EXPECT_EQ(Loaded->ScaleLeft(), 0);
  EXPECT_EQ(Loaded->ScaleTop(), 0);
  EXPECT_EQ(Loaded->ScaleWidth(), 9000 - FrameWidth);
  EXPECT_EQ(Loaded->ScaleHeight(), 6000 - FrameHeight - MenuBarHeight);
  const Ref<IForm> plain = OtherForm(u"plain");
  plain->Height(6000);
  EXPECT_EQ(plain->ScaleHeight(), 6000 - FrameHeight);
  plain->Move(0, 0, 0, 0);
  EXPECT_EQ(plain->ScaleWidth(), 0);
  EXPECT_EQ(plain->ScaleHeight(), 0);
}

TEST_F(FormTest, MaximizedFormFillsTheScreenAndRemembersItsPlace) {
  Loaded->Show();
  Loaded->Move(15, 30, 9000, 6000);
  Loaded->Events().Resize.Connect(Note("Resize"));
  Loaded->WindowState(WindowState::Maximized);
  Loaded->WindowState(WindowState::Maximized);
  EXPECT_EQ(Loaded->Width(), ScreenWidth);
  EXPECT_EQ(Loaded->Height(), ScreenHeight);
  Loaded->WindowState(WindowState::Normal);
  EXPECT_EQ(Loaded->Left(), 15);
  EXPECT_EQ(Loaded->Width(), 9000);
  EXPECT_THAT(Calls, ElementsAre("Resize", "Resize"));
}

TEST_F(FormTest, UserDragsTheFrame) {
  EXPECT_FALSE(Main().Resize(9000, 6000));
  Loaded->Show();
  Loaded->Events().Resize.Connect(Note("Resize"));
  EXPECT_TRUE(Main().Resize(9000, 6000));
  EXPECT_EQ(Loaded->Height(), 6000);
  Loaded->WindowState(WindowState::Maximized);
  EXPECT_FALSE(Main().Resize(6000, 6000));
  EXPECT_THAT(Calls, ElementsAre("Resize", "Resize"));
}

TEST_F(FormTest, DialogIsOfFixedSizeForTheUser) {
  const auto dialog = gForms->Load({.Name = u"dialog", .Caption = u"", .Style = FormStyle::Dialog});
  EXPECT_FALSE(Shown(dialog).Resize(9000, 6000));
  dialog->Width(9000);
  EXPECT_EQ(dialog->Width(), 9000);
}

TEST_F(FormTest, FormKnowsItsOwner) {
  const Ref<IForm> other = OtherForm(u"other");
  const Ref<IForm> dialog = OtherForm(u"dialog");
  EXPECT_EQ(dynamic_cast<Form&>(*other).Owner(), nullptr);
  other->Owner(Loaded.Get());
  EXPECT_EQ(dynamic_cast<Form&>(*other).Owner(), Loaded.Get());
  Platform.Screen->OnShowModal(u"dialog", [](Form& form) { form.Hide(); });
  dialog->ShowModal(Loaded.Get());
  EXPECT_EQ(dynamic_cast<Form&>(*dialog).Owner(), Loaded.Get());
}

TEST_F(FormTest, MinimizedFormTakesNoInput) {
  Loaded->Show();
  Loaded->WindowState(WindowState::Minimized);
  EXPECT_FALSE(Main().TakesInput());
  EXPECT_FALSE(Find<MenuItem>(Loaded, u"mnuOpen").Choose());
}

TEST_F(FormTest, PropertiesHoldWhatWasSet) {
  Loaded->Caption(u"new");
  Loaded->MousePointer(11);
  EXPECT_EQ(Loaded->Caption(), u"new");
  EXPECT_EQ(Loaded->MousePointer(), 11);
  EXPECT_EQ(Loaded->WindowState(), WindowState::Normal);
}

TEST_F(FormTest, FocusOfAFormThatIsNotInFrontWaitsForIt) {
  auto& future = Find<RichTextControl>(Loaded, u"txtFuture");
  WatchFocus(future);
  future.SetFocus();
  EXPECT_THAT(Calls, ElementsAre());
  EXPECT_EQ(gForms->ActiveControl(), nullptr);
  Loaded->Show();
  EXPECT_EQ(gForms->ActiveControl(), &future);
  EXPECT_THAT(Calls, ElementsAre("txtFuture got"));
}

TEST_F(FormTest, FocusComesBackWithTheFormInFront) {
  WatchFocus(Find<RichTextControl>(Loaded, u"txtPast"));
  Loaded->Show();
  Loaded->Events().Activate.Connect(Note("Activate"));
  const Ref<IForm> other = OtherForm(u"other");
  other->Show();
  EXPECT_EQ(Platform.Screen->InFront(), other.Get());
  EXPECT_EQ(gForms->ActiveControl(), nullptr);
  other->Hide();
  EXPECT_THAT(Calls, ElementsAre("txtPast got", "txtPast lost", "Activate", "txtPast got"));
}

TEST_F(FormTest, AnotherProgramTakesTheFocusAndLeavesTheActiveControl) {
  auto& past = Find<RichTextControl>(Loaded, u"txtPast");
  Loaded->Show();
  WatchFocus(past);
  Loaded->Events().Activate.Connect(Note("Activate"));
  Platform.Screen->SwitchAway();
  Platform.Screen->SwitchAway();
  EXPECT_EQ(gForms->ActiveControl(), &past);
  EXPECT_FALSE(past.HasFocus());
  EXPECT_FALSE(Main().TakesInput());
  Find<RichTextControl>(Loaded, u"txtFuture").SetFocus();
  Platform.Screen->SwitchBack();
  Platform.Screen->SwitchBack();
  EXPECT_TRUE(Find<RichTextControl>(Loaded, u"txtFuture").HasFocus());
  EXPECT_THAT(Calls, ElementsAre("txtPast lost", "Activate"));
}

TEST_F(FormTest, HandlerOfLostFocusMayMoveTheFocusOn) {
  auto& past = Find<RichTextControl>(Loaded, u"txtPast");
  auto& future = Find<RichTextControl>(Loaded, u"txtFuture");
  Loaded->Show();
  WatchFocus(past);
  WatchFocus(future);
  past.LostFocus().Connect([&] { past.SetFocus(); });
  future.SetFocus();
  EXPECT_EQ(gForms->ActiveControl(), &past);
  EXPECT_THAT(Calls, ElementsAre("txtPast lost", "txtPast got"));
}

TEST_F(FormTest, DisabledOrHiddenControlTakesNoFocus) {
  auto& future = Find<RichTextControl>(Loaded, u"txtFuture");
  Loaded->Show();
  future.Enabled(false);
  future.SetFocus();
  EXPECT_FALSE(future.HasFocus());
  future.Enabled(true);
  Find<SplitArea>(Loaded, u"splitter").Visible(false);
  future.SetFocus();
  EXPECT_FALSE(future.HasFocus());
}

TEST_F(FormTest, FirstFocusPassesOverWhatIsNoTabStop) {
  Find<RichTextControl>(Loaded, u"txtPast").TabStop(false);
  Loaded->Show();
  EXPECT_EQ(gForms->ActiveControl(), &Find<RichTextControl>(Loaded, u"txtFuture"));
}

TEST_F(FormTest, FormsAreKnownInTheOrderOfTheirLoading) {
  const Ref<IForm> first = OtherForm(u"frmB");
  const Ref<IForm> second = OtherForm(u"frmB");
  EXPECT_THAT(NamesOf(gForms->Forms()), ElementsAre("frmMain", "frmB", "frmB"));
  EXPECT_TRUE(IsSameObject(Platform.Screen->Find(u"frmB"), second));
  second->Unload();
  EXPECT_TRUE(IsSameObject(Platform.Screen->Find(u"frmB"), first));
  EXPECT_FALSE(Platform.Screen->Find(u"frmC"));
  EXPECT_THAT(NamesOf(gForms->Forms()), ElementsAre("frmMain", "frmB"));
}

TEST_F(FormTest, UnloadHappensOnceAndOffTheScreen) {
  Loaded->Show();
  Loaded->Events().Unload.Connect([&] {
    Calls.push_back(Main().IsShown() ? "Unload on screen" : "Unload");
    EXPECT_EQ(gForms->Forms().size(), 1U);
    Loaded->Unload();
  });
  Loaded->Unload();
  Loaded->Unload();
  EXPECT_THAT(Calls, ElementsAre("Unload"));
  EXPECT_FALSE(Main().IsLoaded());
  EXPECT_THROW(Loaded->Show(), std::logic_error);
  EXPECT_THROW(Loaded->ShowModal(nullptr), std::logic_error);
  EXPECT_NO_THROW(Loaded->Hide());
}

TEST_F(FormTest, ErrorInUnloadPassesAndTheFormIsForgotten) {
  Loaded->Events().Unload.Connect([] { HuntERR::RaiseStandard(ErrorNumber::Overflow); });
  EXPECT_EQ(NumberOf([&] { Loaded->Unload(); }), ErrorNumber::Overflow);
  EXPECT_TRUE(gForms->Forms().empty());
}

TEST_F(FormTest, ModalFormsNest) {
  Loaded->Show();
  const Ref<IForm> outer = OtherForm(u"outer");
  const Ref<IForm> inner = OtherForm(u"inner");
  Platform.Screen->OnShowModal(u"inner", [&](Form& form) {
    Calls.push_back(dynamic_cast<Form&>(*outer).TakesInput() ? "outer takes input" : "inner");
    form.Unload();
  });
  Platform.Screen->OnShowModal(u"outer", [&](Form& form) {
    inner->ShowModal(&form);
    Calls.push_back(form.TakesInput() ? "outer" : "nobody");
    form.Hide();
  });
  outer->ShowModal(Loaded.Get());
  EXPECT_THAT(Calls, ElementsAre("inner", "outer"));
  EXPECT_TRUE(Main().TakesInput());
}

TEST_F(FormTest, ModalFormThatNobodyClosesIsALogicError) {
  const Ref<IForm> dialog = OtherForm(u"dialog");
  Platform.Screen->OnShowModal(u"dialog", [](Form&) {});
  EXPECT_THROW(dialog->ShowModal(nullptr), std::logic_error);
  EXPECT_FALSE(dynamic_cast<Form&>(*dialog).IsShown());
}

TEST_F(FormTest, ErrorThroughAModalFormClosesIt) {
  Loaded->Show();
  const Ref<IForm> dialog = OtherForm(u"dialog");
  Platform.Screen->OnShowModal(u"dialog", [](Form&) { HuntERR::RaiseStandard(ErrorNumber::Overflow); });
  EXPECT_EQ(NumberOf([&] { dialog->ShowModal(nullptr); }), ErrorNumber::Overflow);
  EXPECT_TRUE(Main().TakesInput());
}

TEST_F(FormTest, ScriptsArePlayedInTheirOrderAndMissedWhenTheyAreNot) {
  Screen screen;
  const auto dialog = screen.Load({.Name = u"dialog", .Caption = u""});
  for (const char* name : {"first", "second"}) {
    screen.OnShowModal(u"dialog", [this, name](Form& form) {
      Calls.emplace_back(name);
      form.Hide();
    });
  }
  screen.OnPopup(u"menu", [](MenuItem&) {});
  dialog->ShowModal(nullptr);
  EXPECT_THAT(screen.Unplayed(), ElementsAre(u"dialog", u"menu"));
  dialog->ShowModal(nullptr);
  EXPECT_THAT(screen.Unplayed(), ElementsAre(u"menu"));
  EXPECT_THAT(Calls, ElementsAre("first", "second"));
}

TEST_F(FormTest, QuitThatIsFinishedLetsFormsShowAgain) {
  Platform.Loop->RequestQuit();
  EXPECT_THROW(OtherForm(u"dialog")->ShowModal(nullptr), Quit);
  Platform.Loop->FinishQuit();
  Platform.Screen->OnShowModal(u"dialog", [](Form& form) { form.Hide(); });
  EXPECT_NO_THROW(OtherForm(u"dialog")->ShowModal(nullptr));
}

TEST_F(FormTest, FormOutlivesItsScreenForWhoeverHoldsIt) {
  auto screen = std::make_unique<Screen>();
  const auto form = screen->Load(Window);
  form->Show();
  form->Events().Unload.Connect(Note("Unload"));
  screen.reset();
  EXPECT_FALSE(dynamic_cast<Form&>(*form).IsLoaded());
  EXPECT_FALSE(Find<MenuItem>(form, u"mnuOpen").Choose());
  form->Hide();
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_F(FormTest, ScreenLetsGoOfWhatItsFormsKeep) {
  auto screen = std::make_unique<Screen>();
  auto kept = screen->Load({.Name = u"kept", .Caption = u""});
  const std::weak_ptr<IForm> watch = kept.Shared();
  screen->Load(Window)->Keep(kept);
  kept->Unload();
  kept = {};
  EXPECT_FALSE(watch.expired());
  screen.reset();
  EXPECT_TRUE(watch.expired());
}

TEST_F(FormTest, DesignThatCannotBeBuiltIsALogicError) {
  const ControlDesign orphan[] = {{.Kind = ControlKind::Label, .Name = u"label", .Parent = u"nobody"}};
  const ControlDesign menu[] = {{.Kind = ControlKind::Menu, .Name = u"menu"}};
  EXPECT_THROW(gForms->Load({.Name = u"frm", .Caption = u"", .Controls = orphan}), std::logic_error);
  EXPECT_THROW(gForms->Load({.Name = u"frm", .Caption = u"", .Controls = menu}), std::logic_error);
  EXPECT_EQ(gForms->Forms().size(), 1U);
}

TEST_F(FormTest, FindControlAsksForNameAndKind) {
  EXPECT_EQ(FindControl<IRichTextControl>(*Loaded, u"txtPast").Name(), u"txtPast");
  EXPECT_EQ(NumberOf([&] { FindControl<IRichTextControl>(*Loaded, u"splitter"); }), ErrorNumber::ControlNotFound);
  EXPECT_EQ(NumberOf([&] { FindControl<IControl>(*Loaded, u"none"); }), ErrorNumber::ControlNotFound);
}

} // namespace
} // namespace portico::memory
