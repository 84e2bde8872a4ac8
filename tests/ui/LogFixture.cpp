#include "ui/LogFixture.h"

#include "document/log/CXMLDataStore.h"
#include "document/reports/ReportSubscribers.h"
#include "ui/commands/EditCommands.h"
#include "ui/commands/ErrorCommands.h"
#include "ui/commands/LogCommands.h"
#include "ui/commands/MergeCommands.h"
#include "ui/commands/NoteCommands.h"
#include "ui/commands/PictureCommands.h"
#include "ui/commands/PlotCommands.h"
#include "ui/commands/PrintCommands.h"
#include "ui/commands/ReadingCommands.h"
#include "views/CSCPIView.h"

namespace portico::test {

LogFixture::LogFixture() {
  gXMLParserAvailable = true;
  gMainForm = Main;
  gMainFormParts = Main;
  gScratchArea = Main;
  gCommonDialog = Dialog;
  for (const CreatorRow* row :
       {&CtorXMLDataStore, &CtorReportLogger, &CtorNewLogFile, &CtorToggleLogging, &CtorViewLogFile,
        &CtorSCPIView,     &CtorMerge,        &CtorMergeFrom,  &CtorCopy,          &CtorPrint,
        &CtorPrintSetup,   &CtorFind,         &CtorFindNext,   &CtorFindPrevious,  &CtorZoomIn,
        &CtorZoomOut,      &CtorActualSize,   &CtorNextError,  &CtorPreviousError, &CtorListErrors,
        &CtorSessionMarks, &CtorTimeStamps,   &CtorShowPlot,   &CtorShowPicture}) {
    gObjectFactory->Add(MakeCreator(*row));
  }
  Configuration->Items = {{u"LogFileName", u""}, {u"Logging", u"On"}};
  Main->Form().Show();
}

LogFixture::~LogFixture() {
  gMainForm = {};
  gMainFormParts = {};
  gScratchArea = {};
  Main = {};
  gCommonDialog = {};
}

std::string LogFixture::PathOf(const std::string& name) const { return Folder.At(name); }

String LogFixture::NameOf(const std::string& name) const { return FromUtf8(PathOf(name)).Text; }

std::string LogFixture::Read(const std::string& name) const { return Folder.Read(name); }

void LogFixture::Write(const std::string& name, const std::string& bytes) const { Folder.Write(name, bytes); }

std::size_t LogFixture::CountOf(const std::string& bytes, const std::string& what) {
  std::size_t count = 0;
  for (auto at = bytes.find(what); at != std::string::npos; at = bytes.find(what, at + 1)) ++count;
  return count;
}

void LogFixture::MakeLog(const std::string& name, std::initializer_list<StringView> texts, StringView type) const {
  const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf(name), true));
  store->OpenSession();
  for (StringView text : texts) store->AppendDataEntityToStore(Entity(text, type));
  store->CloseSession();
}

void LogFixture::Run(const String& specification) { modAppGlobals::ExecutionEventHandler(specification, {}); }

void LogFixture::Replace(const String& specification, const Ref<IObject>& product) {
  gObjectFactory->Substitue(New<CreatorOfOne>(specification, product));
}

} // namespace portico::test
