#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

/// Maps a "COMM" function, in any case, to one channel command. An open wraps into a close first when an instrument
/// name is recorded in the configuration.
class CCommCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"CCommCmdBuilder"; }
  /// An unknown function raises `Syntax`.
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;
};

namespace Class {

inline constexpr ClassKey<IBuilder> CommunicationCommandBuilder{u"CommunicationCommandBuilder"};

} // namespace Class

extern const CreatorRow CtorCommCmdBuilder;

} // namespace portico
