#include "ui/commands/InstrumentCommands.h"

#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/CInstGenerator.h"
#include "instructions/InstrumentAccess.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
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
  String name = dialog->InstrumentName();
  dialog->Hide();
  return name;
}

} // namespace

void COpenInstrument::Act() {
  const auto configuration = Create(Class::Configuration);
  const bool isNamed = configuration->IsTrue(Item::OpenfromTree);
  const String name = isNamed ? configuration->ItemValue(Item::InstrumentName) : AskForInstrument();
  if (name.empty()) return;
  const auto termination = InstrumentAccess::Open(name);
  if (!termination) return;
  Tolerate([&] { KnownInstruments::Remember(name); });
  InstrumentAccess::SetTermination(*termination);
  gMainFormParts->txtFuture()->SetFocus(); // which is what makes the window look at the new state
}

void CCloseInstrument::Act() { InstrumentAccess::Close(); }

void CReadInstrumentData::Act() { InstrumentAccess::Send(CInstGenerator().ConstructXMLReadCmdString()); }

void CQueryStatus::Act() { WriteAndRead(gConfiguration->ItemValue(Item::ErrorCheckingCommand)); }

void CWaitOPC::Act() { WriteAndRead(u"*OPC?"); }

const CreatorRow CtorOpenInstrument = {
    .Name = u"CtorOpenInstrument",
    .Specification = Class::OpenInstrument,
    .ParamCount = Class::OpenInstrument.ParamCount,
    .Make = MakePlainCommand<COpenInstrument>,
};

const CreatorRow CtorCloseInstrument = {
    .Name = u"CtorCloseInstrument",
    .Specification = Class::CloseInstrument,
    .ParamCount = Class::CloseInstrument.ParamCount,
    .Make = MakePlainCommand<CCloseInstrument>,
};

const CreatorRow CtorReadInstrumentData = {
    .Name = u"CtorReadInstrumentData",
    .Specification = Class::ReadInstrumentData,
    .ParamCount = Class::ReadInstrumentData.ParamCount,
    .Make = MakePlainCommand<CReadInstrumentData>,
};

const CreatorRow CtorQueryStatus = {
    .Name = u"CtorQueryStatus",
    .Specification = Class::QueryStatus,
    .ParamCount = Class::QueryStatus.ParamCount,
    .Make = MakePlainCommand<CQueryStatus>,
};

const CreatorRow CtorWaitOPC = {
    .Name = u"CtorWaitOPC",
    .Specification = Class::WaitforOPC,
    .ParamCount = Class::WaitforOPC.ParamCount,
    .Make = MakePlainCommand<CWaitOPC>,
};

} // namespace portico
