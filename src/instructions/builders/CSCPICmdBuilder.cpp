#include "instructions/builders/CSCPICmdBuilder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/builders/CCommCmdBuilder.h"
#include "instructions/builders/CNullCmdBuilder.h"
#include "instructions/builders/modBuilder.h"

#include <utility>

namespace portico {
namespace {

constexpr char16_t NotQuoted = u'\0';

/// Whether a question mark stands outside quotes. The other kind of quote inside quotes is text; behind a quote that is
/// not closed all is.
bool ContainsQuery(StringView text) {
  char16_t quote = NotQuoted;
  for (const char16_t unit : text) {
    if (quote == NotQuoted) {
      if (unit == u'?') return true;
      if (unit == u'\'' || unit == u'"') quote = unit;
    } else if (unit == quote) {
      quote = NotQuoted;
    }
  }
  return false;
}

} // namespace

CSCPICmdBuilder::CSCPICmdBuilder() try : m_readInstruction(modBuilder::Instruction(u"COMM", u"Read", {})) {
} catch (...) {
  FailConstruction(u"CSCPICmdBuilder.Class_Initialize");
}

Ref<ICommand> CSCPICmdBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) try {
  const String& function = Instruction->FunctionName();
  String data = modBuilder::LastValue(*Instruction->Params());
  Ref<ICommand> command = InnerCommand;
  if (ContainsQuery(data)) {
    const String mode = Create(Class::Configuration)->ItemValue(Item::AutoReadAfterQueryMode);
    if (mode != ItemText::On && mode != ItemText::Off) {
      HuntERR::Raise(ErrorNumber::OptionNotDefined, ClassName(),
                     u"Requested auto-read-after-query mode, " + mode + u" is not defined.");
    }
    const auto& reader = mode == ItemText::On ? Class::CommunicationCommandBuilder : Class::NullCommandBuilder;
    command = Create(reader)->Build(command, m_readInstruction);
  }
  // After the mode: an unknown function with a bad mode reports the mode.
  if (!EqualNoCase(function, u"SEND")) {
    HuntERR::Raise(ErrorNumber::Syntax, ClassName(), u"Syntax Error: Unrecognized SCPI function.");
  }
  const auto writer = Create(Class::CommunicationCommandBuilder);
  return writer->Build(command, modBuilder::Instruction(u"COMM", u"Write", std::move(data)));
} catch (...) {
  PassOn(u"CSCPICmdBuilder.IBuilder_Build(InnerCommand,Instruction)", {InnerCommand, Instruction});
}

const CreatorRow CtorSCPICmdBuilder = {
    .Name = u"CtorSCPICmdBuilder",
    .Specification = Class::SCPICommandBuilder,
    .ParamCount = Class::SCPICommandBuilder.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CSCPICmdBuilder>(); },
};

} // namespace portico
