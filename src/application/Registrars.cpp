#include "application/Registrars.h"

#include "channel/CDriverSession.h"
#include "channel/CIntervalPacingCmd.h"
#include "channel/CIntervalTimer.h"
#include "channel/CReport.h"
#include "channel/ChannelCommands.h"
#include "channel/ConfigurationCommands.h"
#include "configuration/CConfiguration.h"
#include "document/entities/CDataEntity.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/CSelectionIterator.h"
#include "document/log/CMockTimeStampServer.h"
#include "document/log/CXMLDataStore.h"
#include "document/reports/ReportSubscribers.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "framework/objects/modGlobals.h"
#include "instructions/CInstDirector.h"
#include "instructions/CInstHandler.h"
#include "instructions/builders/CCommCmdBuilder.h"
#include "instructions/builders/CConfigCmdBuilder.h"
#include "instructions/builders/CErrChkCmdBuilder.h"
#include "instructions/builders/CNullCmdBuilder.h"
#include "instructions/builders/CSCPICmdBuilder.h"
#include "instructions/builders/PacingBuilders.h"
#include "ui/commands/AnswerCommands.h"
#include "ui/commands/CompletionCommands.h"
#include "ui/commands/DataCommands.h"
#include "ui/commands/DeviceCommands.h"
#include "ui/commands/EditCommands.h"
#include "ui/commands/ErrorCommands.h"
#include "ui/commands/InstrumentCommands.h"
#include "ui/commands/LogCommands.h"
#include "ui/commands/MergeCommands.h"
#include "ui/commands/NoteCommands.h"
#include "ui/commands/PictureCommands.h"
#include "ui/commands/PlotCommands.h"
#include "ui/commands/PrintCommands.h"
#include "ui/commands/ReadingCommands.h"
#include "ui/commands/RecallCommands.h"
#include "ui/commands/RepeatCommand.h"
#include "ui/commands/TimingCommand.h"
#include "ui/dialogs/frmTVSCPIOptions.h"
#include "views/CRun.h"
#include "views/CSCPIViewHistory.h"
#include "views/RunCommands.h"
#include "views/completion/KnownCommands.h"
#include "views/faults/RunGuard.h"
#include "views/recall/LineRecall.h"
#include "views/recall/SentLines.h"
#include "views/recall/TakenLines.h"

#include <array>

namespace portico {
namespace {

using Rows = std::span<const CreatorRow* const>;

void CheckGiven(const Ref<IObjectFactory>& factory) {
  HuntERR::Check(bool(factory), ErrorNumber::InvalidArgument, u"Object factory cannot be nothing.");
}

/// The communication handler, then SCPI, then configuration: the order in which they are offered an instruction.
void BuildInstructionProcessor(const Ref<IObjectFactory>& factory) {
  const auto make = [&](const ClassKey<IInstProcessor>& key) {
    return Cast<IInstProcessor>(factory->CreateObject(key.Specification, modGlobals::VarArray()));
  };
  const auto director = Cast<CInstDirector>(make(Class::InstructionProcessor));
  const auto communication = make(Class::CommunicationInstructionHandler);
  const auto scpi = make(Class::SCPIInstructionHandler);
  const auto configuration = make(Class::ConfigurationInstructionHandler);
  director->RegisterHandler(communication);
  director->RegisterHandler(scpi);
  director->RegisterHandler(configuration);
}

} // namespace

void CRegistrarBase::RegisterClasses(const Ref<IObjectFactory>& ObjectFactory) try {
  CheckGiven(ObjectFactory);
  for (const CreatorRow* row : Rows()) ObjectFactory->Add(MakeCreator(*row));
  AfterRegistration(ObjectFactory);
} catch (...) {
  PassOn(String(ClassName()).append(u".IRegistrar_RegisterClasses(ObjectFactory)"), {ObjectFactory});
}

void CRegistrarBase::UnregisterClasses(const Ref<IObjectFactory>& ObjectFactory) try {
  // The argument may be the global that is cleared on the way.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Ref<IObjectFactory> factory = ObjectFactory;
  CheckGiven(factory);
  BeforeRemoval(factory);
  for (const CreatorRow* row : Rows()) {
    if (!StaysBehind(*row)) factory->Remove(MakeCreator(*row));
  }
  AfterRemoval();
} catch (...) {
  PassOn(String(ClassName()).append(u".IRegistrar_UnregisterClasses(ObjectFactory)"), {ObjectFactory});
}

void CFactoryRegistrar::AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) { gObjectFactory = ObjectFactory; }
void CFactoryRegistrar::AfterRemoval() { gObjectFactory = nullptr; }

