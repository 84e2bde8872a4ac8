// Forms and their controls, as far as the program alone can tell.

#include "contract/FormsBench.h"

#include "framework/errors/Quit.h"
#include "platform/IDialogControls.h"
#include "platform/IMenuItem.h"
#include "platform/IPictureBox.h"
#include "platform/IStatusBar.h"
#include "platform/IToolBar.h"
#include "support/ErrorReports.h"

#include <array>

namespace portico::test {
namespace {

INSTANTIATE_TEST_SUITE_P(AllForms, FormsContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

constexpr std::array Menus{
    MenuDesign{.Name = u"mnuFile", .Caption = u"1000"},
    MenuDesign{.Name = u"mnuOpen", .Caption = u"1001", .Parent = u"mnuFile", .Shortcut = u"Ctrl+N"},
    MenuDesign{.Name = u"mnuBar", .Caption = u"-", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuHidden", .Caption = u"1002", .Parent = u"mnuFile", .Visible = false, .Checked = true},
};
constexpr std::array Buttons{
    ToolButtonDesign{.Key = u"Open", .ToolTipText = u"8010", .Style = ToolButtonStyle::Check},
    ToolButtonDesign{.Key = u"Sep0", .Style = ToolButtonStyle::Separator},
};
constexpr std::array Panels{StatusPanelDesign{.Key = u"Status"}, StatusPanelDesign{.Key = u"SCPI"}};
constexpr std::array Areas{
    ControlDesign{.Kind = ControlKind::SplitPanel, .Name = u"splitter"},
    ControlDesign{.Kind = ControlKind::PictureBox, .Name = u"picLogo", .ToolTipText = u"Logo"},
};
constexpr FormDesign PlainWindow{.Name = u"frmWindow",
                                 .Caption = u"Window",
                                 .Menus = Menus,
                                 .ToolButtons = Buttons,
                                 .StatusPanels = Panels,
                                 .Controls = Areas,
                                 .Tag = u"12"};

constexpr std::array Fields{
    ControlDesign{.Kind = ControlKind::CheckBox, .Name = u"check", .Caption = u"&Wait"},
};
constexpr FormDesign PlainDialog{
    .Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog, .Controls = Fields};

class Kept final : public IObject {
public:
  explicit Kept(bool& isGone) : m_isGone(isGone) {}
  ~Kept() override { m_isGone = true; }
  StringView ClassName() const override { return u"Kept"; }

private:
  bool& m_isGone;
};

TEST_P(FormsContract, AFormIsAsItsTablesHaveIt) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  EXPECT_EQ(form->Name(), u"frmWindow");
  EXPECT_EQ(form->Caption(), u"Window");
  EXPECT_EQ(form->Tag(), u"12");
  std::vector<String> names;
  for (const IControl* control : form->Controls()) names.emplace_back(control->Name());
  EXPECT_EQ(names, (std::vector<String>{u"mnuFile", u"mnuOpen", u"mnuBar", u"mnuHidden", String(ToolBarName),
                                        String(StatusBarName), u"splitter", u"picLogo"}));
  EXPECT_EQ(FindControl<IMenuItem>(*form, u"mnuOpen").Caption(), u"1001");
  EXPECT_FALSE(FindControl<IMenuItem>(*form, u"mnuHidden").Visible());
  EXPECT_TRUE(FindControl<IMenuItem>(*form, u"mnuHidden").Checked());
  EXPECT_TRUE(FindControl<IMenuItem>(*form, u"mnuHidden").Enabled());
  EXPECT_EQ(FindControl<IPictureBox>(*form, u"picLogo").ToolTipText(), u"Logo");
}

TEST_P(FormsContract, AControlIsFoundByItsNameAndKindElse730IsRaised) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  EXPECT_EQ(FindControl<ISplitArea>(*form, u"splitter").Name(), u"splitter");
  EXPECT_EQ(Raised([&] { FindControl<IMenuItem>(*form, u"splitter"); }).Number, 730);
  EXPECT_EQ(Raised([&] { FindControl<IControl>(*form, u"none"); }).Number, 730);
}

TEST_P(FormsContract, FormsAreListedInTheOrderOfTheirLoadingUntilTheyAreUnloaded) {
  const Ref<IForm> first = Forms().Load(PlainWindow);
  const Ref<IForm> second = Forms().Load(PlainDialog);
  ASSERT_EQ(Forms().Forms().size(), 2);
  EXPECT_TRUE(IsSameObject(Forms().Forms()[0], first));
  EXPECT_TRUE(IsSameObject(Forms().Forms()[1], second));
  first->Unload();
  ASSERT_EQ(Forms().Forms().size(), 1);
  EXPECT_TRUE(IsSameObject(Forms().Forms()[0], second));
}

TEST_P(FormsContract, UnloadFiresOnceAndLetsGoOfWhatTheFormKeeps) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  bool isGone = false;
  int unloaded = 0;
  form->Keep(New<Kept>(isGone));
  form->Events().Unload.Connect([&] {
    ++unloaded;
    EXPECT_FALSE(isGone);
  });
  form->Unload();
  form->Unload();
  EXPECT_EQ(unloaded, 1);
  EXPECT_TRUE(isGone);
}

TEST_P(FormsContract, WhatAFormKeepsStaysWhileItsHandlerRuns) {
  const Ref<IForm> form = Forms().Load(PlainDialog);
  bool isGone = false;
  bool wasGone = true;
  form->Keep(New<Kept>(isGone));
  auto& check = FindControl<ICheckBox>(*form, u"check");
  check.Click().Connect([&] {
    form->Unload();
    wasGone = isGone;
  });
  check.Value(Checked);
  EXPECT_FALSE(wasGone);
  EXPECT_TRUE(isGone);
}

TEST_P(FormsContract, CloseAsksTheHandlerAndUnloadsAFormWithoutOne) {
  const Ref<IForm> asked = Forms().Load(PlainWindow);
  int questions = 0;
  asked->Events().QueryUnload.Connect([&] { ++questions; });
  asked->Close();
  asked->Close();
  EXPECT_EQ(questions, 2);
  EXPECT_EQ(Forms().Forms().size(), 1);
  const Ref<IForm> other = Forms().Load(PlainWindow);
  other->Close();
  EXPECT_EQ(Forms().Forms().size(), 1);
}

TEST_P(FormsContract, PlacesAreInFormUnitsAndASizeBelowZeroRaises380) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  form->Move(150, 300, 7500, 6000);
  EXPECT_EQ(form->Left(), 150);
  EXPECT_EQ(form->Top(), 300);
  EXPECT_EQ(form->Width(), 7500);
  EXPECT_EQ(form->Height(), 6000);
  EXPECT_LE(form->ScaleWidth(), 7500);
  EXPECT_GT(form->ScaleWidth(), 7000);
  EXPECT_LT(form->ScaleHeight(), 6000); // there is a menu bar
  EXPECT_GT(form->ScaleHeight(), 4500);
  auto& area = FindControl<ISplitArea>(*form, u"splitter");
  EXPECT_EQ(Raised([&] { form->Width(-15); }).Number, 380);
  EXPECT_EQ(Raised([&] { form->Height(-15); }).Number, 380);
  EXPECT_EQ(Raised([&] { area.Height(-15); }).Number, 380);
}

