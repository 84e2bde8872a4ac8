#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

/// Maps a "CONFIG" function, in any case, to one configuration command. Kept for the contract: nothing in the program
/// sends a "CONFIG" instruction.
class CConfigCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"CConfigCmdBuilder"; }
  void Initialize() { m_initialized = true; }
  /// An unknown function raises `Syntax`, an instruction without parameters `BadSubscript`. Does not ask whether
  /// `Initialize` was called.
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;

private:
  bool m_initialized = false;
};

namespace Class {

inline constexpr ClassKey<IBuilder> ConfigurationCommandBuilder{u"ConfigurationCommandBuilder"};

} // namespace Class

extern const CreatorRow CtorConfigCmdBuilder;

} // namespace portico
