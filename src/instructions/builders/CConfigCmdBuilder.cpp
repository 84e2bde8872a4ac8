#include "instructions/builders/CConfigCmdBuilder.h"

#include "channel/ConfigurationCommands.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "instructions/builders/modBuilder.h"

namespace portico {

Ref<ICommand> CConfigCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const String function = ToUpper(Instruction->FunctionName());
  const StringArray values = modBuilder::LastValueFirst(*Instruction->Params());
  StringView specification;
  if (function == u"SET") {
    specification = Class::SetConfigurationCommand;
  } else if (function == u"GET") {
    specification = Class::GetConfigurationCommand;
  } else {
    HuntERR::Raise(ErrorNumber::Syntax, ClassName(), u"Syntax Error: Unrecognized command.");
  }
  const Params array(values.Elements().begin(), values.Elements().end());
  return Create<ICommand>(specification, modGlobals::VarArray(InnerCommand, array));
} catch (...) {
  PassOn(u"CCommCmdBuilder.IBuilder_Build(InnerCommand,Instruction)", {InnerCommand, Instruction});
}

const CreatorRow CtorConfigCmdBuilder = {
    .Name = u"CtorConfigCmdBuilder",
    .Specification = Class::ConfigurationCommandBuilder,
    .ParamCount = Class::ConfigurationCommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> {
      auto builder = New<CConfigCmdBuilder>();
      builder->Initialize();
      return builder;
    },
};

} // namespace portico
