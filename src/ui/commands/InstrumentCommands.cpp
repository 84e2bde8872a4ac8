#include "ui/commands/InstrumentCommands.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/CInstGenerator.h"
#include "instructions/InstrumentAccess.h"
#include "ui/base/IMainFormParts.h"
#include "ui/dialogs/KnownInstruments.h"
#include "ui/dialogs/frmInstrumentDialog.h"

namespace portico {
namespace {

void WriteAndRead(const String& command) {
  const CInstGenerator generator;
  InstrumentAccess::Send(generator.ConstructXMLWriteCmdString(command));
  InstrumentAccess::Send(generator.ConstructXMLReadCmdString());
}

String AskForInstrument() {
  const auto dialog = MakeDialog<frmInstrumentDialog>(u"Failed to create instrument dialog box.");
  const auto window = gMainFormParts;
  dialog->ShowModal(&window->Form());
  const String name = dialog->InstrumentName();
  dialog->Hide();
  return name;
}

} // namespace

void COpenInstrument::Act() {
  const auto configuration = Create<IConfiguration>(u"Configuration", modGlobals::VarArray());
  const bool isNamed = Value(configuration->ItemValue(u"OpenfromTree")).ToBoolean();
  const String name = isNamed ? configuration->ItemValue(u"InstrumentName") : AskForInstrument();
  if (name.empty()) return;
  const auto termination = InstrumentAccess::Open(name);
  if (!termination) return;
  Tolerate([&] { KnownInstruments::Remember(name); });
  InstrumentAccess::SetTermination(*termination);
  gMainFormParts->txtFuture()->SetFocus(); // which is what makes the window look at the new state
}

void CCloseInstrument::Act() { InstrumentAccess::Close(); }

void CReadInstrumentData::Act() { InstrumentAccess::Send(CInstGenerator().ConstructXMLReadCmdString()); }

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
