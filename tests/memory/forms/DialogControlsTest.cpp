#include "memory/forms/DialogControls.h"

#include "memory/FormBench.h"

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

constexpr ControlDesign InputsParts[] = {
    {.Kind = ControlKind::TabStrip, .Name = u"tabs"},
    {.Kind = ControlKind::Page, .Name = u"page"},
    {.Kind = ControlKind::Frame, .Name = u"frame", .Caption = u"A Frame", .Parent = u"page"},
    {.Kind = ControlKind::CheckBox, .Name = u"check", .Caption = u"&Check", .Parent = u"frame"},
    {.Kind = ControlKind::TextBox, .Name = u"text", .Caption = u"100", .Parent = u"frame"},
    {.Kind = ControlKind::ComboBox, .Name = u"list", .Parent = u"frame"},
    {.Kind = ControlKind::ComboBox, .Name = u"typed", .Parent = u"frame", .Tag = u"typed"},
    {.Kind = ControlKind::Row, .Name = u"row"},
    {.Kind = ControlKind::Label, .Name = u"label", .Caption = u"Label", .Parent = u"row", .ToolTipText = u"tip"},
    {.Kind = ControlKind::Space, .Name = u"space", .Parent = u"row"},
    {.Kind = ControlKind::Line, .Name = u"line"},
    {.Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"OK", .Parent = u"row", .IsDefault = true},
    {.Kind = ControlKind::CommandButton, .Name = u"cancel", .Caption = u"Cancel", .Parent = u"row", .IsCancel = true},
};
constexpr FormDesign InputsDialog = {
    .Name = u"frmDialog", .Caption = u"A Dialog", .Style = FormStyle::Dialog, .Controls = InputsParts};

class DialogControlsTest : public FormBench {
protected:
  Ref<IForm> Loaded = gForms->Load(InputsDialog);
  Form& Window = Shown(Loaded);
  TabStrip& Tabs = Find<TabStrip>(Loaded, u"tabs");
  Page& ThePage = Find<Page>(Loaded, u"page");
  CheckBox& Check = Find<CheckBox>(Loaded, u"check");
  TextBox& Text = Find<TextBox>(Loaded, u"text");
  ComboBox& List = Find<ComboBox>(Loaded, u"list");
  ComboBox& Typed = Find<ComboBox>(Loaded, u"typed");
  CommandButton& OK = Find<CommandButton>(Loaded, u"ok");
  CommandButton& Cancel = Find<CommandButton>(Loaded, u"cancel");
};

TEST_F(DialogControlsTest, ButtonClicksWithTheFocus) {
  OK.Click().Connect([&] { Calls.push_back(OK.HasFocus() ? "click with focus" : "click"); });
  EXPECT_TRUE(OK.Press());
  EXPECT_THAT(Calls, ElementsAre("click with focus"));
}

