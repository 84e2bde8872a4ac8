#include "ui/commands/InstrumentCommands.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/CInstGenerator.h"
#include "instructions/IInstProcessor.h"
#include "ui/base/CommandSupport.h"
#include "ui/dialogs/KnownInstruments.h"
#include "ui/dialogs/frmInstrumentDialog.h"

namespace portico {
namespace {

constexpr StringView InstrumentNameItem = u"InstrumentName";
constexpr StringView InstrumentOpenedItem = u"InstrumentOpened";
constexpr StringView OpenfromTreeItem = u"OpenfromTree";
constexpr StringView TermCharItem = u"TERMCHAR";

/// The server: what is written to it tells the main window nothing.
Ref<IConfiguration> Server() { return Create<IConfiguration>(u"Configuration", modGlobals::VarArray()); }

bool IsTrue(const Ref<IConfiguration>& configuration, StringView item) {
  return Value(configuration->ItemValue(item)).ToBoolean();
}

void Send(const Ref<CInstContainer>& instruction) {
  const auto processor = Create<IInstProcessor>(u"InstructionProcessor", modGlobals::VarArray());
  HuntERR::Check(processor->Send(instruction) == IInstProcessor::Done, ErrorNumber::CannotCarryOut,
                 u"Instruction was not handled.");
}

void WriteAndRead(const String& command) {
  const CInstGenerator generator;
  Send(generator.ConstructXMLWriteCmdString(command));
  Send(generator.ConstructXMLReadCmdString());
}

String AskForInstrument() {
  const auto dialog = MakeDialog<frmInstrumentDialog>(u"Failed to create instrument dialog box.");
  const auto window = MainFormParts();
  dialog->ShowModal(&window->Form());
  const String name = dialog->InstrumentName();
  dialog->Hide();
  return name;
}

} // namespace

void COpenInstrument::Act() {
  const auto configuration = Server();
  const String name =
      IsTrue(configuration, OpenfromTreeItem) ? configuration->ItemValue(InstrumentNameItem) : AskForInstrument();
  if (name.empty()) return;
  const CInstGenerator generator;
  Send(generator.ConstructXMLOpenCmdString(name));
  configuration->ItemValue(InstrumentNameItem, name);
  const String termination = configuration->ItemValue(TermCharItem);
  if (!IsTrue(configuration, InstrumentOpenedItem)) return;
  Tolerate([&] { KnownInstruments::Remember(name); });
  Send(generator.ConstructXMLSetAttribCmdString(String(TermCharItem), termination));
  MainFormParts()->txtFuture()->SetFocus(); // which is what makes the window look at the new state
}

void CCloseInstrument::Act() {
  Send(CInstGenerator().ConstructXMLCloseCmdString());
  const auto configuration = Server();
  configuration->ItemValue(InstrumentNameItem, u"");
  configuration->ItemValue(InstrumentOpenedItem, u"False");
  configuration->ItemValue(OpenfromTreeItem, u"False");
}

void CReadInstrumentData::Act() { Send(CInstGenerator().ConstructXMLReadCmdString()); }

void CQueryStatus::Act() { WriteAndRead(gConfiguration->ItemValue(u"ErrorCheckingCommand")); }

void CWaitOPC::Act() { WriteAndRead(u"*OPC?"); }

const CreatorRow CtorOpenInstrument = {u"CtorOpenInstrument", u"OpenInstrument", 0, MakePlainCommand<COpenInstrument>};
const CreatorRow CtorCloseInstrument = {u"CtorCloseInstrument", u"CloseInstrument", 0,
                                        MakePlainCommand<CCloseInstrument>};
const CreatorRow CtorReadInstrumentData = {u"CtorReadInstrumentData", u"ReadInstrumentData", 0,
                                           MakePlainCommand<CReadInstrumentData>};
const CreatorRow CtorQueryStatus = {u"CtorQueryStatus", u"QueryStatus", 0, MakePlainCommand<CQueryStatus>};
const CreatorRow CtorWaitOPC = {u"CtorWaitOPC", u"WaitforOPC", 0, MakePlainCommand<CWaitOPC>};

} // namespace portico
