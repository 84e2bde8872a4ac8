#include "instructions/builders/CErrChkCmdBuilder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/builders/modBuilder.h"

namespace portico {
namespace {

String Item(StringView name) {
  return Create<IConfiguration>(u"Configuration", modGlobals::VarArray())->ItemValue(name);
}

} // namespace

Ref<ICommand> CErrChkCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const auto check = modBuilder::Instruction(u"SCPI", u"Send", Item(u"ErrorCheckingCommand"));
  return Create<IBuilder>(u"SCPICommandBuilder", modGlobals::VarArray())->Build(InnerCommand, check);
} catch (...) {
  PassOn(String(ClassName()).append(u".IBuilder_Build(InnerCommand, Instruction)"), {InnerCommand, Instruction});
}

const CreatorRow CtorErrChkCmdBuilder = {
    u"CtorErrChkCmdBuilder", u"ErrorCheckingCommandBuilder", 0, [](const Params&) -> Ref<IObject> {
      const String mode = Item(u"AutoErrorCheckingMode");
      if (mode == u"On") return New<CErrChkCmdBuilder>();
      if (mode == u"Off") return Create<IBuilder>(u"NullCommandBuilder", modGlobals::VarArray());
      HuntERR::Raise(ErrorNumber::OptionNotDefined, u"CtorErrChkCmdBuilder",
                     u"Requested auto-error checking mode, " + mode + u" is not defined.");
    }};

} // namespace portico
