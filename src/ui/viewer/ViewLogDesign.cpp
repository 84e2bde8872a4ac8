#include "ui/viewer/ViewLogDesign.h"

#include "ui/base/ViewMenu.h"

#include <array>

namespace portico {
namespace {

constexpr StringView Bar = u"-";

constexpr std::array MenusBeforeView = {
    MenuDesign{.Name = u"mnuFile", .Caption = u"1000"},
    MenuDesign{.Name = u"mnuFileProperty", .Caption = u"1050", .Parent = u"mnuFile", .Visible = false},
    MenuDesign{.Name = u"mnuFileBar0", .Caption = Bar, .Parent = u"mnuFile", .Visible = false},
    MenuDesign{.Name = u"mnuFilePrint", .Caption = u"1008", .Parent = u"mnuFile", .Shortcut = u"Ctrl+P"},
    MenuDesign{.Name = u"mnuFilePageSetup", .Caption = u"1007", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuFileBar1", .Caption = Bar, .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuFileClose", .Caption = u"1060", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuEdit", .Caption = u"2000"},
    MenuDesign{.Name = u"mnuCopy", .Caption = u"2020", .Parent = u"mnuEdit"},
    MenuDesign{.Name = u"mnuCopyto", .Caption = u"2040", .Parent = u"mnuEdit", .Visible = false},
};

constexpr std::array NotesMenu = {
    MenuDesign{.Name = u"mnuNotesBar", .Caption = BarCaption, .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuSessionMarks", .Caption = u"10110", .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuTimeStamps", .Caption = u"10111", .Parent = u"mnuView"},
};

constexpr std::array HelpMenu = {
    MenuDesign{.Name = u"mnuHelp", .Caption = u"9000"},
    MenuDesign{.Name = u"mnuHelpTopics", .Caption = u"9010", .Parent = u"mnuHelp", .Visible = false},
    MenuDesign{.Name = u"mnuHelpAbout", .Caption = u"9040", .Parent = u"mnuHelp"},
};

constexpr auto Menus = Joined(MenusBeforeView, ViewMenu, NotesMenu, HelpMenu);

constexpr std::array ToolButtons = {
    ToolButtonDesign{.Key = u"Print", .ToolTipText = u"8060", .Image = u"Print"},
    ToolButtonDesign{.Key = u"Copy", .ToolTipText = u"8080", .Image = u"Copy"},
    ToolButtonDesign{.Key = u"Copy to", .ToolTipText = u"8100", .Image = u"Copyto"},
};

constexpr std::array StatusPanels = {StatusPanelDesign{.Key = u"Status"}};

constexpr std::array Controls = {
    ControlDesign{.Kind = ControlKind::RichTextBox, .Name = u"txtPast"},
    ControlDesign{.Kind = ControlKind::PictureBox, .Name = u"picLogo", .Image = u"TolvaneLogo"},
};

constexpr FormDesign Design = {
    .Name = u"frmViewLog",
    .Caption = u"Log Viewer",
    .Style = FormStyle::Window,
    .Menus = Menus,
    .ToolButtons = ToolButtons,
    .StatusPanels = StatusPanels,
    .Controls = Controls,
};

constexpr StringView FocusSentence = u"An error occured while changing focus.";

constexpr std::array Handlers = {
    ViewLogHandler{u"Form_Load", u"An error occured while loading."},
    ViewLogHandler{u"Form_Unload", u"An error occured while unloading."},
    ViewLogHandler{u"Form_Activate", FocusSentence},
    ViewLogHandler{u"Form_KeyDown", FocusSentence},
    ViewLogHandler{u"txtPast_LostFocus", FocusSentence},
    ViewLogHandler{u"txtPast_MouseUp", FocusSentence},
    ViewLogHandler{u"mnuEdit_Click", FocusSentence},
    ViewLogHandler{u"mnuCopy_Click", u"Can't perform copy operation."},
    ViewLogHandler{u"mnuFilePrint_Click", u"Can't perform print operation."},
    ViewLogHandler{u"mnuFilePageSetup_Click", u"Can't setup page."},
    ViewLogHandler{u"mnuFileClose_Click", u"An error occured while closing."},
    ViewLogHandler{u"mnuHelpAbout_Click", u"An error occured while displaying about box."},
};

} // namespace

const FormDesign& ViewLogDesign() { return Design; }

std::span<const ViewLogHandler> ViewLogHandlers() { return Handlers; }

} // namespace portico
