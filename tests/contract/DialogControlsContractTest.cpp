// The controls of a dialog, as far as the program alone can tell.

#include "contract/FormsBench.h"

#include "platform/IDialogControls.h"
#include "support/ErrorReports.h"

#include <array>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

constexpr std::array InputsControls{
    ControlDesign{.Kind = ControlKind::TabStrip, .Name = u"tabs"},
    ControlDesign{.Kind = ControlKind::Page, .Name = u"page"},
    ControlDesign{.Kind = ControlKind::Frame, .Name = u"frame", .Caption = u"A Frame", .Parent = u"page"},
    ControlDesign{.Kind = ControlKind::CheckBox, .Name = u"check", .Caption = u"&Check", .Parent = u"frame"},
    ControlDesign{.Kind = ControlKind::TextBox, .Name = u"text", .Caption = u"100", .Parent = u"frame"},
    ControlDesign{.Kind = ControlKind::ComboBox, .Name = u"list", .Parent = u"frame"},
    ControlDesign{.Kind = ControlKind::ComboBox, .Name = u"typed", .Parent = u"frame", .Tag = u"typed"},
    ControlDesign{.Kind = ControlKind::Row, .Name = u"row"},
    ControlDesign{
        .Kind = ControlKind::Label, .Name = u"label", .Caption = u"Label", .Parent = u"row", .ToolTipText = u"tip"},
    ControlDesign{.Kind = ControlKind::Space, .Name = u"space", .Parent = u"row"},
    ControlDesign{.Kind = ControlKind::Line, .Name = u"line"},
    ControlDesign{.Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"OK", .Parent = u"row"},
    ControlDesign{.Kind = ControlKind::CommandButton, .Name = u"cancel", .Caption = u"Cancel", .Parent = u"row"},
};
constexpr FormDesign InputsDialog{
    .Name = u"frmDialog", .Caption = u"A Dialog", .Style = FormStyle::Dialog, .Controls = InputsControls};

class DialogControlsContract : public FormsContract {
protected:
  template <class Control>
  Control& The(StringView name) const {
    return FindControl<Control>(*Loaded, name);
  }
  /// Writes an event down, with a number behind it.
  template <class Read>
  auto Note(const std::string& name, Read&& read) {
    return [this, name, read] { Calls.push_back(name + std::to_string(read())); };
  }

  Ref<IForm> Loaded = Forms().Load(InputsDialog);
  std::vector<std::string> Calls;
};

