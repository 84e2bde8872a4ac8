#include "ui/LogFixture.h"

#include "document/reports/ReportSubscribers.h"
#include "support/doubles/ReportDouble.h"
#include "ui/base/ShowFailure.h"
#include "ui/commands/LogCommands.h"
#include "ui/viewer/frmViewLog.h"

namespace portico::test {
namespace {

class LogCommandsTest : public LogFixture {
protected:
  LogCommandsTest() { Dialog->FileName = NameOf("run.log"); }

  static ErrorRecord Failure(const String& specification) {
    const auto command = Create<ICommand>(specification, modGlobals::VarArray());
    return Raised([&] { command->Execute(); });
  }
  std::string LogFileName() { return ToUtf8(Configuration->Items[u"LogFileName"]); }
  std::string Logging() { return ToUtf8(Configuration->Items[u"Logging"]); }
  void ExpectRow(const CreatorRow& row, StringView name, StringView specification, StringView text) const {
    EXPECT_EQ(row.Name, name);
    EXPECT_EQ(row.Specification, specification);
    EXPECT_EQ(row.ParamCount, 0U);
    EXPECT_EQ(row.FailureNumber, 31004);
    EXPECT_EQ(row.FailureText, text);
    EXPECT_FALSE(row.Singleton);
  }
};

using NewLogTest = LogCommandsTest;
using ToggleLoggingTest = LogCommandsTest;
using ViewLogFileTest = LogCommandsTest;

TEST_F(LogCommandsTest, AreMadeFromTheirSpecifications) {
  ExpectRow(CtorNewLogFile, u"CtorNewLogFile", u"ToggleLogFile", u"Cannot create a new log file command.");
  ExpectRow(CtorToggleLogging, u"CtorToggleLogging", u"ToggleLogging", u"Cannot create a toggle logging command.");
  ExpectRow(CtorViewLogFile, u"CtorViewLogFile", u"ViewLogFile", u"Cannot create a new log file command.");
  EXPECT_EQ(Create<ICommand>(u"ToggleLogFile", modGlobals::VarArray())->ClassName(), u"CNewLogFile");
  EXPECT_EQ(Create<ICommand>(u"ToggleLogging", modGlobals::VarArray())->ClassName(), u"CToggleLogging");
  EXPECT_EQ(Create<ICommand>(u"ViewLogFile", modGlobals::VarArray())->ClassName(), u"CViewLogFile");
}

TEST_F(LogCommandsTest, DoNothingBeforeTheyAreInitialized) {
  const auto check = [](ICommand& command, StringView label) {
    const ErrorRecord error = Raised([&] { command.Execute(); });
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
  };
  CNewLogFile newLog;
  check(newLog, u"CNewLogFile.ICommand_Execute");
  CToggleLogging toggle;
  check(toggle, u"CToggleLogging.ICommand_Execute");
  CViewLogFile view;
  check(view, u"CViewLogFile.ICommand_Execute");
}

TEST_F(NewLogTest, TheDialogCancelledChangesNothing) {
  Dialog->FileName = String();
  Run(u"ToggleLogFile");
  EXPECT_EQ(TakeWrites(), (List{"ShowOpen 'Open a log file'"}));
  EXPECT_EQ(LogFileName(), "");
  EXPECT_FALSE(bool(Main->Logger()));
  EXPECT_TRUE(std::filesystem::is_empty(Folder.Path()));
}

TEST_F(NewLogTest, AsksForALogWithTheDialogForOpening) {
  Run(u"ToggleLogFile");
  EXPECT_EQ(Calls.front(), "ShowOpen 'Open a log file'");
  EXPECT_EQ(Dialog->Shown.Filter, u"Log (*.log)|*.log");
  EXPECT_EQ(Dialog->Shown.DefaultExt, u".log");
}

TEST_F(NewLogTest, ANewNameIsMadeWithoutAQuestion) {
  Run(u"ToggleLogFile");
  EXPECT_EQ(TakeWrites(), (List{"ShowOpen 'Open a log file'", "LogFileName=" + PathOf("run.log"), "Logging=On"}));
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
  EXPECT_EQ(CountOf(Read("run.log"), "<Session "), 1U);
  EXPECT_TRUE(Cast<CReportLogger>(Main->Logger())->IsLogging());
}

TEST_F(NewLogTest, AnExistingFileIsAskedAbout) {
  MakeLog("run.log", {u"before\r\n"});
  Platform.MessageBox->Answer(MessageBoxAnswer::No);
  Run(u"ToggleLogFile");
  const memory::MessageBox::Call expected = {u"Do you want to erase " + NameOf("run.log") + u"?", u"Tolvane Portico",
                                             MessageBoxButtons::YesNo, MessageBoxIcon::None};
  EXPECT_EQ(Platform.MessageBox->Calls(), (std::vector{expected}));
}

TEST_F(NewLogTest, AnExistingFileWithNoKeepsItsSessionsAndGetsOneMore) {
  MakeLog("run.log", {u"before\r\n"});
  Platform.MessageBox->Answer(MessageBoxAnswer::No);
  Run(u"ToggleLogFile");
  const std::string log = Read("run.log");
  EXPECT_EQ(CountOf(log, "<Session "), 2U);
  EXPECT_EQ(CountOf(log, "<Instruction "), 1U);
  EXPECT_EQ(LogFileName(), PathOf("run.log"));
}

TEST_F(NewLogTest, AnExistingFileWithYesIsErased) {
  MakeLog("run.log", {u"before\r\n"});
  Platform.MessageBox->Answer(MessageBoxAnswer::Yes);
  Run(u"ToggleLogFile");
  const std::string log = Read("run.log");
  EXPECT_EQ(CountOf(log, "<Session "), 1U);
  EXPECT_EQ(CountOf(log, "<Instruction "), 0U);
}

TEST_F(NewLogTest, AnExistingFileThatIsNoLogWithNoIsRefused) {
  Write("run.log", "no log at all");
  Platform.MessageBox->Answer(MessageBoxAnswer::No);
  Platform.MessageBox->Answer(MessageBoxAnswer::OK);
  EXPECT_FALSE(RunHandler(u"frmMain.mnuFileNewLog_Click", u"Can't open new log file.", [] { Run(u"ToggleLogFile"); }));
  const String shown = Platform.MessageBox->Calls().back().Prompt;
  const String refusal = u"The file, " + NameOf("run.log") + u", is not a valid data store.";
  EXPECT_EQ(ToUtf8(shown.substr(0, shown.find(u" \r\n  Time="))), ToUtf8(u"Can't open new log file.\r\n" + refusal));
  EXPECT_EQ(LogFileName(), "");
  EXPECT_FALSE(bool(Main->Logger()));
  EXPECT_EQ(Read("run.log"), "no log at all");
}

TEST_F(NewLogTest, TheReportsOfCommandsReachTheLog) {
  Run(u"ToggleLogFile");
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray());
  agent->Notify(ReportOf(u"CReadCmd", u"1.5"));
  EXPECT_EQ(CountOf(Read("run.log"), "<Response "), 1U);
  Run(u"ToggleLogFile");
  agent->Notify(ReportOf(u"CReadCmd", u"2.5"));
  EXPECT_EQ(CountOf(Read("run.log"), "<Response "), 1U);
}

TEST_F(NewLogTest, ClosesTheLogThatIsOpen) {
  Run(u"ToggleLogFile");
  const std::weak_ptr<ISubscriber> logger = Main->Logger().Shared();
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 0U);
  TakeWrites();
  Run(u"ToggleLogFile");
  EXPECT_EQ(TakeWrites(), (List{"Logging=On", "LogFileName="}));
  EXPECT_FALSE(bool(Main->Logger()));
  EXPECT_TRUE(logger.expired());
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 1U);
}

