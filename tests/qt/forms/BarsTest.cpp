// Menus, toolbar, status bar.

#include "framework/errors/Quit.h"
#include "platform/IPictureBox.h"
#include "platform/IRichTextControl.h"
#include "platform/IStatusBar.h"
#include "qt/ScreenFixture.h"
#include "qt/loop/EventFilter.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace portico::test {
namespace {

class BarsTest : public ScreenTest {
protected:
  IMenuItem& Item(StringView name) const { return FindControl<IMenuItem>(*form, name); }
  QAction* Action(const char* name) const { return Find<QAction>(form, name); }
  IToolBar& Bar() const { return FindControl<IToolBar>(*form, ToolBarName); }
  IToolButton& Button(StringView key) const { return Bar().Buttons(key); }
  QAction* ButtonAction(const char* key) const { return Find<QToolBar>(form, "tbToolBar")->findChild<QAction*>(key); }
  IStatusBar& Status() const { return FindControl<IStatusBar>(*form, StatusBarName); }

  Ref<IForm> form = Shown(SampleWindow);
};

/// What the toolkit handles for it, timers apart.
TEST_F(BarsTest, WhatIsSetToWhatItShowsGivesTheToolkitNothingToDo) {
  auto& upper = FindControl<IRichTextControl>(*form, u"txtUpper");
  const auto set = [&](const String& name) {
    form->Caption(name);
    Item(u"mnuOpen").Caption(name);
    Item(u"mnuOpen").Enabled(false);
    Item(u"mnuSCPI").Checked(true);
    Button(u"Open").Value(1);
    Button(u"Open").ToolTipText(name);
    Button(u"Print").Visible(false);
    Status().Panels(1).Text(name);
    Status().Panels(1).ToolTipText(name);
    upper.ToolTipText(name);
    upper.TabStop(false);
    loop.DoEvents();
  };
  std::vector<int> events;
  const qt::EventFilter filter(*qApp, [&](QObject& /*watched*/, QEvent& event) {
    if (event.type() != QEvent::Timer) events.push_back(event.type());
    return false;
  });
  set(u"DMM");
  do { // a layout that changes asks the one around it
    events.clear();
    loop.DoEvents();
  } while (!events.empty());
  set(u"DMM");
  EXPECT_EQ(events, std::vector<int>{});
  set(u"other");
  EXPECT_NE(events, std::vector<int>{});
  EXPECT_EQ(AsForm(form).Window().windowTitle(), "other");
  EXPECT_EQ(Action("mnuOpen")->text(), "other");
  EXPECT_EQ(ButtonAction("Open")->toolTip(), "other");
  EXPECT_EQ(Find<QLabel>(form, "Status")->text(), "other");
  EXPECT_EQ(Find<QLabel>(form, "Status")->toolTip(), "other");
  EXPECT_EQ(Find<QWidget>(form, "txtUpper")->toolTip(), "other");
}

TEST_F(BarsTest, MenusStandAsTheirTableHasThem) {
  auto* bar = Find<QMenuBar>(form, "");
  ASSERT_EQ(bar->actions().size(), 1); // a popup stands in no bar
  const QMenu* file = bar->actions()[0]->menu();
  EXPECT_EQ(file->objectName(), "mnuFile");
  ASSERT_EQ(file->actions().size(), 4);
  EXPECT_EQ(file->actions()[0]->text(), "&Open...");
  EXPECT_TRUE(file->actions()[1]->isSeparator());
  EXPECT_EQ(file->actions()[2]->menu()->actions()[0]->objectName(), "mnuSCPI");
  EXPECT_FALSE(file->actions()[3]->isVisible());
}

TEST_F(BarsTest, CaptionsCanBeChangedAndABarHasItsOwn) {
  Item(u"mnuOpen").Caption(u"&Shut");
  EXPECT_EQ(Item(u"mnuOpen").Caption(), u"&Shut");
  EXPECT_EQ(Action("mnuOpen")->text(), "&Shut");
  EXPECT_EQ(Item(u"mnuBar").Caption(), u"-");
}

TEST_F(BarsTest, KeysInACaptionStayTextAndNoShortcut) {
  EXPECT_EQ(Action("mnuPopupCut")->text(), "Cu&t      Ctrl+X");
  EXPECT_TRUE(Action("mnuPopupCut")->shortcut().isEmpty());
}

TEST_F(BarsTest, AMenuItemHasNoToolTip) {
  EXPECT_EQ(Item(u"mnuOpen").ToolTipText(), u"");
  EXPECT_EQ(Raised([&] { Item(u"mnuOpen").ToolTipText(u"x"); }).Number, 438);
}

TEST_F(BarsTest, AnItemClicksWhenItIsChosenOrByItsShortcut) {
  int clicked = 0;
  Item(u"mnuOpen").Click().Connect([&] { ++clicked; });
  Action("mnuOpen")->trigger();
  EXPECT_EQ(clicked, 1);
  QTest::keyClick(&AsForm(form).Window(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(clicked, 2);
  Item(u"mnuOpen").Enabled(false);
  QTest::keyClick(&AsForm(form).Window(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(clicked, 2);
}

TEST_F(BarsTest, TheShortcutOfAHiddenItemDoesNothing) {
  int clicked = 0;
  Item(u"mnuHidden").Click().Connect([&] { ++clicked; });
  QTest::keyClick(&AsForm(form).Window(), Qt::Key_F6);
  EXPECT_EQ(clicked, 0);
  Item(u"mnuHidden").Visible(true);
  QTest::keyClick(&AsForm(form).Window(), Qt::Key_F6);
  EXPECT_EQ(clicked, 1);
}

TEST_F(BarsTest, ATitleClicksBeforeItsMenuDropsDown) {
  bool visibleThen = true;
  auto* menu = Find<QMenu>(form, "mnuFile");
  Item(u"mnuFile").Click().Connect([&] { visibleThen = menu->isVisible(); });
  menu->popup(QPoint(0, 0));
  EXPECT_FALSE(visibleThen);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST_F(BarsTest, AnItemShowsTheCheckThatWasSetWhateverWasClicked) {
  bool checkedThen = false;
  Item(u"mnuSCPI").Click().Connect([&] { checkedThen = Action("mnuSCPI")->isChecked(); });
  EXPECT_TRUE(Action("mnuSCPI")->isChecked());
  Action("mnuSCPI")->trigger();
  EXPECT_TRUE(checkedThen);
  EXPECT_TRUE(Action("mnuSCPI")->isChecked());
  Item(u"mnuSCPI").Checked(false);
  Item(u"mnuOther").Checked(true);
  EXPECT_FALSE(Action("mnuSCPI")->isChecked());
  Action("mnuSCPI")->trigger();
  EXPECT_FALSE(Action("mnuSCPI")->isChecked());
  EXPECT_FALSE(Item(u"mnuSCPI").Checked());
  EXPECT_TRUE(Item(u"mnuOther").Checked());
}

TEST_F(BarsTest, EnabledAndVisibleAreWhatWasSetEachForItself) {
  Item(u"mnuHidden").Enabled(false);
  EXPECT_FALSE(Item(u"mnuHidden").Enabled());
  Item(u"mnuHidden").Enabled(true);
  EXPECT_TRUE(Item(u"mnuHidden").Enabled());
  EXPECT_FALSE(Item(u"mnuHidden").Visible());
  Button(u"Open").Visible(false);
  Button(u"Open").Enabled(true);
  EXPECT_TRUE(Button(u"Open").Enabled());
  EXPECT_FALSE(Button(u"Open").Visible());
}

TEST_F(BarsTest, APopupReturnsWhenItsItemHasBeenHandled) {
  std::string order;
  Item(u"mnuPopup").Click().Connect([&] { order += 'p'; });
  Item(u"mnuPopupCut").Click().Connect([&] { order += 'c'; });
  Later([&] {
    auto* menu = Find<QMenu>(form, "mnuPopup");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[0]).center());
  });
  form->PopupMenu(Item(u"mnuPopup"));
  EXPECT_EQ(order, "pc");
}

TEST_F(BarsTest, APopupClosesWhenTheProgramEnds) {
  Later([&] { loop.RequestQuit(); });
  EXPECT_THROW(form->PopupMenu(Item(u"mnuPopup")), Quit);
}

TEST_F(BarsTest, ButtonsAreFoundByTheirKey) {
  ASSERT_EQ(Bar().Buttons().size(), 3);
  EXPECT_EQ(Bar().Buttons()[1]->Key(), u"Sep0");
  EXPECT_EQ(Button(u"Print").Key(), u"Print");
  EXPECT_EQ(Raised([&] { Button(u"None"); }).Number, 35601);
}

TEST_F(BarsTest, AButtonOfCheckStyleIsTurnedBeforeItsClickAndStays) {
  std::int32_t valueThen = -1;
  Bar().ButtonClick().Connect([&](IToolButton& button) { valueThen = button.Value(); });
  ButtonAction("Open")->trigger();
  EXPECT_EQ(valueThen, 1);
  EXPECT_EQ(Button(u"Open").Value(), 1);
  Button(u"Open").Value(0);
  EXPECT_FALSE(ButtonAction("Open")->isChecked());
  EXPECT_EQ(Raised([&] { Button(u"Open").Value(2); }).Number, 380);
}

TEST_F(BarsTest, AClickTellsWhichButtonIsMeant) {
  String key;
  Bar().ButtonClick().Connect([&](IToolButton& button) { key = button.Key(); });
  auto* widget = Find<QToolButton>(form, "Print");
  QTest::mouseClick(widget, Qt::LeftButton);
  EXPECT_EQ(key, u"Print");
}

TEST_F(BarsTest, ASeparatorCanBeHidden) {
  const auto width = Find<QToolBar>(form, "tbToolBar")->sizeHint().width();
  Button(u"Sep0").Visible(false);
  EXPECT_LT(Find<QToolBar>(form, "tbToolBar")->sizeHint().width(), width);
}

TEST_F(BarsTest, AToolTipIsTheNameThatAScreenReaderSays) {
  Button(u"Print").ToolTipText(u"Print it");
  EXPECT_EQ(Button(u"Print").ToolTipText(), u"Print it");
  EXPECT_EQ(ButtonAction("Print")->toolTip(), "Print it");
  EXPECT_EQ(ButtonAction("Print")->text(), "Print it");
  EXPECT_EQ(ButtonAction("Open")->text(), "Open it");
}

TEST_F(BarsTest, ButtonsLeaveTheFocusWhereItIs) {
  auto& box = FindControl<IRichTextControl>(*form, u"txtUpper");
  box.SetFocus();
  QTest::mouseClick(Find<QToolButton>(form, "Print"), Qt::LeftButton);
  EXPECT_EQ(screen.ActiveControl(), &box);
}

TEST_F(BarsTest, ThirteenButtonsFitIntoTheWindowAsItComes) {
  std::vector<ToolButtonDesign> buttons(13, {.Key = u"x", .Image = u"Print"});
  buttons.insert(buttons.begin() + 5, {.Key = u"s", .Style = ToolButtonStyle::Separator});
  buttons.insert(buttons.begin() + 1, {.Key = u"s", .Style = ToolButtonStyle::Separator});
  const Ref<IForm> wide = screen.Load({.Name = u"frmWide", .Caption = u"Wide", .ToolButtons = buttons});
  EXPECT_LE(Find<QToolBar>(wide, "tbToolBar")->sizeHint().width(), 433);
}

TEST_F(BarsTest, TheBarsStandAtTheTopAndBottomOfTheArea) {
  form->Move(0, 0, 9000, 6000);
  EXPECT_EQ(Bar().Left(), 0);
  EXPECT_EQ(Bar().Top(), 0);
  EXPECT_EQ(Bar().Width(), form->ScaleWidth());
  EXPECT_GT(Bar().Height(), 20 * FormUnitsPerPixel);
  EXPECT_LT(Bar().Height(), 40 * FormUnitsPerPixel);
  EXPECT_EQ(Status().Width(), form->ScaleWidth());
  EXPECT_EQ(Status().Top() + Status().Height(), form->ScaleHeight());
}

TEST_F(BarsTest, ALogoGivesWayToTheButtons) {
  auto& logo = FindControl<IPictureBox>(*form, u"picLogo");
  auto* widget = Find<QWidget>(form, "picLogo");
  form->Events().Resize.Connect([&] { logo.Left(form->ScaleWidth() - logo.Width()); });
  form->Move(0, 0, 9000, 6000);
  EXPECT_TRUE(widget->isVisible());
  form->Width(900);
  EXPECT_FALSE(widget->isVisible());
  EXPECT_TRUE(logo.Visible());
  form->Width(9000);
  EXPECT_TRUE(widget->isVisible());
}

TEST_F(BarsTest, PanelsAreCountedFromOne) {
  Status().Panels(1).Text(u"Open an instrument. ");
  Status().Panels(2).ToolTipText(u"Protocol");
  EXPECT_EQ(Status().Panels(1).Text(), u"Open an instrument. ");
  EXPECT_EQ(Find<QLabel>(form, "Status")->text(), "Open an instrument. ");
  EXPECT_EQ(Status().Panels(2).ToolTipText(), u"Protocol");
  EXPECT_EQ(Raised([&] { Status().Panels(0); }).Number, 35600);
  EXPECT_EQ(Raised([&] { Status().Panels(5); }).Number, 35600);
}

TEST_F(BarsTest, DateAndTimeShow) {
  EXPECT_FALSE(Status().Panels(3).Text().empty());
  EXPECT_NE(Status().Panels(4).Text().find(u':'), String::npos);
}

TEST_F(BarsTest, ALongTextTakesNoRoomFromTheOtherPanels) {
  Status().Panels(1).Text(String(500, u'x'));
  loop.DoEvents();
  const auto* time = Find<QLabel>(form, "Time");
  EXPECT_LE(time->mapTo(&AsForm(form).Window(), time->rect().topRight()).x(), AsForm(form).Window().width());
}

} // namespace
} // namespace portico::test
