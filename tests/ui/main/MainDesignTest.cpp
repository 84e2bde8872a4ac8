#include "ui/main/MainDesign.h"

#include "ui/main/MainButtons.h"
#include "ui/main/MainTables.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

TEST(MainDesign, HasEveryMenuItemInItsPlace) {
  ASSERT_EQ(MainDesign.Menus.size(), std::size(ExpectedMenus));
  for (std::size_t i = 0; i < MainDesign.Menus.size(); ++i) {
    const MenuDesign& menu = MainDesign.Menus[i];
    const ExpectedMenu& expected = ExpectedMenus[i];
    SCOPED_TRACE(ToUtf8(expected.Name));
    EXPECT_EQ(ToUtf8(menu.Name), ToUtf8(expected.Name));
    EXPECT_EQ(ToUtf8(menu.Caption), ToUtf8(expected.Id));
    EXPECT_EQ(ToUtf8(menu.Parent), ToUtf8(expected.Parent));
    EXPECT_EQ(ToUtf8(menu.Shortcut), ToUtf8(expected.Shortcut));
    EXPECT_EQ(menu.Visible, expected.Visible);
    EXPECT_EQ(menu.Checked, expected.Checked);
    EXPECT_EQ(menu.IsPopup, expected.IsPopup);
  }
}

TEST(MainDesign, HasEveryButtonInItsPlace) {
  ASSERT_EQ(MainDesign.ToolButtons.size(), std::size(ExpectedButtons));
  for (std::size_t i = 0; i < MainDesign.ToolButtons.size(); ++i) {
    const ToolButtonDesign& button = MainDesign.ToolButtons[i];
    const ExpectedButton& expected = ExpectedButtons[i];
    SCOPED_TRACE(ToUtf8(expected.Key));
    EXPECT_EQ(ToUtf8(button.Key), ToUtf8(expected.Key));
    EXPECT_EQ(ToUtf8(button.ToolTipText), ToUtf8(expected.Id));
    EXPECT_EQ(ToUtf8(button.Image), ToUtf8(expected.Image));
    EXPECT_EQ(button.Style, expected.IsCheck       ? ToolButtonStyle::Check
                            : expected.IsSeparator ? ToolButtonStyle::Separator
                                                   : ToolButtonStyle::Default);
  }
}

TEST(MainDesign, HasFourPanels) {
  ASSERT_EQ(MainDesign.StatusPanels.size(), 4U);
  EXPECT_EQ(MainDesign.StatusPanels[0].Key, u"Status");
  EXPECT_EQ(MainDesign.StatusPanels[1].Key, u"SCPI");
  EXPECT_EQ(MainDesign.StatusPanels[0].Style, StatusPanelStyle::Text);
  EXPECT_EQ(MainDesign.StatusPanels[1].Style, StatusPanelStyle::Text);
  EXPECT_EQ(MainDesign.StatusPanels[2].Style, StatusPanelStyle::Date);
  EXPECT_EQ(MainDesign.StatusPanels[3].Style, StatusPanelStyle::Time);
}

TEST(MainDesign, HasTheTwoBoxesWithinTheSplitter) {
  const auto find = [](StringView name) -> const ControlDesign& {
    for (const ControlDesign& control : MainDesign.Controls) {
      if (control.Name == name) return control;
    }
    ADD_FAILURE() << "There is no " << ToUtf8(name);
    return MainDesign.Controls[0];
  };
  EXPECT_EQ(MainDesign.Controls.size(), 5U);
  EXPECT_EQ(MainDesign.Name, u"frmMain");
  EXPECT_EQ(MainDesign.Style, FormStyle::Window);

  const ControlDesign& future = find(u"txtFuture");
  EXPECT_EQ(future.Kind, ControlKind::RichTextBox);
  EXPECT_EQ(future.Parent, u"splitterNow");
  EXPECT_EQ(ToUtf8(future.ToolTipText), "Enter commands to process here.");
  const ControlDesign& past = find(u"txtPast");
  EXPECT_EQ(past.Kind, ControlKind::RichTextBox);
  EXPECT_EQ(past.Parent, u"splitterNow");
  EXPECT_EQ(ToUtf8(past.ToolTipText), "Commands and results that have been processed.");
  const ControlDesign& scratch = find(u"rtfScratchArea");
  EXPECT_EQ(scratch.Kind, ControlKind::RichTextBox);
  EXPECT_FALSE(scratch.Visible);
  EXPECT_EQ(find(u"splitterNow").Kind, ControlKind::SplitPanel);
  const ControlDesign& logo = find(u"picLogo");
  EXPECT_EQ(logo.Kind, ControlKind::PictureBox);
  EXPECT_EQ(logo.Image, u"TolvaneLogo");
}

} // namespace
} // namespace portico::test