TEST_F(NewLogTest, ClosingAfterAPauseLeavesLoggingOnAndTheLastSessionClosed) {
  Run(u"ToggleLogFile");
  Run(u"ToggleLogging");
  EXPECT_EQ(Logging(), "Off");
  const std::string paused = Read("run.log");
  Run(u"ToggleLogFile");
  EXPECT_EQ(Logging(), "On");
  EXPECT_EQ(LogFileName(), "");
  EXPECT_EQ(CountOf(paused, "SessionCloseTimeStamp="), 1U);
  EXPECT_EQ(Read("run.log"), paused);
}

TEST_F(NewLogTest, NeedsAConfigurationServer) {
  gConfiguration = {};
  const ErrorRecord error = Failure(u"ToggleLogFile");
  ExpectError(error, 424, u"This operation requires a configuration server.");
  ExpectTrail(error, {u"CNewLogFile.ICommand_Execute"});
}

TEST_F(NewLogTest, NeedsADialog) {
  gCommonDialog = {};
  const ErrorRecord error = Failure(u"ToggleLogFile");
  ExpectError(error, 31004, u"Cannot create a select-file dialog.");
  ExpectTrail(error, {u"CNewLogFile.OpenNewLogFile", u"CNewLogFile.ICommand_Execute"});
}

TEST_F(NewLogTest, NeedsAStore) {
  Replace(u"DataStore", {});
  const ErrorRecord error = Failure(u"ToggleLogFile");
  ExpectError(error, 31004, u"Cannot create a log file.");
  ExpectTrail(error, {u"CNewLogFile.OpenNewLogFile", u"CNewLogFile.ICommand_Execute"});
  EXPECT_EQ(LogFileName(), "");
}

/// A store that can be made, and in which no session can be opened.
class StoreWithoutSessions final : public IDataStore {
public:
  StringView ClassName() const override { return u"StoreWithoutSessions"; }
  Ref<IIteratableObject> FillDataContainerFromStore() override { return {}; }
  void AppendDataEntityToStore(const Ref<IDataEntity>&) override {}
  void OpenSession() override { HuntERR::Raise(ErrorNumber::FileAccess, ClassName(), u"The disk is full."); }
  void CloseSession() override {}
};