INSTANTIATE_TEST_SUITE_P(AllForms, DialogControlsContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

TEST_P(DialogControlsContract, ACaptionIsThatOfTheDesignAndCanBeSet) {
  EXPECT_EQ(The<IControl>(u"frame").Caption(), u"A Frame");
  EXPECT_EQ(The<IControl>(u"check").Caption(), u"&Check");
  for (StringView name : {u"frame", u"check", u"label", u"ok"}) {
    The<IControl>(name).Caption(u"new");
    EXPECT_EQ(The<IControl>(name).Caption(), u"new") << ToUtf8(name);
  }
}

TEST_P(DialogControlsContract, ACaptionThatAKindDoesNotHaveReadsAsEmptyAndRaises438) {
  for (StringView name : {u"tabs", u"page", u"text", u"list", u"row", u"space", u"line"}) {
    auto& control = The<IControl>(name);
    EXPECT_EQ(control.Caption(), u"") << ToUtf8(name);
    EXPECT_EQ(Raised([&] { control.Caption(u"new"); }).Number, 438) << ToUtf8(name);
    EXPECT_EQ(control.Caption(), u"") << ToUtf8(name);
  }
}

TEST_P(DialogControlsContract, AToolTipThatAKindDoesNotHaveReadsAsEmptyAndRaises438) {
  EXPECT_EQ(The<IControl>(u"label").ToolTipText(), u"tip");
  for (StringView name : {u"page", u"row", u"space", u"line"}) {
    auto& control = The<IControl>(name);
    EXPECT_EQ(control.ToolTipText(), u"") << ToUtf8(name);
    EXPECT_EQ(Raised([&] { control.ToolTipText(u"new"); }).Number, 438) << ToUtf8(name);
    EXPECT_EQ(control.ToolTipText(), u"") << ToUtf8(name);
  }
  for (StringView name : {u"tabs", u"frame", u"check", u"text", u"list", u"label", u"ok"}) {
    The<IControl>(name).ToolTipText(u"new");
    EXPECT_EQ(The<IControl>(name).ToolTipText(), u"new") << ToUtf8(name);
  }
}

TEST_P(DialogControlsContract, ACheckBoxClicksWheneverItsValueChanges) {
  auto& check = The<ICheckBox>(u"check");
  check.Click().Connect(Note("", [&] { return check.Value(); }));
  EXPECT_EQ(check.Value(), 0);
  check.Value(Unchecked);
  check.Value(Checked);
  check.Value(Checked);
  check.Value(Grayed);
  EXPECT_THAT(Calls, ElementsAre("1", "2"));
}

TEST_P(DialogControlsContract, ACheckBoxTakesNoOtherValue) {
  auto& check = The<ICheckBox>(u"check");
  EXPECT_EQ(Raised([&] { check.Value(3); }).Number, 380);
  EXPECT_EQ(Raised([&] { check.Value(-1); }).Number, 380);
  EXPECT_EQ(check.Value(), 0);
}

TEST_P(DialogControlsContract, ATextBoxTellsEachChange) {
  auto& text = The<ITextBox>(u"text");
  EXPECT_EQ(text.Text(), u"100");
  text.Change().Connect([&] { Calls.push_back(ToUtf8(text.Text())); });
  text.Text(u"100");
  text.Text(u"200");
  EXPECT_THAT(Calls, ElementsAre("200"));
}

TEST_P(DialogControlsContract, AListBeginsEmptyWithNothingSelected) {
  auto& list = The<IComboBox>(u"list");
  list.Click().Connect(Note("click ", [&] { return list.ListIndex(); }));
  EXPECT_EQ(list.ListCount(), 0);
  list.AddItem(u"Auto ");
  list.AddItem(u"CR");
  EXPECT_EQ(list.ListCount(), 2);
  EXPECT_EQ(list.List(0), u"Auto ");
  EXPECT_EQ(list.List(1), u"CR");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), u"");
  EXPECT_THAT(Calls, ElementsAre());
}

TEST_P(DialogControlsContract, TheTextOfAListIsThatOfTheSelectedEntry) {
  auto& list = The<IComboBox>(u"list");
  list.AddItem(u"CR");
  list.AddItem(u"LF");
  list.Change().Connect([&] { Calls.push_back("change " + ToUtf8(list.Text())); });
  list.Click().Connect(Note("click ", [&] { return list.ListIndex(); }));
  list.ListIndex(1);
  list.ListIndex(1);
  EXPECT_EQ(list.Text(), u"LF");
  list.Text(u"CR");
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_THAT(Calls, ElementsAre("change LF", "click 1", "change CR", "click 0"));
  EXPECT_EQ(Raised([&] { list.Text(u"other"); }).Number, 380);
  EXPECT_EQ(list.Text(), u"CR");
}

