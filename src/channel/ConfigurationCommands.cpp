#include "channel/ConfigurationCommands.h"

#include "channel/Link.h"
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
    .Make = [](const Params& Parameters) { return Link<CGetConfigCmd>(Parameters, Parameters[1].ToString()); },
};

const CreatorRow CtorSetConfigCmd = {
    .Name = u"CtorSetConfigCmd",
    .Specification = Class::SetConfigurationCommand,
    .ParamCount = Class::SetConfigurationCommand.ParamCount,
    .Make = [](const Params& Parameters) { return Link<CSetConfigCmd>(Parameters, Parameters[1].ToString()); },
};

} // namespace portico
