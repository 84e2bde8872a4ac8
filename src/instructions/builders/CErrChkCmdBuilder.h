#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

/// A question to the instrument's error queue behind the command and its read. The answer is shown like any other and
/// acted upon by nobody here.
class CErrChkCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"CErrChkCmdBuilder"; }
  /// An empty "ErrorCheckingCommand" is not refused: it becomes a write of the empty string.
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;
};

namespace Class {

/// The null builder when the item "AutoErrorCheckingMode" is "Off".
inline constexpr ClassKey<IBuilder> ErrorCheckingCommandBuilder{u"ErrorCheckingCommandBuilder"};

} // namespace Class

extern const CreatorRow CtorErrChkCmdBuilder;

} // namespace portico
