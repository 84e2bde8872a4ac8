#include "instructions/builders/PacingBuilders.h"

#include "channel/CIntervalPacingCmd.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/builders/CNullCmdBuilder.h"
#include "instructions/builders/CSCPICmdBuilder.h"
#include "instructions/builders/modBuilder.h"

namespace portico {
namespace {

constexpr StringView BuildLabel = u".IBuilder_Build(InnerCommand, Instruction)";

/// The builder of an option, or the null builder when it is off. Anything but "On" and "Off" raises `InternalState`;
/// the text names the OPC pacing for either option.
template <class Builder>
Ref<IObject> Switched(const ItemKey<ItemType::Switch>& item, StringView creator) {
  const String state = Create(Class::Configuration)->ItemValue(item);
  if (state == ItemText::On) return New<Builder>();
  if (state == ItemText::Off) return Create(Class::NullCommandBuilder);
  HuntERR::Raise(ErrorNumber::InternalState, creator, u"OPCPacing is misconfigured.");
}

} // namespace

Ref<ICommand> CPacingCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const auto interval = Create(Class::IntervalPacingCommandBuilder);
  const Ref<ICommand> command = interval->Build(InnerCommand, Instruction);
  const auto query = Create(Class::OPCQueryPacingCommandBuilder);
  return query->Build(command, Instruction);
} catch (...) {
  PassOn(String(ClassName()).append(BuildLabel), {InnerCommand, Instruction});
}

Ref<ICommand> CIntervalPcngCmdBldr::Build(const Ref<ICommand>& InnerCommand,
                                          const Ref<CInstContainer>& Instruction) try {
  return Create(Class::IntervalPacingCommand, InnerCommand);
} catch (...) {
  PassOn(String(ClassName()).append(BuildLabel), {InnerCommand, Instruction});
}

Ref<ICommand> COPCQueryCmdBuilder::Build(const Ref<ICommand>& InnerCommand,
                                         const Ref<CInstContainer>& Instruction) try {
  const auto builder = Create(Class::SCPICommandBuilder);
  return builder->Build(InnerCommand, modBuilder::Instruction(u"SCPI", u"Send", u"*OPC?"));
} catch (...) {
  PassOn(String(ClassName()).append(BuildLabel), {InnerCommand, Instruction});
}

const CreatorRow CtorPacingCmdBuilder = {
    .Name = u"CtorPacingCmdBuilder",
    .Specification = Class::PacingCommandBuilder,
    .ParamCount = Class::PacingCommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CPacingCmdBuilder>(); },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a pacing command builder.",
};

const CreatorRow CtorIntrvlPcngCmdBldr = {
    .Name = u"CtorIntrvlPcngCmdBldr",
    .Specification = Class::IntervalPacingCommandBuilder,
    .ParamCount = Class::IntervalPacingCommandBuilder.ParamCount,
    .Make =
        [](const Params&) { return Switched<CIntervalPcngCmdBldr>(Item::IntervalPacing, u"CtorIntrvlPcngCmdBldr"); },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create an interval pacing command builder.",
};

const CreatorRow CtorOPCQueryCmdBldr = {
    .Name = u"CtorOPCQueryCmdBldr",
    .Specification = Class::OPCQueryPacingCommandBuilder,
    .ParamCount = Class::OPCQueryPacingCommandBuilder.ParamCount,
    .Make = [](const Params&) { return Switched<COPCQueryCmdBuilder>(Item::OPCPacing, u"CtorOPCQueryCmdBldr"); },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create an OPC pacing command builder.",
};

} // namespace portico
