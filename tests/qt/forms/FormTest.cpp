// Windows: size, events, and their end.

#include "framework/errors/Quit.h"
#include "qt/ScreenFixture.h"

#include <QMenuBar>

namespace portico::test {
namespace {

class FormTest : public ScreenTest {};

/// Something that a form keeps.
class Kept final : public IObject {
public:
  explicit Kept(bool& gone) : m_gone(gone) {}
  ~Kept() override { m_gone = true; }
  StringView ClassName() const override { return u"Kept"; }

private:
  bool& m_gone;
};

TEST_F(FormTest, BearsWhatItsTableSays) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  EXPECT_EQ(form->Name(), u"frmSample");
  EXPECT_EQ(form->Caption(), u"Sample");
  EXPECT_EQ(form->Tag(), u"7");
  EXPECT_EQ(AsForm(form).Window().objectName(), "frmSample");
  EXPECT_FALSE(AsForm(form).Window().isVisible());
}

TEST_F(FormTest, ListsItsControlsMenusFirstThenTheBarsThenTheOthers) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  std::vector<String> names;
  for (const IControl* control : form->Controls()) names.emplace_back(control->Name());
  EXPECT_EQ(names, (std::vector<String>{u"mnuFile", u"mnuOpen", u"mnuBar", u"mnuMode", u"mnuSCPI", u"mnuOther",
                                        u"mnuHidden", u"mnuPopup", u"mnuPopupCut", u"tbToolBar", u"sbStatusBar",
                                        u"picLogo", u"splitter", u"txtUpper", u"txtLower"}));
}

TEST_F(FormTest, ItsAreaIsWhatTheMenuBarLeavesShownOrNot) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  form->Move(0, 0, 6000, 4500);
  EXPECT_EQ(form->ScaleLeft(), 0);
  EXPECT_EQ(form->ScaleTop(), 0);
  EXPECT_EQ(form->ScaleWidth(), 6000);
  const double height = form->ScaleHeight();
  EXPECT_LT(height, 4500);
  EXPECT_GT(height, 4500 - 40 * FormUnitsPerPixel);
  form->Show();
  loop.DoEvents();
  EXPECT_EQ(form->ScaleWidth(), 6000);
  EXPECT_EQ(form->ScaleHeight(), height);
}

TEST_F(FormTest, ResizeFiresWhenItIsShownAndAtEachChangeOfItsSize) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  int resized = 0;
  form->Events().Resize.Connect([&] { ++resized; });
  form->Move(0, 0, 6000, 4500);
  form->Show();
  loop.DoEvents();
  EXPECT_GE(resized, 1);
  resized = 0;
  form->Width(7500);
  EXPECT_EQ(resized, 1);
  form->Left(150);
  EXPECT_EQ(resized, 1);
}

TEST_F(FormTest, ActivateFiresWhenItGetsTheFocus) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  int activated = 0;
  form->Events().Activate.Connect([&] { ++activated; });
  form->Show();
  loop.DoEvents();
  EXPECT_EQ(activated, 1);
}

TEST_F(FormTest, KnowsItsWindowState) {
  const Ref<IForm> form = Shown(SampleWindow);
  EXPECT_EQ(form->WindowState(), WindowState::Normal);
  form->WindowState(WindowState::Maximized);
  EXPECT_EQ(form->WindowState(), WindowState::Maximized);
  form->WindowState(WindowState::Minimized);
  EXPECT_EQ(form->WindowState(), WindowState::Minimized);
  form->WindowState(WindowState::Normal);
  EXPECT_EQ(form->WindowState(), WindowState::Normal);
  EXPECT_EQ(Raised([&] { form->WindowState(static_cast<WindowState>(3)); }).Number, 380);
}

TEST_F(FormTest, PointerIsSetByValueForAllThatTheWindowHolds) {
  const Ref<IForm> form = Shown(SampleWindow);
  QWidget& window = AsForm(form).Window();
  auto* viewport = Find<QPlainTextEdit>(form, "txtUpper")->viewport();
  const Qt::CursorShape own = viewport->cursor().shape();
  form->MousePointer(11);
  form->MousePointer(11);
  EXPECT_EQ(form->MousePointer(), 11);
  EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(viewport->cursor().shape(), Qt::WaitCursor);
  form->MousePointer(0);
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(viewport->cursor().shape(), own);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(Raised([&] { form->MousePointer(16); }).Number, 380);
}

TEST_F(FormTest, TheCloseBoxAsksAndTheFormStaysUnlessItsHandlerUnloadsIt) {
  const Ref<IForm> form = Shown(SampleWindow);
  int asked = 0;
  form->Events().QueryUnload.Connect([&] { ++asked; });
  AsForm(form).Window().close();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(AsForm(form).Window().isVisible());
  AsForm(form).Window().close();
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(screen.Forms().size(), 1);
}

TEST_F(FormTest, TheCloseBoxUnloadsAFormWithoutAHandler) {
  const Ref<IForm> form = Shown(SampleWindow);
  int unloaded = 0;
  form->Events().Unload.Connect([&] { ++unloaded; });
  AsForm(form).Window().close();
  EXPECT_EQ(unloaded, 1);
  EXPECT_FALSE(AsForm(form).Window().isVisible());
  EXPECT_TRUE(screen.Forms().empty());
  form->Unload();
  EXPECT_EQ(unloaded, 1);
}

TEST_F(FormTest, WhatItKeepsLivesUntilNoHandlerRunsAnyMore) {
  Ref<IForm> form = Shown(SampleWindow);
  bool gone = false;
  bool goneInHandler = false;
  form->Keep(New<Kept>(gone));
  auto& item = FindControl<IMenuItem>(*form, u"mnuOpen");
  item.Click().Connect([&] {
    form->Unload();
    form = {};
    loop.DoEvents();
    goneInHandler = gone;
  });
  Find<QAction>(form, "mnuOpen")->trigger();
  EXPECT_FALSE(goneInHandler);
  EXPECT_TRUE(gone);
}

