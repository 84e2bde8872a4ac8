#include "channel/ConfigurationCommands.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"

namespace portico {
namespace {

Ref<IConfigurationServer> Server() {
  HuntERR::Check(bool(gObjectFactory), ErrorNumber::MissingObject,
                 u"This command requires an object factory. There is none.");
  return Create<IConfigurationServer>(u"Configuration", modGlobals::VarArray());
}

template <class Command>
Ref<IObject> Link(const Params& Parameters) {
  auto command = New<Command>();
  command->Initialize(Parameters[0].ToObject<ICommand>(), Parameters[1].ToString(),
                      Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray()));
  return command;
}

} // namespace

void CGetConfigCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& Configuration,
                               const Ref<IPublisher>& Publisher) try {
  m_configuration = Configuration;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CGetConfigCmd.Initialize(InnerCommand, Configuration)", {InnerCommand, Configuration});
}

Ref<IResponse> CGetConfigCmd::Operate() { return Server()->Retrieve(m_configuration); }

void CSetConfigCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& Configuration,
                               const Ref<IPublisher>& Publisher) try {
  m_configuration = Configuration;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"COpenCmd.Initialize(InnerCommand, Configuration)", {InnerCommand, Configuration});
}

Ref<IResponse> CSetConfigCmd::Operate() { return Server()->Update(m_configuration); }

const CreatorRow CtorGetConfigCmd = {u"CtorGetConfigCmd", u"GetConfigurationCommand", 2, Link<CGetConfigCmd>};
const CreatorRow CtorSetConfigCmd = {u"CtorSetConfigCmd", u"SetConfigurationCommand", 2, Link<CSetConfigCmd>};

} // namespace portico
