#include "channel/ConfigurationCommands.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico {
namespace {

Ref<IConfigurationServer> Server() {
  HuntERR::Check(bool(gObjectFactory), ErrorNumber::MissingObject,
                 u"This command requires an object factory. There is none.");
  return CreateAs<IConfigurationServer>(Class::Configuration);
}

template <class Command>
Ref<IObject> Link(const Params& Parameters) {
  auto command = New<Command>();
  command->Initialize(Parameters[0].ToObject<ICommand>(), Parameters[1].ToString(),
                      Create(Class::CmdSubscriptionAgent));
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

const CreatorRow CtorGetConfigCmd = {
    .Name = u"CtorGetConfigCmd",
    .Specification = Class::GetConfigurationCommand,
    .ParamCount = Class::GetConfigurationCommand.ParamCount,
    .Make = Link<CGetConfigCmd>,
};

const CreatorRow CtorSetConfigCmd = {
    .Name = u"CtorSetConfigCmd",
    .Specification = Class::SetConfigurationCommand,
    .ParamCount = Class::SetConfigurationCommand.ParamCount,
    .Make = Link<CSetConfigCmd>,
};

} // namespace portico