Rows CRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorOpenInstrument, &CtorCloseInstrument,
                                      &CtorPrintSetup,     &CtorPrint,
                                      &CtorCopy,           &CtorCopyTo,
                                      &CtorPaste,          &CtorPasteFrom,
                                      &CtorClearHistory,   &CtorConfigOptions,
                                      &CtorStep,           &CtorRun,
                                      &CtorStop,           &CtorReadInstrumentData,
                                      &CtorWaitOPC,        &CtorQueryStatus,
                                      &CtorSCPIView,       &CtorSCPIViewHistory,
                                      &CtorNewLogFile,     &CtorToggleLogging,
                                      &CtorViewLogFile,    &CtorReportDisplayer,
                                      &CtorReportLogger,   &CtorInstructionRunner,
                                      &CtorReport};
  return rows;
}

bool CRegistrar::StaysBehind(const CreatorRow& row) const { return &row == &CtorSCPIViewHistory; }

Rows CDataEntityRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorDataEntity,   &CtorDataFIFO,  &CtorDataPosition, &CtorIterator,
                                      &CtorXMLDataStore, &CtorMergeFrom, &CtorMerge};
  return rows;
}
void CDataEntityRegistrar::AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) {
  CFactoryRegistrar::AfterRegistration(ObjectFactory);
  gTimeStamper = New<CMockTimeStampServer>();
}
void CDataEntityRegistrar::AfterRemoval() {
  gTimeStamper = nullptr;
  CFactoryRegistrar::AfterRemoval();
}

Rows CConfigurationRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorConfiguration};
  return rows;
}

Rows CSubscriptionAgentRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorSubscriptionAgent};
  return rows;
}

Rows CDriverSessionRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorDriverSession};
  return rows;
}

Rows CInstDirectorRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorInstProcessor};
  return rows;
}
void CInstDirectorRegistrar::AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) {
  New<CCfgInstHndlrRegistrar>()->RegisterClasses(ObjectFactory);
  New<CCommInstHndlrRegistrar>()->RegisterClasses(ObjectFactory);
  New<CSCPIInstHndlrRegistrar>()->RegisterClasses(ObjectFactory);
  BuildInstructionProcessor(ObjectFactory);
}
void CInstDirectorRegistrar::BeforeRemoval(const Ref<IObjectFactory>& ObjectFactory) {
  New<CSCPIInstHndlrRegistrar>()->UnregisterClasses(ObjectFactory);
  New<CCommInstHndlrRegistrar>()->UnregisterClasses(ObjectFactory);
  New<CCfgInstHndlrRegistrar>()->UnregisterClasses(ObjectFactory);
}

Rows CCfgInstHndlrRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorCONFIGInstHandler, &CtorConfigCmdBuilder, &CtorSetConfigCmd,
                                      &CtorGetConfigCmd};
  return rows;
}

Rows CCommInstHndlrRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorCOMMInstHandler, &CtorCommCmdBuilder, &CtorSetAttribCmd, &CtorGetAttribCmd,
                                      &CtorCloseCmd,        &CtorOpenCmd,        &CtorReadCmd,      &CtorWriteCmd};
  return rows;
}
void CCommInstHndlrRegistrar::AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) {
  CFactoryRegistrar::AfterRegistration(ObjectFactory);
  gChannel = Create(Class::DriverSession);
}
void CCommInstHndlrRegistrar::AfterRemoval() {
  CFactoryRegistrar::AfterRemoval();
  gChannel = nullptr;
}

Rows CSCPIInstHndlrRegistrar::Rows() const {
  static constexpr std::array rows = {&CtorSCPIInstHandler, &CtorSCPICmdBuilder,    &CtorPacingCmdBuilder,
                                      &CtorOPCQueryCmdBldr, &CtorIntrvlPcngCmdBldr, &CtorIntervalPacingCmd,
                                      &CtorIntervalTimer,   &CtorErrChkCmdBuilder,  &CtorNullCmdBuilder};
  return rows;
}

Rows ViewAndDataRegistrar::Rows() const {
  static constexpr std::array rows = {
      &CtorFind,          &CtorFindNext,        &CtorFindPrevious,   &CtorZoomIn,         &CtorZoomOut,
      &CtorActualSize,    &CtorRunGuard,        &CtorStopAtErrors,   &CtorSetTimeout,     &CtorClearDevice,
      &CtorGoToLocal,     &CtorNextError,       &CtorPreviousError,  &CtorListErrors,     &CtorSentLines,
      &CtorLineRecall,    &CtorTakenLines,      &CtorEarlierLine,    &CtorLaterLine,      &CtorPutBackLastRun,
      &CtorKeepSentLines, &CtorForgetSentLines, &CtorSessionMarks,   &CtorTimeStamps,     &CtorRepeat,
      &CtorKnownCommands, &CtorComplete,        &CtorAskForCommands, &CtorShowPlot,       &CtorShowPicture,
      &CtorShowTimes,     &CtorSaveAnswer,      &CtorFetchAnswer,    &CtorSearchSentLines};
  return rows;
}

} // namespace portico
