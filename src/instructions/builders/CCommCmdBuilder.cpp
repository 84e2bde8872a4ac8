#include "instructions/builders/CCommCmdBuilder.h"

#include "channel/ChannelCommands.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/builders/modBuilder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico {
namespace {

constexpr std::array<std::pair<StringView, StringView>, 6> Commands = {{
    {u"OPEN", Class::OpenCmd},
    {u"CLOSE", Class::CloseCmd},
    {u"SETATTRIBUTE", Class::SetAttribCmd},
    {u"GETATTRIBUTE", Class::GetAttribCmd},
    {u"READ", Class::ReadCmd},
    {u"WRITE", Class::WriteCmd},
}};

/// The values in their order, whatever their names are.
StringArray Values(const KeyedList<Value>& parameters) {
  if (parameters.Count() == 0) return {};
  StringArray values(parameters.Count());
  for (std::size_t i = 0; i < parameters.Count(); ++i) {
    values[static_cast<std::int32_t>(i)] = parameters.Item(i + 1).ToString();
  }
  return values;
}

bool IsInstrumentRecordedAsOpen() {
  const auto configuration = Create(Class::Configuration);
  return !configuration->ItemValue(Item::InstrumentName).empty();
}

} // namespace

Ref<ICommand> CCommCmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const StringArray values = Values(*Instruction->Params());
  const String function = ToUpper(Instruction->FunctionName());
  const auto* found =
      std::find_if(Commands.begin(), Commands.end(), [&](const auto& command) { return command.first == function; });
  if (found == Commands.end()) {
    HuntERR::Raise(ErrorNumber::Syntax, ClassName(), u"Syntax Error: Unrecognized command.");
  }
  const StringView specification = found->second;
  auto command = Create<ICommand>(specification, modBuilder::BuildCommandParams(InnerCommand, values));
  if (specification == Class::OpenCmd.Specification && IsInstrumentRecordedAsOpen()) {
    command = Create(Class::CloseCmd, command);
  }
  return command;
} catch (...) {
  PassOn(u"CCommCmdBuilder.IBuilder_Build(InnerCommand,Instruction)", {InnerCommand, Instruction});
}

const CreatorRow CtorCommCmdBuilder = {
    .Name = u"CtorCommCmdBuilder",
    .Specification = Class::CommunicationCommandBuilder,
    .ParamCount = Class::CommunicationCommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CCommCmdBuilder>(); },
};

} // namespace portico
