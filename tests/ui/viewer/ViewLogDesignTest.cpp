#include "ui/viewer/ViewLogDesign.h"

#include "ui/viewer/ViewLogFixture.h"

namespace portico::test {
namespace {

class ViewLogDesignTest : public ViewLogFixture {};

std::string Told(const MenuDesign& item) {
  std::string line = ToUtf8(item.Parent) + "/" + ToUtf8(item.Name) + " " + ToUtf8(item.Caption);
  if (!item.Shortcut.empty()) line += " " + ToUtf8(item.Shortcut);
  if (!item.Visible) line += " hidden";
  return line;
}

TEST_F(ViewLogDesignTest, HasItsMenus) {
  std::vector<std::string> lines;
  for (const MenuDesign& item : ViewLogDesign().Menus) lines.push_back(Told(item));
  EXPECT_EQ(lines, (List{"/mnuFile 1000",
                         "mnuFile/mnuFileProperty 1050 hidden",
                         "mnuFile/mnuFileBar0 - hidden",
                         "mnuFile/mnuFilePrint 1008 Ctrl+P",
                         "mnuFile/mnuFilePageSetup 1007",
                         "mnuFile/mnuFileBar1 -",
                         "mnuFile/mnuFileClose 1060",
                         "/mnuEdit 2000",
                         "mnuEdit/mnuCopy 2020",
                         "mnuEdit/mnuCopyto 2040 hidden",
                         "/mnuView 10000",
                         "mnuView/mnuFind 10010 Ctrl+F",
                         "mnuView/mnuFindNext 10020 Ctrl+G",
                         "mnuView/mnuFindPrevious 10030 Ctrl+Shift+G",
                         "mnuView/mnuViewBar0 -",
                         "mnuView/mnuZoomIn 10040 Ctrl++",
                         "mnuView/mnuZoomOut 10050 Ctrl+-",
                         "mnuView/mnuActualSize 10060 Ctrl+0",
                         "mnuView/mnuViewBar1 -",
                         "mnuView/mnuNextError 10070 F7",
                         "mnuView/mnuPreviousError 10071 Shift+F7",
                         "mnuView/mnuErrors 10072",
                         "mnuView/mnuViewBar2 -",
                         "mnuView/mnuPlot 10090",
                         "mnuView/mnuShowPicture 10095",
                         "mnuView/mnuNotesBar -",
                         "mnuView/mnuSessionMarks 10110",
                         "mnuView/mnuTimeStamps 10111",
                         "/mnuHelp 9000",
                         "mnuHelp/mnuHelpTopics 9010 hidden",
                         "mnuHelp/mnuHelpAbout 9040"}));
}

TEST_F(ViewLogDesignTest, HasItsToolbarStatusBarAndControls) {
  std::vector<std::string> lines;
  for (const ToolButtonDesign& button : ViewLogDesign().ToolButtons) {
    lines.push_back(ToUtf8(button.Key) + " " + ToUtf8(button.ToolTipText) + " " + ToUtf8(button.Image));
    EXPECT_EQ(button.Style, ToolButtonStyle::Default);
  }
  EXPECT_EQ(lines, (List{"Print 8060 Print", "Copy 8080 Copy", "Copy to 8100 Copyto"}));
  EXPECT_EQ(ViewLogDesign().StatusPanels.size(), 1U);
  ASSERT_EQ(ViewLogDesign().Controls.size(), 2U);
  EXPECT_EQ(ViewLogDesign().Controls[0].Name, u"txtPast");
  EXPECT_EQ(ViewLogDesign().Controls[0].Kind, ControlKind::RichTextBox);
  EXPECT_EQ(ViewLogDesign().Controls[1].Name, u"picLogo");
  EXPECT_EQ(ViewLogDesign().Controls[1].Kind, ControlKind::PictureBox);
  EXPECT_EQ(ViewLogDesign().Controls[1].Image, u"TolvaneLogo");
  EXPECT_EQ(ViewLogDesign().Name, u"frmViewLog");
  EXPECT_EQ(ViewLogDesign().Style, FormStyle::Window);
}

TEST_F(ViewLogDesignTest, EachHandlerHasASentence) {
  std::vector<std::string> lines;
  for (const ViewLogHandler& handler : ViewLogHandlers()) {
    lines.push_back(ToUtf8(handler.Name) + ": " + ToUtf8(handler.Sentence));
  }
  EXPECT_EQ(lines,
            (List{"Form_Load: An error occured while loading.", "Form_Unload: An error occured while unloading.",
                  "Form_Activate: An error occured while changing focus.",
                  "Form_KeyDown: An error occured while changing focus.",
                  "txtPast_LostFocus: An error occured while changing focus.",
                  "txtPast_MouseUp: An error occured while changing focus.",
                  "mnuEdit_Click: An error occured while changing focus.",
                  "mnuCopy_Click: Can't perform copy operation.", "mnuFilePrint_Click: Can't perform print operation.",
                  "mnuFilePageSetup_Click: Can't setup page.", "mnuFileClose_Click: An error occured while closing.",
                  "mnuHelpAbout_Click: An error occured while displaying about box."}));
}

TEST_F(ViewLogDesignTest, ShowsTextsWhereTheDesignHasIds) {
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  EXPECT_EQ(Menu(viewer, u"mnuFile").Caption(), u"&File");
  EXPECT_EQ(Menu(viewer, u"mnuFilePrint").Caption(), u"&Print History Window...");
  EXPECT_EQ(Menu(viewer, u"mnuFileBar1").Caption(), u"-");
  EXPECT_EQ(Menu(viewer, u"mnuHelpAbout").Caption(), u"&About Tolvane Portico...");
  EXPECT_EQ(Bar(viewer).Buttons(u"Print").ToolTipText(), u"Print");
  EXPECT_EQ(Bar(viewer).Buttons(u"Copy").ToolTipText(), u"Copy");
  EXPECT_EQ(Bar(viewer).Buttons(u"Copy to").ToolTipText(), u"Copy to File");
}

} // namespace
} // namespace portico::test
