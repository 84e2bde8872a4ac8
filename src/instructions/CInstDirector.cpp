#include "instructions/CInstDirector.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

void CInstDirector::RegisterHandler(const Ref<IInstProcessor>& Handler) try {
  HuntERR::Check(bool(Handler), ErrorNumber::MissingObject, u"Handler cannot be nothing.");
  const String prefix = Cast<IInstHandler>(Handler)->Prefix();
  if (m_handlers.Item(prefix)) m_handlers.Remove(prefix);
  m_handlers.Add(Handler, prefix);
} catch (...) {
  PassOn(u"CInstDirector.RegisterHandler(Handler)", {Handler});
}

std::int32_t CInstDirector::Send(const Ref<CInstContainer>& Instruction) try {
  std::int32_t result = NotHandled;
  for (std::size_t i = 1; i <= m_handlers.Count(); ++i) {
    if (m_handlers.At(i)->Send(Instruction) == Done) result = Done;
  }
  HuntERR::Check(result != NotHandled, ErrorNumber::NoHandler,
                 [&] { return u"This instruction processor cannot handle " + Instruction->CmdType() + u"."; });
  return result;
} catch (...) {
  PassOn(u"CInstDirector.IInstProcessor_Send(Instruction)", {Instruction});
}

const CreatorRow CtorInstProcessor = {
    .Name = u"CtorInstProcessor",
    .Specification = Class::InstructionProcessor,
    .ParamCount = Class::InstructionProcessor.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CInstDirector>(); },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Instruction processor object does not exist.",
    .Singleton = true,
};

} // namespace portico
