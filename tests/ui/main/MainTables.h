#pragma once

#include "framework/text/text.h"

#include <span>

namespace portico::test {

/// What a user finds in the main window's menus, row by row, as it is meant to be.
struct ExpectedMenu {
  StringView Name;
  StringView Id; ///< the caption of the design; "-" for a bar
  StringView Caption;
  StringView Parent = {};
  StringView Shortcut = {};
  bool Visible = true;
  bool Checked = false;
  bool IsPopup = false;
};

inline constexpr ExpectedMenu ExpectedMenus[] = {
    {u"mnuFile", u"1000", u"&File"},
    {u"mnuFileOpenInstrument", u"1001", u"&Open Instrument...", u"mnuFile", u"Ctrl+N"},
    {u"mnuFileCloseInstrument", u"1002", u"&Close Instrument", u"mnuFile"},
    {u"mnuFileBar0", u"-", u"-", u"mnuFile"},
    {u"mnuFileNewLog", u"1003", u"&New Log...", u"mnuFile"},
    {u"mnuFileViewLog", u"1004", u"&View Log...", u"mnuFile"},
    {u"mnuFilePause", u"1005", u"Pau&se Logging", u"mnuFile"},
    {u"mnuCloseLog", u"1006", u"Close &Log", u"mnuFile"},
    {u"mnuFileBar1", u"-", u"-", u"mnuFile"},
    {u"mnuFilePrint", u"1008", u"&Print History Window...", u"mnuFile", u"Ctrl+P"},
    {u"mnuFilePageSetup", u"1007", u"Print Set&up...", u"mnuFile"},
    {u"mnuFileBar2", u"-", u"-", u"mnuFile"},
    {u"mnuFileMRU(1)", u"", u"", u"mnuFile", u"", false},
    {u"mnuFileMRU(2)", u"", u"", u"mnuFile", u"", false},
    {u"mnuFileMRU(3)", u"", u"", u"mnuFile", u"", false},
    {u"mnuFileBar3", u"-", u"-", u"mnuFile", u"", false},
    {u"mnuFileExit", u"1009", u"E&xit", u"mnuFile"},

    {u"mnuEdit", u"2000", u"&Edit"},
    {u"mnuEditCut", u"2010", u"Cu&t                          Ctrl+X", u"mnuEdit"},
    {u"mnuEditCopy", u"2020", u"&Copy                       Ctrl+C", u"mnuEdit"},
    {u"mnuEditPaste", u"2030", u"&Paste                       Ctrl+V", u"mnuEdit"},
    {u"mnuEditBar1", u"-", u"-", u"mnuEdit"},
    {u"mnuCopyTo", u"2040", u"Cop&y to...", u"mnuEdit", u"Ctrl+S"},
    {u"mnuPasteFrom", u"2050", u"P&aste from...", u"mnuEdit", u"Ctrl+L"},
    {u"mnuEditBar2", u"-", u"-", u"mnuEdit"},
    {u"mnuClearHistory", u"2060", u"Clear &History Window", u"mnuEdit"},
    {u"mnuEditClearCmds", u"2070", u"Clear Command Window", u"mnuEdit"},

    {u"mnuExecution", u"3000", u"Exec&ution"},
    {u"mnuStep", u"3010", u"St&ep", u"mnuExecution", u"F8"},
    {u"mnuRun", u"3030", u"&Run", u"mnuExecution", u"F5"},
    {u"mnuRunToCursor", u"3020", u"Run to &Cursor", u"mnuExecution", u"Ctrl+F5"},
    {u"mnuStop", u"3040", u"&Stop", u"mnuExecution", u"F9"},

    {u"mnuCommand", u"4000", u"&Command"},
    {u"mnuRead", u"4010", u"&Read Instrument Data", u"mnuCommand", u"F2"},
    {u"mnuOPC", u"4020", u"&Wait for OPC", u"mnuCommand", u"F3"},
    {u"mnuGetStatus", u"4030", u"&Get Instrument Status", u"mnuCommand", u"F4"},

    {u"mnuTools", u"5000", u"&Tools"},
    {u"mnuMode", u"5010", u"&Communication Protocol", u"mnuTools"},
    {u"mnuSCPI", u"5030", u"&SCPI", u"mnuMode", u"F11", true, true},
    {u"mnuDDC", u"5040", u"&Other", u"mnuMode", u"F12"},
    {u"mnuOptions", u"5020", u"&Options...", u"mnuTools"},

    {u"mnuView", u"10000", u"&View"},
    {u"mnuFind", u"10010", u"&Find...", u"mnuView", u"Ctrl+F"},
    {u"mnuFindNext", u"10020", u"Find &Next", u"mnuView", u"Ctrl+G"},
    {u"mnuFindPrevious", u"10030", u"Find Pre&vious", u"mnuView", u"Ctrl+Shift+G"},
    {u"mnuViewBar0", u"-", u"-", u"mnuView"},
    {u"mnuZoomIn", u"10040", u"Zoom &In", u"mnuView", u"Ctrl++"},
    {u"mnuZoomOut", u"10050", u"Zoom &Out", u"mnuView", u"Ctrl+-"},
    {u"mnuActualSize", u"10060", u"&Actual Size", u"mnuView", u"Ctrl+0"},
    {u"mnuViewBar1", u"-", u"-", u"mnuView"},
    {u"mnuNextError", u"10070", u"Next &Error", u"mnuView", u"F7"},
    {u"mnuPreviousError", u"10071", u"&Previous Error", u"mnuView", u"Shift+F7"},
    {u"mnuErrors", u"10072", u"Error&s...", u"mnuView"},
    {u"mnuViewBar2", u"-", u"-", u"mnuView"},
    {u"mnuPlot", u"10090", u"P&lot...", u"mnuView"},
    {u"mnuShowPicture", u"10095", u"Show Pictu&re", u"mnuView"},
    {u"mnuTiming", u"10080", u"&Timing...", u"mnuView"},

    {u"mnuData", u"10200", u"&Data"},
    {u"mnuStopAtErrors", u"10210", u"Stop at &Errors", u"mnuData"},
    {u"mnuCompletionBar", u"-", u"-", u"mnuData"},
    {u"mnuComplete", u"10220", u"&Complete", u"mnuData", u"Ctrl+Space"},
    {u"mnuAskForCommands", u"10221", u"&Ask the Instrument for Its Commands", u"mnuData"},
    {u"mnuRecallBar", u"-", u"-", u"mnuData"},
    {u"mnuEarlierLine", u"10230", u"Earlier &Line", u"mnuData", u"Alt+Up"},
    {u"mnuLaterLine", u"10231", u"Later L&ine", u"mnuData", u"Alt+Down"},
    {u"mnuSearchSentLines", u"10232", u"&Search Sent Lines...", u"mnuData", u"Ctrl+R"},
    {u"mnuPutBackLastRun", u"10233", u"&Put Back Last Run", u"mnuData"},
    {u"mnuKeepSentLines", u"10234", u"&Keep Sent Lines", u"mnuData"},
    {u"mnuForgetSentLines", u"10235", u"F&orget Sent Lines", u"mnuData"},
    {u"mnuRepeatBar", u"-", u"-", u"mnuData"},
    {u"mnuRepeat", u"10240", u"&Repeat...", u"mnuData"},
    {u"mnuAnswerBar", u"-", u"-", u"mnuData"},
    {u"mnuSaveAnswer", u"10250", u"Sa&ve Answer...", u"mnuData"},
    {u"mnuFetchAnswer", u"10251", u"&Fetch Answer to File...", u"mnuData"},
    {u"mnuDeviceBar", u"-", u"-", u"mnuData"},
    {u"mnuTimeout", u"10260", u"&Time-out...", u"mnuData"},
    {u"mnuClearDevice", u"10261", u"Clear &Device", u"mnuData"},
    {u"mnuGoToLocal", u"10262", u"&Go to Local", u"mnuData"},

    {u"mnuHelp", u"9000", u"&Help"},
    {u"mnuHelpTopics", u"9010", u"Help &Topics", u"mnuHelp"},
    {u"mnuHelpBar0", u"-", u"-", u"mnuHelp"},
    {u"mnuHelpAbout", u"9040", u"&About Tolvane Portico...", u"mnuHelp"},

    {u"mnuPopupCMD", u"6000", u"PopupCmds", u"", u"", false, false, true},
    {u"mnuPopupCmdCut", u"6010", u"Cut", u"mnuPopupCMD"},
    {u"mnuPopupCmdCopy", u"6020", u"Copy", u"mnuPopupCMD"},
    {u"mnuPopupCmdPaste", u"6030", u"Paste", u"mnuPopupCMD"},
    {u"mnuPopupCmdBar1", u"-", u"-", u"mnuPopupCMD"},
    {u"mnuPopupCMDClearCommand", u"6060", u"Clear Command Window", u"mnuPopupCMD"},
    {u"mnuPopupCmdBar2", u"-", u"-", u"mnuPopupCMD"},
    {u"mnuPopupCMDStep", u"6080", u"Step", u"mnuPopupCMD"},
    {u"mnuPopupCMDRun", u"6070", u"Run", u"mnuPopupCMD"},
    {u"mnuPopupCMDRun2Cursor", u"6075", u"Run to Cursor", u"mnuPopupCMD"},
    {u"mnuPopupCMDStop", u"6090", u"Stop", u"mnuPopupCMD"},

    {u"mnuPopupHistory", u"7000", u"PopupHistory", u"", u"", false, false, true},
    {u"mnuPopupHistoryCut", u"7010", u"Cut", u"mnuPopupHistory"},
    {u"mnuPopupHistoryCopy", u"7020", u"Copy", u"mnuPopupHistory"},
    {u"mnuPopupHistoryPaste", u"7030", u"Paste", u"mnuPopupHistory"},
    {u"mnuPopupHistoryBar1", u"-", u"-", u"mnuPopupHistory"},
    {u"mnuPopupHistoryClearHistory", u"7060", u"Clear History Window", u"mnuPopupHistory"},
};

} // namespace portico::test
