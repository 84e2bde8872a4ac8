#include "application/Startup.h"

#include "application/Registrars.h"
#include "channel/IChannel.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico::modAppGlobals {
namespace {

template <class Registrar>
void Register() {
  New<Registrar>()->RegisterClasses(gObjectFactory);
}

} // namespace

void Main(const Startup& startup) try {
  DetectXMLParser(startup.CreateXMLDocument);
  const auto [form, parts, scratchArea] = startup.CreateMainForm(CreateObjectFactory);
  gMainForm = form;
  gMainFormParts = parts;
  gScratchArea = scratchArea;
  form->Show();
  if (Trim(startup.CommandLine).empty()) return;
  auto configuration = Create(Class::Configuration);
  configuration->ItemValue(Item::InstrumentName, startup.CommandLine);
  configuration->Set(Item::OpenfromTree, true);
  configuration = nullptr;
  form->mnuFileOpenInstrument_Click();
} catch (...) {
  StopHere(u"modAppGlobals.Main()");
}

void DetectXMLParser(const std::function<void()>& createXMLDocument) try {
  createXMLDocument();
  gXMLParserAvailable = true;
} catch (const Quit&) {
  throw;
} catch (...) {
  gXMLParserAvailable = false;
}

void CreateObjectFactory() try {
  gObjectFactory = New<CObjectFactory>();
  HuntERR::Check(bool(gObjectFactory), ErrorNumber::CannotCarryOut, u"Failed to create object factory.");
  Register<CRegistrar>();
  Register<CDataEntityRegistrar>();
  Register<CConfigurationRegistrar>();
  Register<CSubscriptionAgentRegistrar>();
  Register<CDriverSessionRegistrar>();
  Register<CInstDirectorRegistrar>();
  Register<ViewAndDataRegistrar>();
} catch (...) {
  PassOn(u"modAppGlobals.CreateObjectFactory()");
}

void ReleaseObjectFactory() {
  gObjectFactory = nullptr;
  gChannel = nullptr;
}

void ReleaseMainForm() {
  gScratchArea = nullptr;
  gMainFormParts = nullptr;
  gMainForm = nullptr;
}

} // namespace portico::modAppGlobals
