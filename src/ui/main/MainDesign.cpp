#include "ui/main/MainDesign.h"

#include "ui/base/ViewMenu.h"
#include "ui/main/DataMenu.h"
#include "ui/main/MainViewMenu.h"

namespace portico {
namespace {

constexpr MenuDesign Item(StringView parent, StringView name, StringView id, StringView shortcut = {}) {
  return {.Name = name, .Caption = id, .Parent = parent, .Shortcut = shortcut};
}
constexpr MenuDesign Title(StringView name, StringView id) { return {.Name = name, .Caption = id}; }
constexpr MenuDesign Bar(StringView parent, StringView name) {
  return {.Name = name, .Caption = u"-", .Parent = parent};
}
constexpr MenuDesign Popup(StringView name, StringView id) {
  return {.Name = name, .Caption = id, .Visible = false, .IsPopup = true};
}
constexpr MenuDesign Hidden(MenuDesign item) {
  item.Visible = false;
  return item;
}
constexpr MenuDesign Checked(MenuDesign item) {
  item.Checked = true;
  return item;
}

constexpr std::array MenusBeforeView = {
    Title(u"mnuFile", u"1000"),
    Item(u"mnuFile", u"mnuFileOpenInstrument", u"1001", u"Ctrl+N"),
    Item(u"mnuFile", u"mnuFileCloseInstrument", u"1002"),
    Bar(u"mnuFile", u"mnuFileBar0"),
    Item(u"mnuFile", u"mnuFileNewLog", u"1003"),
    Item(u"mnuFile", u"mnuFileViewLog", u"1004"),
    Item(u"mnuFile", u"mnuFilePause", u"1005"),
    Item(u"mnuFile", u"mnuCloseLog", u"1006"),
    Bar(u"mnuFile", u"mnuFileBar1"),
    Item(u"mnuFile", u"mnuFilePrint", u"1008", u"Ctrl+P"),
    Item(u"mnuFile", u"mnuFilePageSetup", u"1007"),
    Bar(u"mnuFile", u"mnuFileBar2"),
    Hidden(Item(u"mnuFile", u"mnuFileMRU(1)", u"")),
    Hidden(Item(u"mnuFile", u"mnuFileMRU(2)", u"")),
    Hidden(Item(u"mnuFile", u"mnuFileMRU(3)", u"")),
    Hidden(Bar(u"mnuFile", u"mnuFileBar3")),
    Item(u"mnuFile", u"mnuFileExit", u"1009"),

    Title(u"mnuEdit", u"2000"),
    Item(u"mnuEdit", u"mnuEditCut", u"2010"),
    Item(u"mnuEdit", u"mnuEditCopy", u"2020"),
    Item(u"mnuEdit", u"mnuEditPaste", u"2030"),
    Bar(u"mnuEdit", u"mnuEditBar1"),
    Item(u"mnuEdit", u"mnuCopyTo", u"2040", u"Ctrl+S"),
    Item(u"mnuEdit", u"mnuPasteFrom", u"2050", u"Ctrl+L"),
    Bar(u"mnuEdit", u"mnuEditBar2"),
    Item(u"mnuEdit", u"mnuClearHistory", u"2060"),
    Item(u"mnuEdit", u"mnuEditClearCmds", u"2070"),

    Title(u"mnuExecution", u"3000"),
    Item(u"mnuExecution", u"mnuStep", u"3010", u"F8"),
    Item(u"mnuExecution", u"mnuRun", u"3030", u"F5"),
    Item(u"mnuExecution", u"mnuRunToCursor", u"3020", u"Ctrl+F5"),
    Item(u"mnuExecution", u"mnuStop", u"3040", u"F9"),

    Title(u"mnuCommand", u"4000"),
    Item(u"mnuCommand", u"mnuRead", u"4010", u"F2"),
    Item(u"mnuCommand", u"mnuOPC", u"4020", u"F3"),
    Item(u"mnuCommand", u"mnuGetStatus", u"4030", u"F4"),

    Title(u"mnuTools", u"5000"),
    Item(u"mnuTools", u"mnuMode", u"5010"),
    Checked(Item(u"mnuMode", u"mnuSCPI", u"5030", u"F11")),
    Item(u"mnuMode", u"mnuDDC", u"5040", u"F12"),
    Item(u"mnuTools", u"mnuOptions", u"5020"),
};

constexpr std::array MenusBehindData = {
    Title(u"mnuHelp", u"9000"),
    Item(u"mnuHelp", u"mnuHelpTopics", u"9010"),
    Bar(u"mnuHelp", u"mnuHelpBar0"),
    Item(u"mnuHelp", u"mnuHelpAbout", u"9040"),

    Popup(u"mnuPopupCMD", u"6000"),
    Item(u"mnuPopupCMD", u"mnuPopupCmdCut", u"6010"),
    Item(u"mnuPopupCMD", u"mnuPopupCmdCopy", u"6020"),
    Item(u"mnuPopupCMD", u"mnuPopupCmdPaste", u"6030"),
    Bar(u"mnuPopupCMD", u"mnuPopupCmdBar1"),
    Item(u"mnuPopupCMD", u"mnuPopupCMDClearCommand", u"6060"),
    Bar(u"mnuPopupCMD", u"mnuPopupCmdBar2"),
    Item(u"mnuPopupCMD", u"mnuPopupCMDStep", u"6080"),
    Item(u"mnuPopupCMD", u"mnuPopupCMDRun", u"6070"),
    Item(u"mnuPopupCMD", u"mnuPopupCMDRun2Cursor", u"6075"),
    Item(u"mnuPopupCMD", u"mnuPopupCMDStop", u"6090"),

    Popup(u"mnuPopupHistory", u"7000"),
    Item(u"mnuPopupHistory", u"mnuPopupHistoryCut", u"7010"),
    Item(u"mnuPopupHistory", u"mnuPopupHistoryCopy", u"7020"),
    Item(u"mnuPopupHistory", u"mnuPopupHistoryPaste", u"7030"),
    Bar(u"mnuPopupHistory", u"mnuPopupHistoryBar1"),
    Item(u"mnuPopupHistory", u"mnuPopupHistoryClearHistory", u"7060"),
};

constexpr auto Menus = Joined(MenusBeforeView, ViewMenu, MainViewMenu, DataMenu, MenusBehindData);

constexpr ToolButtonStyle Check = ToolButtonStyle::Check;
constexpr ToolButtonStyle Separator = ToolButtonStyle::Separator;

constexpr ToolButtonDesign ToolButtons[] = {
    {.Key = u"OpenInstrument", .ToolTipText = u"8010", .Image = u"Instrument", .Style = Check},
    {.Key = u"Sep0", .Style = Separator},
    {.Key = u"View Log", .ToolTipText = u"8030", .Image = u"ViewLog"},
    {.Key = u"Logger", .Image = u"Logger", .Style = Check},
    {.Key = u"Pause", .ToolTipText = u"8040", .Image = u"Pause", .Style = Check},
    {.Key = u"Sep1", .Style = Separator},
    {.Key = u"Print", .ToolTipText = u"8060", .Image = u"Print"},
    {.Key = u"Cut", .ToolTipText = u"8070", .Image = u"Cut"},
    {.Key = u"Copy", .ToolTipText = u"8080", .Image = u"Copy"},
    {.Key = u"Paste", .ToolTipText = u"8090", .Image = u"Paste"},
    {.Key = u"Copy to", .ToolTipText = u"8100", .Image = u"Copyto"},
    {.Key = u"Paste from", .ToolTipText = u"8110", .Image = u"Pastefrom"},
    {.Key = u"Step", .ToolTipText = u"8120", .Image = u"Step"},
    {.Key = u"Run", .ToolTipText = u"8130", .Image = u"Run"},
    {.Key = u"Run to Cursor", .ToolTipText = u"8140", .Image = u"Run2Cursor"},
    {.Key = u"Stop", .ToolTipText = u"8150", .Image = u"Stop"},
    {.Key = u"Read", .Image = u"Status"},
};

constexpr StatusPanelDesign StatusPanels[] = {
    {.Key = u"Status"},
    {.Key = u"SCPI"},
    {.Key = u"Date", .Style = StatusPanelStyle::Date},
    {.Key = u"Time", .Style = StatusPanelStyle::Time},
};

constexpr ControlDesign Controls[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"rtfScratchArea", .Visible = false},
    {.Kind = ControlKind::PictureBox, .Name = u"picLogo", .Image = u"TolvaneLogo"},
    {.Kind = ControlKind::SplitPanel, .Name = u"splitterNow"},
    {.Kind = ControlKind::RichTextBox,
     .Name = u"txtPast",
     .Parent = u"splitterNow",
     .ToolTipText = u"Commands and results that have been processed."},
    {.Kind = ControlKind::RichTextBox,
     .Name = u"txtFuture",
     .Parent = u"splitterNow",
     .ToolTipText = u"Enter commands to process here."},
};

} // namespace

const FormDesign MainDesign{.Name = u"frmMain",
                            .Caption = u"Tolvane Portico",
                            .Style = FormStyle::Window,
                            .Menus = Menus,
                            .ToolButtons = ToolButtons,
                            .StatusPanels = StatusPanels,
                            .Controls = Controls};

} // namespace portico
