#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/modAppGlobals.h"
#include "platform/ICommonDialog.h"
#include "ui/base/ShowFailure.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/main/frmMain.h"

#include <algorithm>

namespace portico {

struct frmMain::MenuRow {
  StringView Item;
  /// Stands first in the message box.
  StringView Failure;
  /// The label of the report, where it is not that of the item.
  StringView Label = {};
  StringView Command = {};
  void (frmMain::*Action)() = nullptr;
};

std::span<const frmMain::MenuRow> frmMain::MenuRows() {
  static constexpr MenuRow rows[] = {
      {u"mnuFileOpenInstrument", u"Can't open instrument.", {}, {}, &frmMain::OpenInstrument},
      {u"mnuFileCloseInstrument", u"Can't open instrument.", {}, {}, &frmMain::CloseInstrument},
      {u"mnuFileNewLog", u"Can't open new log file.", {}, Class::ToggleLogFile},
      {u"mnuFileViewLog", u"Can't view a log file.", {}, Class::ViewLogFile},
      {u"mnuFilePause", u"Can't open new log file.", u"frmMain.mnuFileNewLog_Click", Class::ToggleLogging},
      {u"mnuCloseLog", u"Can't close log file.", {}, Class::ToggleLogFile},
      {u"mnuFilePrint", u"Can't perform print operation.", {}, {}, &frmMain::Print},
      {u"mnuFilePageSetup", u"Can't setup page.", {}, {}, &frmMain::PrintSetup},
      {u"mnuFileExit", u"Can't exit application.", {}, {}, &frmMain::Exit},

      {u"mnuEdit", FocusFailure, {}, {}, &frmMain::Update},
      {u"mnuEditCut", u"Can't perform cut operation.", {}, Class::Cut},
      {u"mnuEditCopy", u"Can't perform copy operation.", {}, Class::Copy},
      {u"mnuEditPaste", u"Can't perform paste operation.", {}, {}, &frmMain::PasteIntoCommands},
      {u"mnuCopyTo", u"Can't copy to.", {}, Class::Copyto},
      {u"mnuPasteFrom", u"Can't paste from a file.", {}, Class::Pastefrom},
      {u"mnuClearHistory", u"Can't clear history.", {}, {}, &frmMain::ClearHistory},
      {u"mnuEditClearCmds", u"Can't clear history.", u"mnuClearHistory_Click", {}, &frmMain::ClearCommands},

      {u"mnuStep", u"Can't run an instruction.", {}, {}, &frmMain::Step},
      {u"mnuRun", u"Can't run instructions.", {}, {}, &frmMain::RunAll},
      {u"mnuRunToCursor", u"Can't run instructions to cursor.", {}, {}, &frmMain::RunToCursor},
      {u"mnuStop", u"Can't stop running instructions.", {}, {}, &frmMain::Stop},

      {u"mnuCommand", FocusFailure, {}, {}, &frmMain::Update},
      {u"mnuRead", u"Can't read instrument data.", {}, Class::ReadInstrumentData},
      {u"mnuOPC", u"Can't wait for OPC.", {}, Class::WaitforOPC},
      {u"mnuGetStatus", u"Can't get instrument status.", {}, Class::QueryStatus},

      {u"mnuSCPI", u"Can't use SCPI protocol.", {}, {}, &frmMain::UseSCPI},
      {u"mnuDDC", u"Can't use SCPI protocol.", u"frmMain.mnuSCPI_Click", {}, &frmMain::UseOther},
      {u"mnuOptions", u"Can't open options dialog.", {}, Class::ConfigOptions},

      {u"mnuHelpTopics",
       u"Can't display help contents.",
       u"frmMain.mnuHelpContents_Click",
       {},
       &frmMain::ShowHelpTopics},
      {u"mnuHelpAbout", u"Can't display About box.", {}, {}, &frmMain::ShowAbout},

      {u"mnuPopupCMD", FocusFailure, {}, {}, &frmMain::Update},
      {u"mnuPopupCmdCut", u"Can't perform cut operation.", u"frmMain.mnuEditCut_Click", Class::Cut},
      {u"mnuPopupCmdCopy", u"Can't perform copy operation.", u"frmMain.mnuEditCopy_Click", Class::Copy},
      {u"mnuPopupCmdPaste",
       u"Can't perform paste operation.",
       u"frmMain.mnuEditPaste_Click",
       {},
       &frmMain::PasteIntoCommands},
      {u"mnuPopupCMDClearCommand",
       u"Can't clear commands.",
       u"mnuPopupCMDClearCommand_Click",
       {},
       &frmMain::ClearCommands},
      {u"mnuPopupCMDStep", u"Can't run an instruction.", {}, {}, &frmMain::DeferStep},
      {u"mnuPopupCMDRun", u"Can't run instructions.", {}, {}, &frmMain::DeferRun},
      {u"mnuPopupCMDRun2Cursor", u"Can't run instructions to cursor.", {}, {}, &frmMain::DeferRunToCursor},
      {u"mnuPopupCMDStop", u"Can't stop running instructions.", {}, {}, &frmMain::mnuStop_Click},

      {u"mnuPopupHistory", FocusFailure, {}, {}, &frmMain::Update},
      {u"mnuPopupHistoryCut", u"Can't perform cut operation.", u"frmMain.mnuEditCut_Click", Class::Cut},
      {u"mnuPopupHistoryCopy", u"Can't perform copy operation.", u"frmMain.mnuEditCopy_Click", Class::Copy},
      {u"mnuPopupHistoryPaste",
       u"Can't perform paste operation.",
       u"frmMain.mnuEditPaste_Click",
       {},
       &frmMain::PasteIntoCommands},
      {u"mnuPopupHistoryClearHistory", u"Can't clear history.", u"mnuClearHistory_Click", {}, &frmMain::ClearHistory},
  };
  return rows;
}

struct frmMain::ButtonRow {
  StringView Key;
  StringView Command = {};
  void (frmMain::*Action)() = nullptr;
  void (*Handler)(const String& cmdName, const Params& Parameters) = modAppGlobals::ExecutionEventHandler;
};

std::span<const frmMain::ButtonRow> frmMain::ButtonRows() {
  static constexpr ButtonRow rows[] = {
      {u"View Log", Class::ViewLogFile},
      {u"Logger", Class::ToggleLogFile},
      {u"Pause", Class::ToggleLogging},
      {u"Print", {}, &frmMain::mnuFilePrint_Click},
      {u"Cut", Class::Cut},
      {u"Copy", Class::Copy},
      {u"Paste", Class::Paste},
      {u"Copy to", Class::Copyto, nullptr, modAppGlobals::EventHandler},
      {u"Paste from", Class::Pastefrom, nullptr, modAppGlobals::EventHandler},
      {u"Step", {}, &frmMain::mnuStep_Click},
      {u"Run", {}, &frmMain::mnuRun_Click},
      {u"Run to Cursor", {}, &frmMain::mnuRunToCursor_Click},
      {u"Stop", {}, &frmMain::mnuStop_Click},
      {u"Read", Class::ReadInstrumentData},
  };
  return rows;
}

void frmMain::ConnectMenus() {
  for (const MenuRow& row : MenuRows()) {
    FindControl<IMenuItem>(*m_form, row.Item).Click().Connect([this, &row] { Click(row); });
  }
  FindControl<IToolBar>(*m_form, ToolBarName).ButtonClick().Connect([this](IToolButton& button) {
    tbToolBar_ButtonClick(button);
  });
  m_form->Events().KeyDown.Connect([this](std::int32_t code, std::int32_t shift) {
    if (code == F1Key && shift == 0) Click(u"mnuHelpTopics");
  });
}

void frmMain::Click(StringView item) { Click(*std::ranges::find(MenuRows(), item, &MenuRow::Item)); }

void frmMain::Click(const MenuRow& row) {
  const String label = row.Label.empty() ? String(u"frmMain.").append(row.Item).append(u"_Click") : String(row.Label);
  RunHandler(label, row.Failure, [&] {
    if (row.Action != nullptr) {
      (this->*row.Action)();
    } else {
      modAppGlobals::ExecutionEventHandler(String(row.Command), modGlobals::VarArray());
    }
  });
}

void frmMain::tbToolBar_ButtonClick(IToolButton& Button) {
  const String key(Button.Key());
  RunHandler(u"frmMain.tbToolBar_ButtonClick", u"Can't perform " + key + u" operation.", [&] {
    if (key == u"OpenInstrument") {
      if (Button.Value() == 1) {
        mnuFileOpenInstrument_Click();
      } else {
        mnuFileCloseInstrument_Click();
      }
      return;
    }
    const auto row = std::ranges::find(ButtonRows(), StringView(key), &ButtonRow::Key);
    if (row == ButtonRows().end()) return;
    if (row->Action != nullptr) {
      (this->*row->Action)();
    } else {
      row->Handler(String(row->Command), modGlobals::VarArray());
    }
  });
}

void frmMain::OpenInstrument() {
  m_gotFocus = false;
  modAppGlobals::ExecutionEventHandler(Class::OpenInstrument);
  // An open gives the focus to the command window, which updates the window, unless it has been there all along.
  const bool opened = gConfiguration->IsTrue(Item::InstrumentOpened);
  if (opened && !m_gotFocus) UpdateUI({}, {});
}

// The command writes to the server, of which the window hears nothing, and moves no focus.
void frmMain::CloseInstrument() {
  modAppGlobals::ExecutionEventHandler(Class::CloseInstrument);
  UpdateUI({}, {});
}

void frmMain::Print() { modAppGlobals::ExecutionEventHandler(Class::Print, gCommonDialog, m_txtPast); }
void frmMain::PrintSetup() { modAppGlobals::ExecutionEventHandler(Class::PrintSetup, gCommonDialog); }

void frmMain::Exit() { m_form->Close(); }

void frmMain::PasteIntoCommands() {
  m_txtFuture->SetFocus();
  modAppGlobals::ExecutionEventHandler(Class::Paste);
  m_txtFuture->SetFocus();
}

void frmMain::ClearHistory() { m_historyView->Clear(); }

void frmMain::ClearCommands() {
  m_commandView->Clear();
  ResetTypingFormat();
}

void frmMain::UseSCPI() { UseProtocol(ItemText::SCPI, false); }
void frmMain::UseOther() { UseProtocol(ItemText::Other, true); }

void frmMain::UseProtocol(StringView protocol, bool canRead) {
  HuntERR::Check(bool(gConfiguration), ErrorNumber::ObjectRequired, u"This operation requires a configuration client.");
  gConfiguration->ItemValue(Item::ProtocolName, protocol);
  UpdateUI({}, {});
  FindControl<IMenuItem>(*m_form, u"mnuRead").Enabled(canRead); // overrules the update, until the next one
}

void frmMain::mnuHelpSearchForHelpOn_Click() {
  RunHandler(u"frmMain.mnuHelpSearchForHelpOn_Click", u"Can't search for help on a topic.",
             [this] { m_help.Search(); });
}

void frmMain::ShowAbout() { portico::ShowAbout(m_form.Get()); }

void frmMain::mnuFileOpen_Click() {
  RunHandler(u"frmMain.mnuFileOpen_Click", u"Can't open file.", [] {
    FileDialogSettings settings;
    settings.DialogTitle = u"Open";
    settings.Filter = u"All Files (*.*)|*.*";
    gCommonDialog->ShowOpen(settings);
  });
}

} // namespace portico
