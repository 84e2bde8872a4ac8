#include "instructions/builders/CNullCmdBuilder.h"

#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {

Ref<ICommand> CNullCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  CheckInitialized(m_initialized);
  return InnerCommand;
} catch (...) {
  PassOn(u"CNullCmdBuilder.IBuilder_Build(InnerCommand,Instruction)", {InnerCommand, Instruction});
}

const CreatorRow CtorNullCmdBuilder = {
    .Name = u"CtorNullCmdBuilder",
    .Specification = Class::NullCommandBuilder,
    .ParamCount = Class::NullCommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> {
      auto builder = New<CNullCmdBuilder>();
      builder->Initialize();
      return builder;
    },
};

} // namespace portico
