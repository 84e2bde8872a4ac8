#include "instructions/CInstHandler.h"

#include "channel/CReport.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/Guards.h"
#include "framework/shared/ICommand.h"
#include "instructions/builders/CCommCmdBuilder.h"
#include "instructions/builders/CConfigCmdBuilder.h"
#include "instructions/builders/CErrChkCmdBuilder.h"
#include "instructions/builders/CSCPICmdBuilder.h"
#include "instructions/builders/PacingBuilders.h"

#include <initializer_list>

namespace portico {

void CInstHandler::Initialize(const String& InstructionPrefix, const StringArray& CommandBuilderSpecs) try {
  HuntERR::Check(!InstructionPrefix.empty(), ErrorNumber::InvalidArgument,
                 u"InstructionPrefix cannot be an empty string.");
  HuntERR::Check(CommandBuilderSpecs.IsAllocated(), ErrorNumber::InvalidArgument,
                 u"CommandBuilderSpecs cannot be an empty Array.");
  for (const String& specification : CommandBuilderSpecs.Elements()) {
    HuntERR::Check(!specification.empty(), ErrorNumber::InvalidArgument,
                   u"A CommandBuilderSpec cannot be an empty string.");
  }
  m_prefix = InstructionPrefix;
  m_reporter = m_prefix + u"InstructionProcessor";
  m_commandBuilderSpecs = CommandBuilderSpecs;
  m_builders.clear();
  for (const String& specification : m_commandBuilderSpecs.Elements()) m_builders.push_back({specification});
  m_initialized = true;
} catch (...) {
  PassOn(u"CInstHandler.Initialize");
}

String CInstHandler::Prefix() const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, PropertyNotValidBeforeInitialize);
  return m_prefix;
}

std::int32_t CInstHandler::Send(const Ref<CInstContainer>& Instruction) try {
  CheckInitialized(m_initialized);
  HuntERR::Check(!Instruction->FunctionName().empty(), ErrorNumber::MissingFunction,
                 u"Syntax error: Function call is missing from instruction.");
  if (!EqualNoCase(Instruction->CmdType(), m_prefix)) return NotHandled;

  Ref<ICommand> command; // from the innermost link outwards
  for (std::size_t i = m_builders.size(); i > 0; --i) {
    command = CreateByKey<IBuilder>(m_builders.at(i - 1))->Build(command, Instruction);
  }
  command->Execute();
  PublishReport(Instruction);
  return Done;
} catch (...) {
  PassOn(u"CSCPIInstHandler.IInstProcessor_Send(Instruction)", {Instruction}); // one label for all three handlers
}

void CInstHandler::PublishReport(const Ref<CInstContainer>& Instruction) const try {
  auto report = New<CReport>();
  HuntERR::Check(bool(report), ErrorNumber::CannotCreate, u"Cannot create an instruction-processing-complete report.");
  report->Initialize(m_reporter, Instruction, ErrorNumber::InstructionComplete, {}, {});
  Create(Class::CmdSubscriptionAgent)->Notify(report);
} catch (...) {
  StopHere(String(ClassName()).append(u".PublishReport()"));
}

namespace {

Ref<IObject> Handler(StringView prefix, std::initializer_list<StringView> builders) {
  StringArray specifications(builders.size());
  std::int32_t i = 0;
  for (const StringView builder : builders) specifications[i++] = builder;
  auto handler = New<CInstHandler>();
  handler->Initialize(String(prefix), specifications);
  return handler;
}

} // namespace

const CreatorRow CtorCOMMInstHandler = {
    .Name = u"CtorCOMMInstHandler",
    .Specification = Class::CommunicationInstructionHandler,
    .ParamCount = Class::CommunicationInstructionHandler.ParamCount,
    .Make = [](const Params&) { return Handler(u"COMM", {Class::CommunicationCommandBuilder}); },
};

const CreatorRow CtorSCPIInstHandler = {
    .Name = u"CtorSCPIInstHandler",
    .Specification = Class::SCPIInstructionHandler,
    .ParamCount = Class::SCPIInstructionHandler.ParamCount,
    .Make =
        [](const Params&) {
          return Handler(u"SCPI",
                         {Class::PacingCommandBuilder, Class::SCPICommandBuilder, Class::ErrorCheckingCommandBuilder});
        },
};

const CreatorRow CtorCONFIGInstHandler = {
    .Name = u"CtorCONFIGInstHandler",
    .Specification = Class::ConfigurationInstructionHandler,
    .ParamCount = Class::ConfigurationInstructionHandler.ParamCount,
    .Make = [](const Params&) { return Handler(u"CONFIG", {Class::ConfigurationCommandBuilder}); },
};

} // namespace portico