TEST_F(DialogControlsTest, ButtonThatIsDisabledOrHiddenIsNotPressed) {
  OK.Click().Connect(Note("click"));
  OK.Enabled(false);
  EXPECT_FALSE(OK.Press());
  OK.Enabled(true);
  OK.Visible(false);
  EXPECT_FALSE(OK.Press());
  OK.Visible(true);
  Find<IControl>(Loaded, u"row").Enabled(false);
  EXPECT_FALSE(OK.Press());
  Find<IControl>(Loaded, u"row").Enabled(true);
  Find<IControl>(Loaded, u"row").Visible(false);
  EXPECT_FALSE(OK.Press());
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_F(DialogControlsTest, NothingIsPressedOnAFormThatIsNotOnTheScreen) {
  OK.Click().Connect(Note("click"));
  Window.Hide();
  EXPECT_FALSE(OK.Press());
  EXPECT_FALSE(Text.Type(u"1"));
  EXPECT_FALSE(Window.PressKey(ReturnKey));
  EXPECT_FALSE(Window.PressCloseBox());
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_F(DialogControlsTest, NothingIsPressedOnAPageThatIsOutOfSight) {
  ThePage.Left(-20000);
  EXPECT_EQ(ThePage.Left(), -20000);
  EXPECT_FALSE(Check.Press());
  ThePage.Left(120);
  EXPECT_TRUE(Check.Press());
}

TEST_F(DialogControlsTest, HandlerOfTheFocusMayPreventAClick) {
  OK.Click().Connect(Note("click"));
  OK.GotFocus().Connect([&] { OK.Enabled(false); });
  EXPECT_FALSE(OK.Press());
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_F(DialogControlsTest, PressedCheckBoxTurns) {
  EXPECT_TRUE(Check.Press());
  EXPECT_EQ(Check.Value(), Checked);
  EXPECT_TRUE(Check.Press());
  EXPECT_EQ(Check.Value(), Unchecked);
  Check.Value(Grayed);
  EXPECT_TRUE(Check.Press());
  EXPECT_EQ(Check.Value(), Unchecked);
  Check.Enabled(false);
  EXPECT_FALSE(Check.Press());
  EXPECT_EQ(Check.Value(), Unchecked);
}

TEST_F(DialogControlsTest, TypedTextIsAChange) {
  Text.Change().Connect([&] { Calls.push_back(ToUtf8(Text.Text())); });
  EXPECT_TRUE(Text.Type(u"300"));
  EXPECT_TRUE(Text.HasFocus());
  Text.Enabled(false);
  EXPECT_FALSE(Text.Type(u"400"));
  EXPECT_THAT(Calls, ElementsAre("300"));
}

TEST_F(DialogControlsTest, AnEmptyListHasNoEntryToRead) {
  EXPECT_EQ(NumberOf([&] { List.List(0); }), ErrorNumber::BadIndex);
}

TEST_F(DialogControlsTest, WhenNoEntryIsSelectedNothingClicks) {
  List.AddItem(u"LF");
  List.ListIndex(0);
  List.Change().Connect([&] { Calls.push_back("change " + ToUtf8(List.Text())); });
  List.Click().Connect(Note("click"));
  List.ListIndex(-1);
  EXPECT_EQ(List.Text(), u"");
  EXPECT_THAT(Calls, ElementsAre("change "));
}

TEST_F(DialogControlsTest, AListThatIsNotTypedIsNotTypedIn) {
  List.AddItem(u"CR");
  List.Text(u"CR");
  List.Text(u"");
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_FALSE(List.Type(u"CR"));
}

TEST_F(DialogControlsTest, UserChoosesAnEntry) {
  List.AddItem(u"CR");
  EXPECT_FALSE(List.Choose(u"LF"));
  EXPECT_TRUE(List.Choose(u"CR"));
  EXPECT_EQ(List.ListIndex(), 0);
  EXPECT_TRUE(List.HasFocus());
  List.Enabled(false);
  EXPECT_FALSE(List.Choose(u"CR"));
}

TEST_F(DialogControlsTest, TypedTextNeedsNoEntry) {
  Typed.AddItem(u"first");
  Typed.ListIndex(0);
  Typed.Change().Connect(Note("change"));
  Typed.Click().Connect(Note("click"));
  EXPECT_TRUE(Typed.Type(u"other"));
  EXPECT_EQ(Typed.Text(), u"other");
  EXPECT_EQ(Typed.ListIndex(), -1);
  EXPECT_THAT(Calls, ElementsAre("change"));
  Typed.Text(u"third");
  EXPECT_EQ(Typed.Text(), u"third");
}

TEST_F(DialogControlsTest, UserChoosesATab) {
  Tabs.AddTab(u"SCPI", u"tip", u"17");
  Tabs.AddTab(u"Other", u"");
  Tabs.SelectedItem(2);
  Tabs.Click().Connect([&] { Calls.push_back(std::to_string(Tabs.SelectedItem())); });
  EXPECT_TRUE(Tabs.Choose(1));
  EXPECT_FALSE(Tabs.Choose(3));
  EXPECT_FALSE(Tabs.Choose(0));
  EXPECT_THAT(Calls, ElementsAre("1"));
}

TEST_F(DialogControlsTest, TabKeyPassesOverWhatIsNoTabStopOrCannotBeUsed) {
  EXPECT_TRUE(Tabs.HasFocus());
  Check.TabStop(false);
  EXPECT_FALSE(Check.TabStop());
  Text.Enabled(false);
  EXPECT_TRUE(Window.PressKey(TabKey));
  EXPECT_TRUE(List.HasFocus());
  ThePage.Left(-20000);
  Window.PressKey(TabKey);
  EXPECT_TRUE(OK.HasFocus());
  Window.PressKey(TabKey, ShiftState);
  EXPECT_TRUE(Tabs.HasFocus());
  Window.PressKey(TabKey, ShiftState);
  EXPECT_TRUE(Cancel.HasFocus());
  Window.PressKey(TabKey, CtrlState);
  EXPECT_TRUE(Cancel.HasFocus());
}

TEST_F(DialogControlsTest, ReturnPressesTheButtonWithTheFocusElseTheDefault) {
  OK.Click().Connect(Note("ok"));
  Cancel.Click().Connect(Note("cancel"));
  Window.PressKey(ReturnKey);
  Cancel.TakeFocus();
  Window.PressKey(ReturnKey);
  OK.Enabled(false);
  Check.TakeFocus();
  Window.PressKey(ReturnKey);
  EXPECT_THAT(Calls, ElementsAre("ok", "cancel"));
}

TEST_F(DialogControlsTest, EscapePressesTheCancellingButton) {
  OK.Click().Connect(Note("ok"));
  Cancel.Click().Connect(Note("cancel"));
  OK.TakeFocus();
  Window.PressKey(EscapeKey);
  EXPECT_THAT(Calls, ElementsAre("cancel"));
}

TEST_F(DialogControlsTest, KeyDownComesBeforeWhatTheKeyDoes) {
  OK.Click().Connect(Note("ok"));
  Loaded->Events().KeyDown.Connect([&](std::int32_t code, std::int32_t shift) {
    Calls.push_back(std::to_string(code) + " " + std::to_string(shift));
  });
  Window.PressKey(ReturnKey);
  Window.PressKey(TabKey, CtrlState);
  EXPECT_THAT(Calls, ElementsAre("13 0", "ok", "9 2"));
}

TEST_F(DialogControlsTest, KeyDownMayUnloadTheForm) {
  OK.Click().Connect(Note("ok"));
  Loaded->Events().KeyDown.Connect([&](std::int32_t, std::int32_t) { Loaded->Unload(); });
  EXPECT_TRUE(Window.PressKey(ReturnKey));
  EXPECT_THAT(Calls, ElementsAre());
}

} // namespace
} // namespace portico::memory