TEST_F(NewLogTest, ASessionThatCannotBeOpenedComesWhenTheNameIsSet) {
  Replace(u"DataStore", New<StoreWithoutSessions>());
  Configuration->Items[u"Logging"] = u"Off";
  const ErrorRecord error = Failure(u"ToggleLogFile");
  ExpectError(error, 75, u"The disk is full.");
  ExpectTrail(error, {u"CNewLogFile.OpenNewLogFile", u"CNewLogFile.ICommand_Execute"});
  EXPECT_EQ(TakeWrites(), (List{"ShowOpen 'Open a log file'", "LogFileName=" + PathOf("run.log"), "Logging=On"}));
  EXPECT_EQ(LogFileName(), PathOf("run.log"));
  EXPECT_EQ(Logging(), "On");
  EXPECT_FALSE(bool(Main->Logger()));
  Run(u"ToggleLogFile"); // which closes the log
  EXPECT_EQ(LogFileName(), "");
}

TEST_F(NewLogTest, AFailureToCloseBearsTheNameOfAnOlderClass) {
  Run(u"ToggleLogFile");
  Main->OnLogger = [] { HuntERR::Raise(ErrorNumber::InternalState, u"Window", u"Not now."); };
  const ErrorRecord error = Failure(u"ToggleLogFile");
  ExpectError(error, 51, u"Not now.");
  ExpectTrail(error, {u"CCloseLogFile.CloseLogFile", u"CNewLogFile.ICommand_Execute"});
}

TEST_F(ToggleLoggingTest, PausesAndResumes) {
  Run(u"ToggleLogFile");
  TakeWrites();
  Run(u"ToggleLogging");
  EXPECT_EQ(TakeWrites(), (List{"Logging=Off"}));
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 1U);
  EXPECT_EQ(LogFileName(), PathOf("run.log"));
  Run(u"ToggleLogging");
  EXPECT_EQ(TakeWrites(), (List{"Logging=On"}));
  EXPECT_EQ(CountOf(Read("run.log"), "<Session "), 2U);
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 1U);
}

TEST_F(ToggleLoggingTest, PauseWithNoLoggerIsRefused) {
  const ErrorRecord error = Failure(u"ToggleLogging");
  ExpectError(error, 424, u"This operation requires an open logger.");
  ExpectTrail(error, {u"CToggleLogging.ICommand_Execute"});
}

TEST_F(ViewLogFileTest, AsksForALogOrAnyOtherFile) {
  Dialog->FileName = String();
  Run(u"ViewLogFile");
  EXPECT_EQ(TakeWrites(), (List{"ShowOpen 'Select a log file'"}));
  EXPECT_EQ(Dialog->Shown.Filter, u"Log (*.log)|*.log|All (*.*)|*.*");
}

TEST_F(ViewLogFileTest, TheDialogCancelledShowsNothing) {
  Dialog->FileName = String();
  Run(u"ViewLogFile");
  EXPECT_EQ(gForms->Forms().size(), 1U);
}

TEST_F(ViewLogFileTest, ShowsTheLogInFrontOfTheMainWindowWithoutBlocking) {
  MakeLog("run.log", {u"1.5\r\n"});
  Run(u"ViewLogFile");
  const auto viewer = Platform.Screen->Find(u"frmViewLog");
  ASSERT_TRUE(bool(viewer));
  EXPECT_TRUE(viewer->IsShown());
  EXPECT_EQ(viewer->Owner(), &Main->Form());
  EXPECT_EQ(viewer->Caption(), u"Log Viewer - " + NameOf("run.log"));
}

TEST_F(ViewLogFileTest, EachExecutionHasAViewerOfItsOwn) {
  MakeLog("run.log", {u"1.5\r\n"});
  Run(u"ViewLogFile");
  Run(u"ViewLogFile");
  EXPECT_EQ(gForms->Forms().size(), 3U);
}

TEST_F(ViewLogFileTest, NeedsADialogBeforeAViewer) {
  gCommonDialog = {};
  gForms.reset();
  const ErrorRecord error = Failure(u"ViewLogFile");
  ExpectError(error, 31004, u"Cannot create a select-file dialog.");
  ExpectTrail(error, {u"CViewLogFile.ICommand_Execute"});
}

TEST_F(ViewLogFileTest, NeedsAViewerBeforeItAsks) {
  gForms.reset();
  const ErrorRecord error = Failure(u"ViewLogFile");
  ExpectError(error, 31004, u"Cannot create a log file viewer.");
  ExpectTrail(error, {u"CViewLogFile.ICommand_Execute"});
  EXPECT_EQ(TakeWrites(), List{});
}

} // namespace
} // namespace portico::test