TEST_F(FormTest, ItsControlsAreSilentOnceItIsUnloaded) {
  const Ref<IForm> form = Shown(SampleWindow);
  int clicked = 0;
  FindControl<IMenuItem>(*form, u"mnuOpen").Click().Connect([&] { ++clicked; });
  form->Unload();
  Find<QAction>(form, "mnuOpen")->trigger();
  EXPECT_EQ(clicked, 0);
}

TEST_F(FormTest, ItsWindowEndsWithTheLastReference) {
  Ref<IForm> form = Shown(SampleWindow);
  const QPointer<QWidget> window = &AsForm(form).Window();
  form->Unload();
  EXPECT_FALSE(window.isNull());
  form = {};
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
}

TEST_F(FormTest, AModalFormReturnsWhenItIsHiddenOrUnloaded) {
  const Ref<IForm> owner = Shown(SampleWindow);
  const Ref<IForm> form = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  bool shown = false;
  Later([&] {
    shown = AsForm(form).Window().isVisible();
    form->Hide();
  });
  form->ShowModal(owner.Get());
  EXPECT_TRUE(shown);
  EXPECT_EQ(screen.Forms().size(), 2);
  Later([&] { AsForm(form).Window().close(); });
  form->ShowModal(owner.Get());
  EXPECT_EQ(screen.Forms().size(), 1);
}

TEST_F(FormTest, WhatAModalFormKeepsLivesUntilItReturns) {
  const Ref<IForm> form = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  bool gone = false;
  bool goneMeanwhile = true;
  form->Keep(New<Kept>(gone));
  Later([&] {
    AsForm(form).Window().close();
    goneMeanwhile = gone;
  });
  form->ShowModal(nullptr);
  EXPECT_FALSE(goneMeanwhile);
  EXPECT_TRUE(gone);
}

TEST_F(FormTest, AModalFormIsUnloadedAndThrowsQuitWhenTheProgramEnds) {
  const Ref<IForm> form = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  int unloaded = 0;
  form->Events().Unload.Connect([&] { ++unloaded; });
  Later([&] { loop.RequestQuit(); });
  EXPECT_THROW(form->ShowModal(nullptr), Quit);
  EXPECT_EQ(unloaded, 1);
  EXPECT_FALSE(AsForm(form).Window().isVisible());
  const Ref<IForm> late = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  EXPECT_THROW(late->ShowModal(nullptr), Quit);
}

TEST_F(FormTest, EscapeClosesADialog) {
  const Ref<IForm> form = Shown({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  int asked = 0;
  form->Events().QueryUnload.Connect([&] { ++asked; });
  QTest::keyClick(&AsForm(form).Window(), Qt::Key_Escape);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(AsForm(form).Window().isVisible());
}

TEST_F(FormTest, AKeyThatLeavesTheMenuBarIsNotSeen) {
  const Ref<IForm> form = Shown(SampleWindow);
  int keys = 0;
  form->Events().KeyDown.Connect([&](std::int32_t, std::int32_t) { ++keys; });
  auto* bar = Find<QMenuBar>(form, "");
  bar->setFocus();
  ASSERT_TRUE(bar->hasFocus());
  QTest::keyClick(bar, Qt::Key_Escape);
  EXPECT_EQ(keys, 0);
}

TEST_F(FormTest, KeysAreSeenOnceBeforeTheControlWithTheFocus) {
  const Ref<IForm> form = Shown(SampleWindow);
  auto* edit = Find<QPlainTextEdit>(form, "txtUpper");
  edit->setFocus();
  std::vector<std::pair<std::int32_t, std::int32_t>> keys;
  QString textThen;
  form->Events().KeyDown.Connect([&](std::int32_t code, std::int32_t shift) {
    keys.emplace_back(code, shift);
    textThen = edit->toPlainText();
  });
  QTest::keyClick(edit, Qt::Key_A);
  EXPECT_EQ(textThen, "");
  EXPECT_EQ(edit->toPlainText(), "a");
  QTest::keyClick(edit, Qt::Key_Tab, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_F5, Qt::ShiftModifier | Qt::AltModifier);
  QKeyEvent accent(QEvent::KeyPress, Qt::Key_Dead_Acute, Qt::NoModifier);
  QCoreApplication::sendEvent(edit, &accent);
  EXPECT_EQ(keys,
            (std::vector<std::pair<std::int32_t, std::int32_t>>{{65, 0}, {17, 2}, {9, 2}, {16, 1}, {18, 5}, {116, 5}}));
}

TEST_F(FormTest, ActiveControlIsTheLastThatHadTheFocusInTheFrontFormMenusExcepted) {
  EXPECT_EQ(screen.ActiveControl(), nullptr);
  const Ref<IForm> form = Shown(SampleWindow);
  auto& upper = FindControl<IRichTextControl>(*form, u"txtUpper");
  auto& lower = FindControl<IRichTextControl>(*form, u"txtLower");
  lower.SetFocus();
  EXPECT_EQ(screen.ActiveControl(), &lower);
  upper.SetFocus();
  EXPECT_EQ(screen.ActiveControl(), &upper);
  Find<QMenuBar>(form, "")->setFocus();
  EXPECT_EQ(screen.ActiveControl(), &upper);
  const Ref<IForm> other = Shown({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  EXPECT_EQ(screen.ActiveControl(), nullptr);
  other->Unload();
  EXPECT_EQ(screen.ActiveControl(), &upper);
}

} // namespace
} // namespace portico::test
