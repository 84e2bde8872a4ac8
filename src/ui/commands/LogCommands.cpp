#include "ui/commands/LogCommands.h"

#include "document/reports/ReportSubscribers.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/Guards.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/FileQuestions.h"
#include "ui/viewer/frmViewLog.h"

namespace portico {

void CNewLogFile::Act() {
  CheckConfiguration();
  if (gConfiguration->ItemValue(Item::LogFileName).empty()) {
    OpenNewLogFile();
  } else {
    CloseLogFile();
  }
}

void CNewLogFile::OpenNewLogFile() try {
  const String name = AskForFile(u"Open a log file", NewLogFilters);
  if (name.empty()) return;
  const bool overWrite = modGlobals::FileExists(name) && AskToErase(name);
  const auto store = Create(Class::DataStore, name, overWrite);
  HuntERR::Check(bool(store), ErrorNumber::CannotCreate, u"Cannot create a log file.");
  gConfiguration->ItemValue(Item::LogFileName, name);
  gConfiguration->Set(Item::Logging, true);
  store->OpenSession();
  gMainFormParts->Logger(Create(Class::ReportLogger, store));
} catch (...) {
  PassOn(u"CNewLogFile.OpenNewLogFile");
}

void CNewLogFile::CloseLogFile() try {
  gConfiguration->Set(Item::Logging, true); // left ready for the next log
  gConfiguration->ItemValue(Item::LogFileName, {});
  gMainFormParts->Logger({});
} catch (...) {
  PassOn(u"CCloseLogFile.CloseLogFile");
}

void CToggleLogging::Act() {
  const auto logger = Cast<CReportLogger>(gMainFormParts->Logger());
  HuntERR::Check(bool(logger), ErrorNumber::ObjectRequired, u"This operation requires an open logger.");
  if (logger->IsLogging()) {
    logger->DisableLogging();
  } else {
    logger->EnableLogging();
  }
}

void CViewLogFile::Act() {
  const auto dialog = MakeSelectDialog();
  const auto viewer = frmViewLog::Make();
  HuntERR::Check(bool(viewer), ErrorNumber::CannotCreate, u"Cannot create a log file viewer.");
  const String name = dialog->SelectedFileName(SelectToOpen, u"Select a log file", ViewLogFilters);
  if (name.empty()) return;
  viewer->FileName(name);
  viewer->Show(&gMainFormParts->Form());
}

const CreatorRow CtorNewLogFile = {
    .Name = u"CtorNewLogFile",
    .Specification = Class::ToggleLogFile,
    .ParamCount = Class::ToggleLogFile.ParamCount,
    .Make = MakePlainCommand<CNewLogFile>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a new log file command.",
};

const CreatorRow CtorToggleLogging = {
    .Name = u"CtorToggleLogging",
    .Specification = Class::ToggleLogging,
    .ParamCount = Class::ToggleLogging.ParamCount,
    .Make = MakePlainCommand<CToggleLogging>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a toggle logging command.",
};

const CreatorRow CtorViewLogFile = {
    .Name = u"CtorViewLogFile",
    .Specification = Class::ViewLogFile,
    .ParamCount = Class::ViewLogFile.ParamCount,
    .Make = MakePlainCommand<CViewLogFile>,
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a new log file command.",
};

} // namespace portico
