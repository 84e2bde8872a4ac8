// The controls of dialogs, and how they are laid out.

#include "platform/IDialogControls.h"
#include "qt/ScreenFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

namespace portico::test {
namespace {

constexpr std::array InputsControls{
    ControlDesign{.Kind = ControlKind::TabStrip, .Name = u"tabs", .ToolTipText = u"Protocols"},
    ControlDesign{.Kind = ControlKind::Page, .Name = u"page0"},
    ControlDesign{.Kind = ControlKind::Frame, .Name = u"frame", .Caption = u"&Pacing", .Parent = u"page0"},
    ControlDesign{.Kind = ControlKind::CheckBox, .Name = u"check", .Caption = u"&Wait", .Parent = u"frame"},
    ControlDesign{.Kind = ControlKind::Row, .Name = u"row", .Parent = u"frame"},
    ControlDesign{.Kind = ControlKind::Label, .Name = u"label", .Caption = u"&Interval:", .Parent = u"row"},
    ControlDesign{.Kind = ControlKind::TextBox, .Name = u"text", .Caption = u"100", .Parent = u"row"},
    ControlDesign{.Kind = ControlKind::Page, .Name = u"page1"},
    ControlDesign{.Kind = ControlKind::ComboBox, .Name = u"list", .Parent = u"page1", .ToolTipText = u"Character"},
    ControlDesign{.Kind = ControlKind::ComboBox, .Name = u"typed", .Parent = u"page1", .Tag = u"typed"},
    ControlDesign{.Kind = ControlKind::Line, .Name = u"line"},
    ControlDesign{.Kind = ControlKind::Row, .Name = u"buttons"},
    ControlDesign{.Kind = ControlKind::Space, .Name = u"space", .Parent = u"buttons"},
    ControlDesign{
        .Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"&OK", .Parent = u"buttons", .IsDefault = true},
    ControlDesign{.Kind = ControlKind::CommandButton,
                  .Name = u"cancel",
                  .Caption = u"Cancel",
                  .Parent = u"buttons",
                  .IsCancel = true},
};

constexpr FormDesign InputsDialog{
    .Name = u"frmOptions", .Caption = u"Options", .Style = FormStyle::Dialog, .Controls = InputsControls};

class DialogControlsTest : public ScreenTest {
protected:
  template <class Control>
  Control& The(StringView name) const {
    return FindControl<Control>(*form, name);
  }
  template <class Event>
  int& CountOf(Event& event) {
    auto& count = counts.emplace_back(std::make_unique<int>(0));
    event.Connect([at = count.get()] { ++*at; });
    return *count;
  }

