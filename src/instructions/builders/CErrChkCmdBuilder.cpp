#include "instructions/builders/CErrChkCmdBuilder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/builders/CNullCmdBuilder.h"
#include "instructions/builders/CSCPICmdBuilder.h"
#include "instructions/builders/modBuilder.h"

namespace portico {

Ref<ICommand> CErrChkCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const String command = Create(Class::Configuration)->ItemValue(Item::ErrorCheckingCommand);
  const auto check = modBuilder::Instruction(u"SCPI", u"Send", command);
  return Create(Class::SCPICommandBuilder)->Build(InnerCommand, check);
} catch (...) {
  PassOn(String(ClassName()).append(u".IBuilder_Build(InnerCommand, Instruction)"), {InnerCommand, Instruction});
}

const CreatorRow CtorErrChkCmdBuilder = {
    .Name = u"CtorErrChkCmdBuilder",
    .Specification = Class::ErrorCheckingCommandBuilder,
    .ParamCount = Class::ErrorCheckingCommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> {
      const String mode = Create(Class::Configuration)->ItemValue(Item::AutoErrorCheckingMode);
      if (mode == ItemText::On) return New<CErrChkCmdBuilder>();
      if (mode == ItemText::Off) return Create(Class::NullCommandBuilder);
      HuntERR::Raise(ErrorNumber::OptionNotDefined, u"CtorErrChkCmdBuilder",
                     u"Requested auto-error checking mode, " + mode + u" is not defined.");
    },
};

} // namespace portico
