#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

/// Adds nothing. Stands in for an option that is off.
class CNullCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"CNullCmdBuilder"; }
  void Initialize() { m_initialized = true; }
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;

private:
  bool m_initialized = true;
};

namespace Class {

inline constexpr ClassKey<IBuilder> NullCommandBuilder{u"NullCommandBuilder"};

} // namespace Class

extern const CreatorRow CtorNullCmdBuilder;

} // namespace portico