  std::vector<std::unique_ptr<int>> counts;
  Ref<IForm> form = Shown(InputsDialog);
};

TEST_F(DialogControlsTest, EachWidgetBearsItsNameAndAnAccessibleOne) {
  EXPECT_EQ(Find<QPushButton>(form, "ok")->accessibleName(), "OK");
  EXPECT_EQ(Find<QCheckBox>(form, "check")->accessibleName(), "Wait");
  EXPECT_EQ(Find<QTabBar>(form, "tabs")->accessibleName(), "Protocols");
  EXPECT_EQ(Find<QLineEdit>(form, "text")->accessibleName(), "Interval:");
  EXPECT_EQ(Find<QLabel>(form, "label")->buddy(), Find<QLineEdit>(form, "text"));
  EXPECT_EQ(Find<QComboBox>(form, "list")->accessibleName(), "Character");
  EXPECT_EQ(Find<QGroupBox>(form, "frame")->title(), "&Pacing");
}

TEST_F(DialogControlsTest, FramesStackRowsStandSideBySide) {
  const auto at = [&](const char* name) {
    return Find<QWidget>(form, name)->mapTo(&AsForm(form).Window(), QPoint(0, 0));
  };
  EXPECT_LT(at("check").y(), at("label").y());
  EXPECT_LT(at("label").x(), at("text").x());
  EXPECT_LT(at("frame").y(), at("line").y());
  EXPECT_LT(at("line").y(), at("ok").y());
  EXPECT_LT(at("ok").x(), at("cancel").x());
  EXPECT_GT(at("ok").x(), at("space").x());
}

TEST_F(DialogControlsTest, ADialogKeepsItsSize) {
  const QWidget& window = AsForm(form).Window();
  EXPECT_EQ(window.minimumSize(), window.size());
  EXPECT_EQ(window.maximumSize(), window.size());
}

TEST_F(DialogControlsTest, PagesShareAPlaceAndOneToTheLeftIsOutOfSight) {
  const QSize size = AsForm(form).Window().size();
  auto& first = The<IPage>(u"page0");
  auto& second = The<IPage>(u"page1");
  first.Left(120);
  second.Left(-20000);
  EXPECT_TRUE(Find<QCheckBox>(form, "check")->isVisible());
  EXPECT_FALSE(Find<QComboBox>(form, "list")->isVisible());
  EXPECT_EQ(second.Left(), -20000);
  EXPECT_TRUE(second.Visible());
  first.Left(-20000);
  second.Left(120);
  loop.DoEvents();
  EXPECT_FALSE(Find<QCheckBox>(form, "check")->isVisible());
  EXPECT_TRUE(Find<QComboBox>(form, "list")->isVisible());
  EXPECT_EQ(AsForm(form).Window().size(), size);
}

TEST_F(DialogControlsTest, ACheckBoxShowsItsValueAndTellsTheUsersClick) {
  auto& check = The<ICheckBox>(u"check");
  check.Value(Checked);
  EXPECT_TRUE(Find<QCheckBox>(form, "check")->isChecked());
  int& clicks = CountOf(check.Click());
  Find<QCheckBox>(form, "check")->click();
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(check.Value(), Unchecked);
}

TEST_F(DialogControlsTest, TheUserNeverMakesACheckBoxGray) {
  auto& check = The<ICheckBox>(u"check");
  check.Value(Grayed);
  EXPECT_EQ(check.Value(), Grayed);
  auto* box = Find<QCheckBox>(form, "check");
  for (int i = 0; i < 4; ++i) {
    box->click();
    EXPECT_NE(check.Value(), Grayed);
  }
}

TEST_F(DialogControlsTest, ACheckBoxMayCheckItselfAgainInItsClick) {
  auto& check = The<ICheckBox>(u"check");
  check.Value(Checked);
  check.Click().Connect([&] {
    if (check.Value() == Unchecked) check.Value(Checked);
  });
  Find<QCheckBox>(form, "check")->click();
  EXPECT_EQ(check.Value(), Checked);
  EXPECT_EQ(Find<QCheckBox>(form, "check")->checkState(), Qt::Checked);
}

TEST_F(DialogControlsTest, TypedTextIsAChange) {
  auto& text = The<ITextBox>(u"text");
  int& changes = CountOf(text.Change());
  QTest::keyClicks(Find<QLineEdit>(form, "text"), "x");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(text.Text(), u"100x");
}

TEST_F(DialogControlsTest, TheUsersChoiceInAListClicks) {
  auto& list = The<IComboBox>(u"list");
  list.AddItem(u"Auto ");
  list.AddItem(u"CR");
  list.ListIndex(1);
  int& clicks = CountOf(list.Click());
  Find<QComboBox>(form, "list")->setCurrentIndex(0);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(list.Text(), u"Auto ");
}

TEST_F(DialogControlsTest, WhatIsTypedInAListSelectsNothing) {
  auto& list = The<IComboBox>(u"typed");
  list.AddItem(u"Visa->A");
  list.AddItem(u"Visa->B");
  list.ListIndex(1);
  QTest::keyClicks(Find<QComboBox>(form, "typed")->lineEdit(), "x");
  EXPECT_EQ(list.Text(), u"Visa->Bx");
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(DialogControlsTest, AnEntryThatIsAddedLeavesWhoeverTypesWhereHeIs) {
  auto& list = The<IComboBox>(u"typed");
  QLineEdit& line = *Find<QComboBox>(form, "typed")->lineEdit();
  QTest::keyClicks(&line, "abcd");
  line.setSelection(1, 2);
  for (const char16_t* entry : {u"first", u"second"}) {
    list.AddItem(entry);
    EXPECT_EQ(list.Text(), u"abcd") << ToUtf8(entry);
    EXPECT_EQ(line.selectedText(), "bc") << ToUtf8(entry);
    EXPECT_EQ(line.cursorPosition(), 3) << ToUtf8(entry);
  }
  line.setCursorPosition(1);
  list.AddItem(u"third");
  EXPECT_EQ(line.cursorPosition(), 1);
}

TEST_F(DialogControlsTest, TheFirstEntryLeavesACursorWithinTheTextWhereItIs) {
  QLineEdit& line = *Find<QComboBox>(form, "typed")->lineEdit();
  QTest::keyClicks(&line, "abcd");
  line.setCursorPosition(1);
  The<IComboBox>(u"typed").AddItem(u"first");
  EXPECT_EQ(line.cursorPosition(), 1);
  EXPECT_FALSE(line.hasSelectedText());
}

TEST_F(DialogControlsTest, TheFirstEntryLeavesASelectionThatWasMadeBackwards) {
  QLineEdit& line = *Find<QComboBox>(form, "typed")->lineEdit();
  QTest::keyClicks(&line, "abcd");
  line.setSelection(3, -2);
  The<IComboBox>(u"typed").AddItem(u"first");
  EXPECT_EQ(line.selectedText(), "bc");
  EXPECT_EQ(line.cursorPosition(), 1);
}

TEST_F(DialogControlsTest, TheUsersChoiceOfATabClicks) {
  auto& tabs = The<ITabStrip>(u"tabs");
  tabs.AddTab(u"SCPI", u"Tip", u"12");
  tabs.AddTab(u"Other", u"");
  tabs.SelectedItem(2);
  int& clicks = CountOf(tabs.Click());
  Find<QTabBar>(form, "tabs")->setCurrentIndex(0);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(tabs.SelectedItem(), 1);
  tabs.Tabs()[0]->Caption(u"New");
  EXPECT_EQ(Find<QTabBar>(form, "tabs")->tabText(0), "New");
}

TEST_F(DialogControlsTest, ReturnPressesTheDefaultButtonAndEscapeTheOneThatCancels) {
  std::string order;
  The<ICommandButton>(u"ok").Click().Connect([&] { order += 'o'; });
  The<ICommandButton>(u"cancel").Click().Connect([&] { order += 'c'; });
  auto* edit = Find<QLineEdit>(form, "text");
  QTest::keyClick(edit, Qt::Key_Return);
  QTest::keyClick(edit, Qt::Key_Escape);
  EXPECT_EQ(order, "oc");
  EXPECT_EQ(screen.Forms().size(), 1);
}

TEST_F(DialogControlsTest, TheTabKeyGoesByTheTabOrderAndPassesOverWhatIsNoTabStop) {
  auto& text = The<ITextBox>(u"text");
  auto& check = The<ICheckBox>(u"check");
  auto& ok = The<ICommandButton>(u"ok");
  auto& cancel = The<ICommandButton>(u"cancel");
  cancel.TabIndex(1);
  ok.TabIndex(2);
  text.TabIndex(3);
  check.TabStop(false);
  The<ITabStrip>(u"tabs").TabStop(false);
  The<IPage>(u"page1").Left(-20000);
  auto* edit = Find<QLineEdit>(form, "text");
  auto* first = Find<QPushButton>(form, "cancel");
  first->setFocus();
  QTest::keyClick(first, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), Find<QPushButton>(form, "ok"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), edit);
  QTest::keyClick(edit, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), first);
}

TEST_F(DialogControlsTest, AnActiveControlMayBeOfAnyKind) {
  Find<QPushButton>(form, "ok")->setFocus();
  EXPECT_EQ(screen.ActiveControl(), &The<ICommandButton>(u"ok"));
}

} // namespace
} // namespace portico::test