TEST_P(DialogControlsContract, AnIndexThatNoEntryHasRaises380) {
  auto& list = The<IComboBox>(u"list");
  list.AddItem(u"CR");
  EXPECT_EQ(Raised([&] { list.ListIndex(1); }).Number, 380);
  EXPECT_EQ(Raised([&] { list.ListIndex(-2); }).Number, 380);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_P(DialogControlsContract, AListThatIsTypedInTakesAnyText) {
  auto& list = The<IComboBox>(u"typed");
  list.AddItem(u"Visa->A");
  list.AddItem(u"Visa->B");
  EXPECT_EQ(list.Text(), u"");
  list.ListIndex(1);
  EXPECT_EQ(list.Text(), u"Visa->B");
  list.Change().Connect([&] { Calls.push_back("change " + ToUtf8(list.Text())); });
  list.Click().Connect(Note("click ", [&] { return list.ListIndex(); }));
  list.Text(u"SIM::DMM::INSTR");
  EXPECT_EQ(list.ListIndex(), -1);
  list.AddItem(u"Visa->C");
  EXPECT_EQ(list.Text(), u"SIM::DMM::INSTR");
  EXPECT_THAT(Calls, ElementsAre("change SIM::DMM::INSTR"));
}

TEST_P(DialogControlsContract, TabsAreCountedFromOne) {
  auto& tabs = The<ITabStrip>(u"tabs");
  EXPECT_EQ(tabs.SelectedItem(), 0);
  tabs.Click().Connect(Note("", [&] { return tabs.SelectedItem(); }));
  tabs.AddTab(u"SCPI", u"tip", u"17");
  tabs.AddTab(u"Other", u"");
  EXPECT_EQ(tabs.SelectedItem(), 1);
  tabs.SelectedItem(2);
  tabs.SelectedItem(2);
  EXPECT_THAT(Calls, ElementsAre("2"));
  EXPECT_EQ(Raised([&] { tabs.SelectedItem(0); }).Number, 35600);
  EXPECT_EQ(Raised([&] { tabs.SelectedItem(3); }).Number, 35600);
}

TEST_P(DialogControlsContract, ATabHoldsItsTexts) {
  auto& tabs = The<ITabStrip>(u"tabs");
  tabs.AddTab(u"SCPI", u"tip", u"17");
  ASSERT_EQ(tabs.Tabs().size(), 1);
  ITab& tab = *tabs.Tabs().front();
  EXPECT_EQ(tab.Caption(), u"SCPI");
  EXPECT_EQ(tab.ToolTipText(), u"tip");
  EXPECT_EQ(tab.Tag(), u"17");
  tab.Caption(u"new");
  tab.ToolTipText(u"new tip");
  EXPECT_EQ(tab.Caption(), u"new");
  EXPECT_EQ(tab.ToolTipText(), u"new tip");
}

TEST_P(DialogControlsContract, TabIndicesAreThoseOfTheTableAndCanBeChanged) {
  auto& check = The<ICheckBox>(u"check");
  auto& cancel = The<ICommandButton>(u"cancel");
  EXPECT_EQ(The<ITabStrip>(u"tabs").TabIndex(), 0);
  EXPECT_EQ(check.TabIndex(), 1);
  EXPECT_EQ(cancel.TabIndex(), 6);
  cancel.TabIndex(1);
  EXPECT_EQ(cancel.TabIndex(), 1);
  EXPECT_EQ(check.TabIndex(), 2);
  cancel.TabIndex(100);
  EXPECT_EQ(cancel.TabIndex(), 6);
  EXPECT_EQ(check.TabIndex(), 1);
  EXPECT_EQ(Raised([&] { cancel.TabIndex(-1); }).Number, 380);
  EXPECT_TRUE(check.TabStop());
  check.TabStop(false);
  EXPECT_FALSE(check.TabStop());
}

TEST_P(DialogControlsContract, APageHoldsItsLeftEdge) {
  auto& page = The<IPage>(u"page");
  page.Left(-20000);
  EXPECT_EQ(page.Left(), -20000);
  EXPECT_TRUE(page.Visible());
}

TEST_P(DialogControlsContract, AnErrorInAHandlerReachesTheProgramThatChangedTheValue) {
  auto& check = The<ICheckBox>(u"check");
  check.Click().Connect([] { HuntERR::RaiseStandard(ErrorNumber::InvalidArgument); });
  EXPECT_EQ(Raised([&] { check.Value(Checked); }).Number, 5);
}

} // namespace
} // namespace portico::test
