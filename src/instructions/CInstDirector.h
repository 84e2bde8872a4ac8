#pragma once

#include "framework/objects/Creator.h"
#include "instructions/CInstProcessors.h"

namespace portico {

/// The one processor that the rest of the system sees. It offers each instruction to every handler.
class CInstDirector final : public IInstProcessor {
public:
  StringView ClassName() const override { return u"CInstDirector"; }

  /// A handler for a prefix that has one replaces it and takes the last place. An unset reference raises
  /// `MissingObject`, a processor that is no `IInstHandler` `TypeMismatch`.
  void RegisterHandler(const Ref<IInstProcessor>& Handler);
  /// An instruction that no handler takes raises `NoHandler`. If two match, both run it.
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override;

private:
  CInstProcessors m_handlers;
};

/// Makes `Class::InstructionProcessor`.
extern const CreatorRow CtorInstProcessor;

} // namespace portico
