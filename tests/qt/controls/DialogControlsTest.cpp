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

constexpr std::array Controls{
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

constexpr FormDesign Dialog{
    .Name = u"frmOptions", .Caption = u"Options", .Style = FormStyle::Dialog, .Controls = Controls};

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
  Ref<IForm> form = Shown(Dialog);
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

TEST_F(DialogControlsTest, WhatAKindDoesNotHaveReadsAsEmptyAndRaises438WhenItIsSet) {
  auto& text = The<ITextBox>(u"text");
  EXPECT_EQ(text.Caption(), u"");
  EXPECT_EQ(Raised([&] { text.Caption(u"x"); }).Number, 438);
  auto& page = The<IPage>(u"page0");
  EXPECT_EQ(page.ToolTipText(), u"");
  EXPECT_EQ(Raised([&] { page.ToolTipText(u"x"); }).Number, 438);
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

TEST_F(DialogControlsTest, ACheckBoxClicksWheneverItsValueChanges) {
  auto& check = The<ICheckBox>(u"check");
  int& clicks = CountOf(check.Click());
  check.Value(Checked);
  check.Value(Checked);
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(Find<QCheckBox>(form, "check")->isChecked());
  Find<QCheckBox>(form, "check")->click();
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(check.Value(), Unchecked);
  EXPECT_EQ(Raised([&] { check.Value(3); }).Number, 380);
  EXPECT_EQ(Raised([&] { check.Value(-1); }).Number, 380);
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

TEST_F(DialogControlsTest, ATextBoxTellsEachChange) {
  auto& text = The<ITextBox>(u"text");
  EXPECT_EQ(text.Text(), u"100");
  int& changes = CountOf(text.Change());
  text.Text(u"200");
  text.Text(u"200");
  EXPECT_EQ(changes, 1);
  QTest::keyClicks(Find<QLineEdit>(form, "text"), "x");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(text.Text(), u"200x");
}

TEST_F(DialogControlsTest, NothingIsSelectedInAListUntilSomethingIs) {
  auto& list = The<IComboBox>(u"list");
  int& clicks = CountOf(list.Click());
  list.AddItem(u"Auto ");
  list.AddItem(u"CR");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), u"");
  EXPECT_EQ(list.ListCount(), 2);
  EXPECT_EQ(list.List(0), u"Auto ");
  list.ListIndex(1);
  list.ListIndex(1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(list.Text(), u"CR");
  Find<QComboBox>(form, "list")->setCurrentIndex(0);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(Raised([&] { list.ListIndex(2); }).Number, 380);
  EXPECT_EQ(Raised([&] { list.ListIndex(-2); }).Number, 380);
  list.Text(u"CR");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(Raised([&] { list.Text(u"LF"); }).Number, 380);
}

TEST_F(DialogControlsTest, AListThatIsTypedInTakesAnyText) {
  auto& list = The<IComboBox>(u"typed");
  list.AddItem(u"Visa->A");
  list.AddItem(u"Visa->B");
  EXPECT_EQ(list.Text(), u"");
  list.ListIndex(1);
  EXPECT_EQ(list.Text(), u"Visa->B");
  int& changes = CountOf(list.Change());
  list.Text(u"SIM::DMM::INSTR");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(list.ListIndex(), -1);
  list.AddItem(u"Visa->C");
  EXPECT_EQ(list.Text(), u"SIM::DMM::INSTR");
  list.ListIndex(1);
  EXPECT_EQ(list.Text(), u"Visa->B");
  QTest::keyClicks(Find<QComboBox>(form, "typed")->lineEdit(), "x");
  EXPECT_EQ(list.Text(), u"Visa->Bx");
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(DialogControlsTest, ATabStripTellsWhenAnotherTabIsSelected) {
  auto& tabs = The<ITabStrip>(u"tabs");
  int& clicks = CountOf(tabs.Click());
  EXPECT_EQ(tabs.SelectedItem(), 0);
  tabs.AddTab(u"SCPI", u"Tip", u"12");
  tabs.AddTab(u"Other", u"");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(tabs.SelectedItem(), 1);
  tabs.SelectedItem(2);
  tabs.SelectedItem(2);
  EXPECT_EQ(clicks, 1);
  Find<QTabBar>(form, "tabs")->setCurrentIndex(0);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(tabs.SelectedItem(), 1);
  ASSERT_EQ(tabs.Tabs().size(), 2);
  EXPECT_EQ(tabs.Tabs()[0]->Tag(), u"12");
  tabs.Tabs()[0]->Caption(u"New");
  tabs.Tabs()[0]->ToolTipText(u"Newer");
  EXPECT_EQ(tabs.Tabs()[0]->Caption(), u"New");
  EXPECT_EQ(tabs.Tabs()[0]->ToolTipText(), u"Newer");
  EXPECT_EQ(Find<QTabBar>(form, "tabs")->tabText(0), "New");
  EXPECT_EQ(Raised([&] { tabs.SelectedItem(3); }).Number, 35600);
  EXPECT_EQ(Raised([&] { tabs.SelectedItem(0); }).Number, 35600);
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
  EXPECT_EQ(The<ITabStrip>(u"tabs").TabIndex(), 0);
  cancel.TabIndex(1);
  ok.TabIndex(2);
  text.TabIndex(3);
  check.TabStop(false);
  The<ITabStrip>(u"tabs").TabStop(false);
  EXPECT_EQ(cancel.TabIndex(), 1);
  EXPECT_EQ(ok.TabIndex(), 2);
  EXPECT_FALSE(check.TabStop());
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
  check.TabIndex(99);
  EXPECT_EQ(check.TabIndex(), 6);
  EXPECT_EQ(Raised([&] { check.TabIndex(-1); }).Number, 380);
}

TEST_F(DialogControlsTest, AnErrorInAHandlerReachesTheProgramThatChangedTheValue) {
  auto& check = The<ICheckBox>(u"check");
  check.Click().Connect([] { HuntERR::RaiseStandard(ErrorNumber::InvalidArgument); });
  EXPECT_EQ(Raised([&] { check.Value(Checked); }).Number, 5);
}

TEST_F(DialogControlsTest, AnActiveControlMayBeOfAnyKind) {
  Find<QPushButton>(form, "ok")->setFocus();
  EXPECT_EQ(screen.ActiveControl(), &The<ICommandButton>(u"ok"));
}

} // namespace
} // namespace portico::test
