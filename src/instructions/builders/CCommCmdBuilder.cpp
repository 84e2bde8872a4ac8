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

/// Those that are asked for most come first.
constexpr std::array<std::pair<StringView, const CreatorKey*>, 6> Commands = {{
    {u"WRITE", &Class::WriteCmd},
    {u"READ", &Class::ReadCmd},
    {u"OPEN", &Class::OpenCmd},
    {u"CLOSE", &Class::CloseCmd},
    {u"SETATTRIBUTE", &Class::SetAttribCmd},
    {u"GETATTRIBUTE", &Class::GetAttribCmd},
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
  StringArray values = Values(*Instruction->Params());
  const String& function = Instruction->FunctionName();
  const auto* found = std::find_if(Commands.begin(), Commands.end(),
                                   [&](const auto& command) { return EqualNoCase(command.first, function); });
  if (found == Commands.end()) {
    HuntERR::Raise(ErrorNumber::Syntax, ClassName(), u"Syntax Error: Unrecognized command.");
  }
  const CreatorKey& key = *found->second;
  auto command = CreateByKey<ICommand>(key, modBuilder::BuildCommandParams(InnerCommand, std::move(values)));
  if (&key == &Class::OpenCmd && IsInstrumentRecordedAsOpen()) {
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
