#include "memory/forms/FormTest.h"

#include "framework/errors/Quit.h"

#include <stdexcept>

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

/// Where a form stands, and where the focus is.
class FormPlaceTest : public FormTest {};

TEST_F(FormPlaceTest, InnerAreaIsWhatFrameAndMenuBarLeave) {
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

TEST_F(FormPlaceTest, MaximizedFormFillsTheScreenAndRemembersItsPlace) {
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

TEST_F(FormPlaceTest, UserDragsTheFrame) {
  EXPECT_FALSE(Main().Resize(9000, 6000));
  Loaded->Show();
  Loaded->Events().Resize.Connect(Note("Resize"));
  EXPECT_TRUE(Main().Resize(9000, 6000));
  EXPECT_EQ(Loaded->Height(), 6000);
  Loaded->WindowState(WindowState::Maximized);
  EXPECT_FALSE(Main().Resize(6000, 6000));
  EXPECT_THAT(Calls, ElementsAre("Resize", "Resize"));
}

TEST_F(FormPlaceTest, DialogIsOfFixedSizeForTheUser) {
  const auto dialog = gForms->Load({.Name = u"dialog", .Caption = u"", .Style = FormStyle::Dialog});
  EXPECT_FALSE(Shown(dialog).Resize(9000, 6000));
  dialog->Width(9000);
  EXPECT_EQ(dialog->Width(), 9000);
}

TEST_F(FormPlaceTest, FormKnowsItsOwner) {
  const Ref<IForm> other = OtherForm(u"other");
  const Ref<IForm> dialog = OtherForm(u"dialog");
  EXPECT_EQ(dynamic_cast<Form&>(*other).Owner(), nullptr);
  other->Owner(Loaded.Get());
  EXPECT_EQ(dynamic_cast<Form&>(*other).Owner(), Loaded.Get());
  Platform.Screen->OnShowModal(u"dialog", [](Form& form) { form.Hide(); });
  dialog->ShowModal(Loaded.Get());
  EXPECT_EQ(dynamic_cast<Form&>(*dialog).Owner(), Loaded.Get());
}

TEST_F(FormPlaceTest, MinimizedFormTakesNoInput) {
  Loaded->Show();
  Loaded->WindowState(WindowState::Minimized);
  EXPECT_FALSE(Main().TakesInput());
  EXPECT_FALSE(Find<MenuItem>(Loaded, u"mnuOpen").Choose());
}

TEST_F(FormPlaceTest, PropertiesHoldWhatWasSet) {
  Loaded->Caption(u"new");
  Loaded->MousePointer(11);
  EXPECT_EQ(Loaded->Caption(), u"new");
  EXPECT_EQ(Loaded->MousePointer(), 11);
  EXPECT_EQ(Loaded->WindowState(), WindowState::Normal);
}

TEST_F(FormPlaceTest, FocusOfAFormThatIsNotInFrontWaitsForIt) {
  auto& future = Find<RichTextControl>(Loaded, u"txtFuture");
  WatchFocus(future);
  future.SetFocus();
  EXPECT_THAT(Calls, ElementsAre());
  EXPECT_EQ(gForms->ActiveControl(), nullptr);
  Loaded->Show();
  EXPECT_EQ(gForms->ActiveControl(), &future);
  EXPECT_THAT(Calls, ElementsAre("txtFuture got"));
}

TEST_F(FormPlaceTest, FocusComesBackWithTheFormInFront) {
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

TEST_F(FormPlaceTest, AnotherProgramTakesTheFocusAndLeavesTheActiveControl) {
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

TEST_F(FormPlaceTest, HandlerOfLostFocusMayMoveTheFocusOn) {
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

TEST_F(FormPlaceTest, DisabledOrHiddenControlTakesNoFocus) {
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

TEST_F(FormPlaceTest, FirstFocusPassesOverWhatIsNoTabStop) {
  Find<RichTextControl>(Loaded, u"txtPast").TabStop(false);
  Loaded->Show();
  EXPECT_EQ(gForms->ActiveControl(), &Find<RichTextControl>(Loaded, u"txtFuture"));
}

TEST_F(FormPlaceTest, FormsAreKnownInTheOrderOfTheirLoading) {
  const Ref<IForm> first = OtherForm(u"frmB");
  const Ref<IForm> second = OtherForm(u"frmB");
  EXPECT_THAT(NamesOf(gForms->Forms()), ElementsAre("frmMain", "frmB", "frmB"));
  EXPECT_TRUE(IsSameObject(Platform.Screen->Find(u"frmB"), second));
  second->Unload();
  EXPECT_TRUE(IsSameObject(Platform.Screen->Find(u"frmB"), first));
  EXPECT_FALSE(Platform.Screen->Find(u"frmC"));
  EXPECT_THAT(NamesOf(gForms->Forms()), ElementsAre("frmMain", "frmB"));
}

TEST_F(FormPlaceTest, UnloadHappensOnceAndOffTheScreen) {
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

TEST_F(FormPlaceTest, ErrorInUnloadPassesAndTheFormIsForgotten) {
  Loaded->Events().Unload.Connect([] { HuntERR::RaiseStandard(ErrorNumber::Overflow); });
  EXPECT_EQ(NumberOf([&] { Loaded->Unload(); }), ErrorNumber::Overflow);
  EXPECT_TRUE(gForms->Forms().empty());
}

TEST_F(FormPlaceTest, ModalFormsNest) {
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

TEST_F(FormPlaceTest, ModalFormThatNobodyClosesIsALogicError) {
  const Ref<IForm> dialog = OtherForm(u"dialog");
  Platform.Screen->OnShowModal(u"dialog", [](Form&) {});
  EXPECT_THROW(dialog->ShowModal(nullptr), std::logic_error);
  EXPECT_FALSE(dynamic_cast<Form&>(*dialog).IsShown());
}

TEST_F(FormPlaceTest, ErrorThroughAModalFormClosesIt) {
  Loaded->Show();
  const Ref<IForm> dialog = OtherForm(u"dialog");
  Platform.Screen->OnShowModal(u"dialog", [](Form&) { HuntERR::RaiseStandard(ErrorNumber::Overflow); });
  EXPECT_EQ(NumberOf([&] { dialog->ShowModal(nullptr); }), ErrorNumber::Overflow);
  EXPECT_TRUE(Main().TakesInput());
}

TEST_F(FormPlaceTest, ScriptsArePlayedInTheirOrderAndMissedWhenTheyAreNot) {
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

TEST_F(FormPlaceTest, QuitThatIsFinishedLetsFormsShowAgain) {
  Platform.Loop->RequestQuit();
  EXPECT_THROW(OtherForm(u"dialog")->ShowModal(nullptr), Quit);
  Platform.Loop->FinishQuit();
  Platform.Screen->OnShowModal(u"dialog", [](Form& form) { form.Hide(); });
  EXPECT_NO_THROW(OtherForm(u"dialog")->ShowModal(nullptr));
}

TEST_F(FormPlaceTest, FormOutlivesItsScreenForWhoeverHoldsIt) {
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

TEST_F(FormPlaceTest, ScreenLetsGoOfWhatItsFormsKeep) {
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

TEST_F(FormPlaceTest, DesignThatCannotBeBuiltIsALogicError) {
  const ControlDesign orphan[] = {{.Kind = ControlKind::Label, .Name = u"label", .Parent = u"nobody"}};
  const ControlDesign menu[] = {{.Kind = ControlKind::Menu, .Name = u"menu"}};
  EXPECT_THROW(gForms->Load({.Name = u"frm", .Caption = u"", .Controls = orphan}), std::logic_error);
  EXPECT_THROW(gForms->Load({.Name = u"frm", .Caption = u"", .Controls = menu}), std::logic_error);
  EXPECT_EQ(gForms->Forms().size(), 1U);
}

} // namespace
} // namespace portico::memory