TEST_P(FormsContract, AFormStaysWhereItWasPutUntilItIsShown) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  form->Move(-150, -300, 750000, 600000);
  EXPECT_EQ(form->Left(), -150);
  EXPECT_EQ(form->Top(), -300);
  EXPECT_EQ(form->Width(), 750000);
  EXPECT_EQ(form->Height(), 600000);
}

TEST_P(FormsContract, AFormThatIsShownIsWithinTheScreen) {
  const double width = Bench().ScreenWidth();
  const double height = Bench().ScreenHeight();
  const auto expectWithin = [&](const IForm& form) {
    EXPECT_GE(form.Left(), 0);
    EXPECT_GE(form.Top(), 0);
    EXPECT_LE(form.Left() + form.Width(), width);
    EXPECT_LE(form.Top() + form.Height(), height);
  };
  struct Case {
    const char* name;
    double left, top, width, height;
  };
  for (const Case& each :
       {Case{"too large", 1005, 1005, 2 * width, 2 * height}, Case{"too wide", 0, 0, width + 15, 3000},
        Case{"too high", 0, 0, 3000, height + 15}, Case{"over the left and the upper edge", -30, -45, 3000, 3000},
        Case{"over the right edge", width - 1500, 150, 3000, 3000},
        Case{"over the lower edge", 150, height - 1500, 3000, 3000}, Case{"far away", 900000, -900000, 3000, 3000}}) {
    SCOPED_TRACE(each.name);
    const Ref<IForm> form = Forms().Load(PlainWindow);
    form->Move(each.left, each.top, each.width, each.height);
    form->Show();
    Loop().DoEvents();
    expectWithin(*form);
    if (each.width == 3000) {
      EXPECT_EQ(form->Width(), 3000);
    }
    if (each.height == 3000) {
      EXPECT_EQ(form->Height(), 3000);
    }
    form->Unload();
  }
}

