#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

/// Turns a "SCPI" line into a write, followed by a read when the line is a query and auto-read is on. A line is a query
/// exactly when it has a question mark outside quotes.
class CSCPICmdBuilder final : public IBuilder {
public:
  CSCPICmdBuilder();

  StringView ClassName() const override { return u"CSCPICmdBuilder"; }
  /// An instruction without parameters raises `BadSubscript`, an auto-read mode other than "On" and "Off"
  /// `OptionNotDefined`, a function other than "Send" (in any case) `Syntax`.
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;

private:
  Ref<CInstContainer> m_readInstruction;
};

namespace Class {

inline constexpr ClassKey<IBuilder> SCPICommandBuilder{u"SCPICommandBuilder"};

} // namespace Class

extern const CreatorRow CtorSCPICmdBuilder;

} // namespace portico
