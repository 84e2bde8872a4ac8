#include "ui/LogCommands.h"

#include "document/ReportSubscribers.h"
#include "framework/Application.h"
#include "framework/IConfiguration.h"
#include "framework/IMainWindow.h"
#include "framework/modGlobals.h"
#include "platform/IDesktop.h"
#include "ui/IMainFormParts.h"
#include "ui/frmSelectFile.h"
#include "ui/frmViewLog.h"

namespace portico {
namespace {

constexpr StringView LogFileName = u"LogFileName";
constexpr StringView Logging = u"Logging";
constexpr StringView On = u"On";

/// The open dialog serves for new files as well.
constexpr std::int32_t OpenMode = 1;
constexpr std::int32_t LogFilter = 5;
constexpr std::int32_t LogOrAnyFilter = 4;

void CheckReady(bool initialized) { HuntERR::Check(initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize); }

Ref<IMainFormParts> MainForm() { return Cast<IMainFormParts>(gMainForm); }

Ref<frmSelectFile> MakeDialog() {
  auto dialog = New<frmSelectFile>();
  HuntERR::Check(bool(dialog), ErrorNumber::CannotCreate, u"Cannot create a select-file dialog.");
  return dialog;
}

bool MayErase(const String& name) {
  return gMessageBox->Show(u"Do you want to erase " + name + u"?", ApplicationTitle, MessageBoxButtons::YesNo) ==
         MessageBoxAnswer::Yes;
}

template <class Command>
Ref<IObject> Make(const Params&) {
  auto command = New<Command>();
  command->Initialize();
  return command;
}

} // namespace

void CNewLogFile::Execute() try {
  CheckReady(m_initialized);
  HuntERR::Check(bool(gConfiguration), ErrorNumber::ObjectRequired, u"This operation requires a configuration server.");
  if (gConfiguration->ItemValue(LogFileName).empty()) {
    OpenNewLogFile();
  } else {
    CloseLogFile();
  }
} catch (...) {
  PassOn(u"CNewLogFile.ICommand_Execute");
}

void CNewLogFile::OpenNewLogFile() try {
  const String name = MakeDialog()->SelectedFileName(OpenMode, u"Open a log file", LogFilter);
  if (name.empty()) return;
  const bool overWrite = modGlobals::FileExists(name) && MayErase(name);
  const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(name, overWrite));
  HuntERR::Check(bool(store), ErrorNumber::CannotCreate, u"Cannot create a log file.");
  gConfiguration->ItemValue(LogFileName, name);
  gConfiguration->ItemValue(Logging, On);
  store->OpenSession();
  MainForm()->Logger(Create<ISubscriber>(u"ReportLogger", modGlobals::VarArray(store)));
} catch (...) {
  PassOn(u"CNewLogFile.OpenNewLogFile");
}

void CNewLogFile::CloseLogFile() try {
  gConfiguration->ItemValue(Logging, On); // left ready for the next log
  gConfiguration->ItemValue(LogFileName, {});
  MainForm()->Logger({});
} catch (...) {
  PassOn(u"CCloseLogFile.CloseLogFile");
}

void CToggleLogging::Execute() try {
  CheckReady(m_initialized);
  const auto logger = Cast<CReportLogger>(MainForm()->Logger());
  HuntERR::Check(bool(logger), ErrorNumber::ObjectRequired, u"This operation requires an open logger.");
  if (logger->IsLogging()) {
    logger->DisableLogging();
  } else {
    logger->EnableLogging();
  }
} catch (...) {
  PassOn(u"CToggleLogging.ICommand_Execute");
}

void CViewLogFile::Execute() try {
  CheckReady(m_initialized);
  const auto dialog = MakeDialog();
  const auto viewer = New<frmViewLog>();
  HuntERR::Check(bool(viewer), ErrorNumber::CannotCreate, u"Cannot create a log file viewer.");
  const String name = dialog->SelectedFileName(OpenMode, u"Select a log file", LogOrAnyFilter);
  if (name.empty()) return;
  viewer->FileName(name);
  viewer->Show(&MainForm()->Form());
} catch (...) {
  PassOn(u"CViewLogFile.ICommand_Execute");
}

const CreatorRow CtorNewLogFile = {
    u"CtorNewLogFile", u"ToggleLogFile",          0,
    Make<CNewLogFile>, ErrorNumber::CannotCreate, u"Cannot create a new log file command."};

const CreatorRow CtorToggleLogging = {
    u"CtorToggleLogging", u"ToggleLogging",          0,
    Make<CToggleLogging>, ErrorNumber::CannotCreate, u"Cannot create a toggle logging command."};

const CreatorRow CtorViewLogFile = {u"CtorViewLogFile",
                                    u"ViewLogFile",
                                    0,
                                    Make<CViewLogFile>,
                                    ErrorNumber::CannotCreate,
                                    u"Cannot create a new log file command."};

} // namespace portico
