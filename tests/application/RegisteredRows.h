#pragma once

#include "framework/text/text.h"

#include <array>
#include <cstddef>

namespace portico::test {

struct RegisteredRow {
  StringView Registrar;
  StringView Creator;
  StringView Specification;
  std::size_t ParamCount;
};

/// Every creator of the program, in the order in which the factory holds them.
inline constexpr std::array RegisteredRows = {
    RegisteredRow{u"CRegistrar", u"CtorOpenInstrument", u"OpenInstrument", 0},
    RegisteredRow{u"CRegistrar", u"CtorCloseInstrument", u"CloseInstrument", 0},
    RegisteredRow{u"CRegistrar", u"CtorPrintSetup", u"PrintSetup", 1},
    RegisteredRow{u"CRegistrar", u"CtorPrint", u"Print", 2},
    RegisteredRow{u"CRegistrar", u"CtorCopy", u"Copy", 0},
    RegisteredRow{u"CRegistrar", u"CtorCopyTo", u"Copyto", 0},
    RegisteredRow{u"CRegistrar", u"CtorPaste", u"Paste", 0},
    RegisteredRow{u"CRegistrar", u"CtorPasteFrom", u"Pastefrom", 0},
    RegisteredRow{u"CRegistrar", u"CtorClearHistory", u"ClearHistory", 0},
    RegisteredRow{u"CRegistrar", u"CtorConfigOptions", u"ConfigOptions", 0},
    RegisteredRow{u"CRegistrar", u"CtorStep", u"Step", 1},
    RegisteredRow{u"CRegistrar", u"CtorRun", u"Run", 2},
    RegisteredRow{u"CRegistrar", u"CtorStop", u"Stop", 0},
    RegisteredRow{u"CRegistrar", u"CtorReadInstrumentData", u"ReadInstrumentData", 0},
    RegisteredRow{u"CRegistrar", u"CtorWaitOPC", u"WaitforOPC", 0},
    RegisteredRow{u"CRegistrar", u"CtorQueryStatus", u"QueryStatus", 0},
    RegisteredRow{u"CRegistrar", u"CtorSCPIView", u"SCPIView", 1},
    RegisteredRow{u"CRegistrar", u"CtorSCPIViewHistory", u"SCPIViewHistory", 1},
    RegisteredRow{u"CRegistrar", u"CtorNewLogFile", u"ToggleLogFile", 0},
    RegisteredRow{u"CRegistrar", u"CtorToggleLogging", u"ToggleLogging", 0},
    RegisteredRow{u"CRegistrar", u"CtorViewLogFile", u"ViewLogFile", 0},
    RegisteredRow{u"CRegistrar", u"CtorReportDisplayer", u"ReportDisplayer", 1},
    RegisteredRow{u"CRegistrar", u"CtorReportLogger", u"ReportLogger", 1},
    RegisteredRow{u"CRegistrar", u"CtorInstructionRunner", u"InstructionRunner", 1},
    RegisteredRow{u"CRegistrar", u"CtorReport", u"Report", 5},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorDataEntity", u"DataEntity", 3},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorDataFIFO", u"DataContainer", 1},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorDataPosition", u"DataPosition", 2},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorIterator", u"SelectionIterator", 1},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorXMLDataStore", u"DataStore", 2},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorMergeFrom", u"MergeDataContainerFromFile", 3},
    RegisteredRow{u"CDataEntityRegistrar", u"CtorMerge", u"MergeDataContainer", 2},
    RegisteredRow{u"CConfigurationRegistrar", u"CtorConfiguration", u"Configuration", 0},
    RegisteredRow{u"CSubscriptionAgentRegistrar", u"CtorSubscriptionAgent", u"CmdSubscriptionAgent", 0},
    RegisteredRow{u"CDriverSessionRegistrar", u"CtorDriverSession", u"DriverSession", 0},
    RegisteredRow{u"CInstDirectorRegistrar", u"CtorInstProcessor", u"InstructionProcessor", 0},
    RegisteredRow{u"CCfgInstHndlrRegistrar", u"CtorCONFIGInstHandler", u"ConfigurationInstructionHandler", 0},
    RegisteredRow{u"CCfgInstHndlrRegistrar", u"CtorConfigCmdBuilder", u"ConfigurationCommandBuilder", 0},
    RegisteredRow{u"CCfgInstHndlrRegistrar", u"CtorSetConfigCmd", u"SetConfigurationCommand", 2},
    RegisteredRow{u"CCfgInstHndlrRegistrar", u"CtorGetConfigCmd", u"GetConfigurationCommand", 2},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorCOMMInstHandler", u"CommunicationInstructionHandler", 0},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorCommCmdBuilder", u"CommunicationCommandBuilder", 0},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorSetAttribCmd", u"SetAttribCmd", 3},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorGetAttribCmd", u"GetAttribCmd", 2},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorCloseCmd", u"CloseCmd", 1},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorOpenCmd", u"OpenCmd", 2},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorReadCmd", u"ReadCmd", 2},
    RegisteredRow{u"CCommInstHndlrRegistrar", u"CtorWriteCmd", u"WriteCmd", 2},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorSCPIInstHandler", u"SCPIInstructionHandler", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorSCPICmdBuilder", u"SCPICommandBuilder", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorPacingCmdBuilder", u"PacingCommandBuilder", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorOPCQueryCmdBldr", u"OPCQueryPacingCommandBuilder", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorIntrvlPcngCmdBldr", u"IntervalPacingCommandBuilder", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorIntervalPacingCmd", u"IntervalPacingCommand", 1},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorIntervalTimer", u"IntervalTimer", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorErrChkCmdBuilder", u"ErrorCheckingCommandBuilder", 0},
    RegisteredRow{u"CSCPIInstHndlrRegistrar", u"CtorNullCmdBuilder", u"NullCommandBuilder", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorFind", u"Find", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorFindNext", u"FindNext", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorFindPrevious", u"FindPrevious", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorZoomIn", u"ZoomIn", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorZoomOut", u"ZoomOut", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorActualSize", u"ActualSize", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorRunGuard", u"RunGuard", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorStopAtErrors", u"StopAtErrors", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorSetTimeout", u"SetTimeout", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorClearDevice", u"ClearDevice", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorGoToLocal", u"GoToLocal", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorNextError", u"NextError", 2},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorPreviousError", u"PreviousError", 2},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorListErrors", u"ListErrors", 2},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorSentLines", u"SentLines", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorLineRecall", u"LineRecall", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorTakenLines", u"TakenLines", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorEarlierLine", u"EarlierLine", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorLaterLine", u"LaterLine", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorPutBackLastRun", u"PutBackLastRun", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorKeepSentLines", u"KeepSentLines", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorForgetSentLines", u"ForgetSentLines", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorSessionMarks", u"SessionMarks", 1},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorTimeStamps", u"TimeStamps", 1},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorRepeat", u"Repeat", 1},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorKnownCommands", u"KnownCommands", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorComplete", u"Complete", 1},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorAskForCommands", u"AskForCommands", 0},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorShowPlot", u"ShowPlot", 2},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorShowPicture", u"ShowPicture", 2},
    RegisteredRow{u"ViewAndDataRegistrar", u"CtorShowTimes", u"ShowTimes", 0},
};

} // namespace portico::test
