#include "ui/main/MainUpdate.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"
#include "framework/shared/IConfiguration.h"
#include "platform/IDesktop.h"
#include "platform/IEventLoop.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/ResourceStrings.h"
#include "ui/main/MainDesign.h"

#include <utility>

namespace portico {
namespace {

IMenuItem& Menu(IForm& form, StringView name) { return FindControl<IMenuItem>(form, name); }
IToolButton& Button(IForm& form, StringView key) { return FindControl<IToolBar>(form, ToolBarName).Buttons(key); }
IStatusPanel& Panel(IForm& form, std::int32_t index) {
  return FindControl<IStatusBar>(form, StatusBarName).Panels(index);
}

} // namespace

/// What an update reads once.
struct MainUpdate::State {
  bool Opened = gConfiguration->IsTrue(Item::InstrumentOpened);
  String Name = gConfiguration->ItemValue(Item::InstrumentName);
  String Protocol = gConfiguration->ItemValue(Item::ProtocolName);
  String LogFile = gConfiguration->ItemValue(Item::LogFileName);
  bool Logging = gConfiguration->IsOn(Item::Logging);
  bool ModeOff = gConfiguration->ItemValue(Item::RunningMode) == ItemText::Off;
  bool HasCommands;
};

MainUpdate::MainUpdate(IForm& form, const Ref<IRichTextControl>& txtFuture, const Ref<IRichTextControl>& txtPast,
                       Circumstances circumstances)
    : m_form(form),
      m_txtFuture(txtFuture),
      m_txtPast(txtPast),
      m_circumstances(std::move(circumstances)),
      m_status(Panel(form, 1)),
      m_protocol(Panel(form, 2)),
      mnuFileOpenInstrument(Menu(form, u"mnuFileOpenInstrument")),
      mnuFileCloseInstrument(Menu(form, u"mnuFileCloseInstrument")),
      mnuFileNewLog(Menu(form, u"mnuFileNewLog")),
      mnuFilePause(Menu(form, u"mnuFilePause")),
      mnuCloseLog(Menu(form, u"mnuCloseLog")),
      mnuFilePrint(Menu(form, u"mnuFilePrint")),
      mnuPasteFrom(Menu(form, u"mnuPasteFrom")),
      mnuRead(Menu(form, u"mnuRead")),
      mnuOPC(Menu(form, u"mnuOPC")),
      mnuGetStatus(Menu(form, u"mnuGetStatus")),
      mnuSCPI(Menu(form, u"mnuSCPI")),
      mnuDDC(Menu(form, u"mnuDDC")),
      m_openButton(Button(form, u"OpenInstrument")),
      m_loggerButton(Button(form, u"Logger")),
      m_pauseButton(Button(form, u"Pause")),
      m_readButton(Button(form, u"Read")),
      m_pause(form, {u"mnuFilePause"}, {u"Pause"}),
      m_cut(form, {u"mnuEditCut", u"mnuPopupCmdCut", u"mnuPopupHistoryCut"}, {u"Cut"}),
      m_copy(form, {u"mnuEditCopy", u"mnuPopupCmdCopy", u"mnuPopupHistoryCopy"}, {u"Copy"}),
      m_paste(form, {u"mnuEditPaste", u"mnuPopupCmdPaste", u"mnuPopupHistoryPaste"}, {u"Paste"}),
      m_pasteFrom(form, {u"mnuPasteFrom"}, {u"Paste from"}),
      m_copyTo(form, {u"mnuCopyTo"}),
      m_step(form, {u"mnuStep", u"mnuPopupCMDStep"}, {u"Step"}),
      m_run(form, {u"mnuRun", u"mnuPopupCMDRun"}, {u"Run"}),
      m_runToCursor(form, {u"mnuRunToCursor", u"mnuPopupCMDRun2Cursor"}, {u"Run to Cursor"}),
      m_stop(form, {u"mnuStop", u"mnuPopupCMDStop"}, {u"Stop"}) {}

void MainUpdate::Run() const {
  HuntERR::Check(bool(gConfiguration), ErrorNumber::ObjectRequired,
                 u"The configuration server is required for this operation, but it does not exist.");
  const State state{.HasCommands = m_txtFuture->TextLength() != 0};
  ShowInstrument(state);
  ShowPlaceholder(state);
  ShowProtocol(state);
  ShowLog(state);
  const auto* box = dynamic_cast<const IRichTextBox*>(gForms->ActiveControl());
  const bool hasSelection = box != nullptr && box->SelTextLength() > 0;
  const bool cmdFocus = box != nullptr && m_circumstances.CommandHasFocus();
  ShowEditGroup(hasSelection, cmdFocus);
  ShowRunGroup(state, cmdFocus);
  mnuFilePrint.Enabled(m_txtPast->TextLength() != 0);
  gEventLoop->DoEvents();
}

void MainUpdate::ShowInstrument(const State& state) const {
  m_status.ToolTipText(state.Opened ? state.Name + u" is the open instrument." : u"Please open an instrument.");
  m_status.Text(state.Opened ? state.Name + u" " : u"Open an instrument. ");
  mnuFileOpenInstrument.Enabled(!state.Opened);
  mnuFileCloseInstrument.Enabled(state.Opened);
  m_openButton.Value(state.Opened ? 1 : 0);
  m_openButton.ToolTipText(LoadResString(state.Opened ? 8015 : 8010));
  const bool canRead = state.Opened && state.Protocol == ItemText::Other;
  m_readButton.Visible(canRead);
  m_readButton.Enabled(canRead);
  if (canRead) m_readButton.ToolTipText(LoadResString(8160));
}

/// `TabStop` remembers whether an instrument was open at the last update.
void MainUpdate::ShowPlaceholder(const State& state) const {
  IRichTextControl& box = *m_txtFuture;
  const bool wasOpened = box.TabStop();
  const auto length = static_cast<std::size_t>(box.TextLength());
  if (!wasOpened && state.Opened && length == ClosedPlaceholder.size() && box.Text() == ClosedPlaceholder) {
    box.Text(OpenedPlaceholder);
    box.SelStart(box.TextLength());
  }
  if (wasOpened && !state.Opened) {
    if (box.Text() == ClosedPlaceholder) {
      box.SelStart(0); // as setting it would; that updates the window, which must come to an end
    } else {
      box.Text(ClosedPlaceholder);
    }
  }
  box.TabStop(state.Opened);
}

void MainUpdate::ShowProtocol(const State& state) const {
  // These go by the check marks of the last update.
  const bool wasSCPI = mnuSCPI.Checked();
  mnuRead.Enabled(!wasSCPI && state.Opened);
  mnuOPC.Enabled(wasSCPI && state.Opened);
  mnuGetStatus.Enabled(wasSCPI && state.Opened);
  m_protocol.Text(state.Protocol);
  mnuSCPI.Checked(state.Protocol == ItemText::SCPI);
  mnuDDC.Checked(state.Protocol == ItemText::Other);
}

void MainUpdate::ShowLog(const State& state) const {
  mnuFilePause.Caption(LoadResString(state.Logging ? 1005 : 1105));
  m_pauseButton.Value(state.Logging ? 0 : 1);
  m_pauseButton.ToolTipText(LoadResString(state.Logging ? 8040 : 8041));
  const bool hasLog = !state.LogFile.empty();
  m_form.Caption(hasLog ? state.LogFile + u" - " + ApplicationTitle : ApplicationTitle);
  mnuCloseLog.Enabled(hasLog);
  mnuFileNewLog.Enabled(!hasLog);
  m_loggerButton.Value(hasLog ? 1 : 0);
  m_loggerButton.ToolTipText(LoadResString(hasLog ? 8050 : 8020));
  m_pause.Enabled(hasLog);
}

void MainUpdate::ShowEditGroup(bool hasSelection, bool cmdFocus) const {
  m_cut.Enabled(hasSelection && cmdFocus);
  m_copy.Enabled(hasSelection);
  m_paste.Enabled(cmdFocus && !gClipboard->GetText().empty());
  m_pasteFrom.Enabled(cmdFocus);
  m_copyTo.Enabled(hasSelection);
}

void MainUpdate::ShowRunGroup(const State& state, bool cmdFocus) const {
  const bool isExecuting = m_circumstances.Executing();
  const bool canRun = !isExecuting && state.ModeOff && state.Opened && state.HasCommands;
  m_step.Enabled(canRun);
  m_run.Enabled(canRun);
  m_runToCursor.Enabled(canRun && cmdFocus);
  m_stop.Enabled(isExecuting && state.Opened);
}

} // namespace portico