TEST_P(FormsContract, AFormThatFitsIsShownWhereItWasPut) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  form->Move(150, 300, 6000, 4500);
  form->Show();
  Loop().DoEvents();
  EXPECT_EQ(form->Left(), 150);
  EXPECT_EQ(form->Top(), 300);
  EXPECT_EQ(form->Width(), 6000);
  EXPECT_EQ(form->Height(), 4500);
}

TEST_P(FormsContract, AMaximizedFormIsWithinTheScreenWhenItIsNormalAgain) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  form->Move(150, 300, 2 * Bench().ScreenWidth(), 4500);
  form->WindowState(WindowState::Maximized);
  form->Show();
  Loop().DoEvents();
  EXPECT_EQ(form->WindowState(), WindowState::Maximized);
  form->WindowState(WindowState::Normal);
  Loop().DoEvents();
  EXPECT_GE(form->Left(), 0);
  EXPECT_LE(form->Left() + form->Width(), Bench().ScreenWidth());
  EXPECT_EQ(form->Height(), 4500);
}

TEST_P(FormsContract, AnAreaTellsEachChangeOfItsSizeAtOnce) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  auto& area = FindControl<ISplitArea>(*form, u"splitter");
  int resized = 0;
  area.Resize().Connect([&] { ++resized; });
  area.Width(1500);
  area.Height(3000);
  area.Left(30);
  area.Height(3000);
  EXPECT_EQ(resized, 2);
  EXPECT_EQ(area.ScaleWidth(), 1500);
  EXPECT_EQ(area.ScaleHeight(), 3000);
}

TEST_P(FormsContract, EnabledAndVisibleAreWhatWasSet) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  auto& hidden = FindControl<IMenuItem>(*form, u"mnuHidden");
  hidden.Enabled(false);
  hidden.Visible(true);
  EXPECT_FALSE(hidden.Enabled());
  hidden.Visible(false);
  hidden.Enabled(true);
  EXPECT_TRUE(hidden.Enabled());
  EXPECT_FALSE(hidden.Visible());
}

TEST_P(FormsContract, BarsFindTheirPartsByKeyAndByNumber) {
  const Ref<IForm> form = Forms().Load(PlainWindow);
  auto& tools = FindControl<IToolBar>(*form, ToolBarName);
  EXPECT_EQ(tools.Buttons().size(), 2);
  EXPECT_EQ(tools.Buttons(u"Open").ToolTipText(), u"8010");
  EXPECT_EQ(tools.Buttons(u"OPEN").Key(), u"Open");
  tools.Buttons(u"Open").Value(1);
  EXPECT_EQ(tools.Buttons(u"Open").Value(), 1);
  EXPECT_EQ(Raised([&] { tools.Buttons(u"Open").Value(2); }).Number, 380);
  EXPECT_EQ(Raised([&] { tools.Buttons(u"None"); }).Number, 35601);
  auto& status = FindControl<IStatusBar>(*form, StatusBarName);
  status.Panels(2).Text(u"SCPI");
  EXPECT_EQ(status.Panels(2).Text(), u"SCPI");
  EXPECT_EQ(Raised([&] { status.Panels(0); }).Number, 35600);
  EXPECT_EQ(Raised([&] { status.Panels(3); }).Number, 35600);
}

TEST_P(FormsContract, AModalFormReturnsWhenItIsUnloaded) {
  const Ref<IForm> form = Forms().Load(PlainDialog);
  Bench().WhileModal(u"frmDialog", [&] { form->Unload(); });
  EXPECT_NO_THROW(form->ShowModal(nullptr));
  EXPECT_TRUE(Forms().Forms().empty());
}

TEST_P(FormsContract, AModalFormIsUnloadedAndThrowsQuitWhenTheProgramEnds) {
  const Ref<IForm> form = Forms().Load(PlainDialog);
  Bench().WhileModal(u"frmDialog", [&] { Loop().RequestQuit(); });
  EXPECT_THROW(form->ShowModal(nullptr), Quit);
  EXPECT_TRUE(Forms().Forms().empty());
}

} // namespace
} // namespace portico::test
