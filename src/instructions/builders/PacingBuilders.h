#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "instructions/builders/IBuilder.h"

namespace portico {

// Pacing comes before the command that it belongs to: the OPC query, then the interval, then the command. Which of them
// is on is decided when a builder is created, once for each instruction.

/// The OPC query around the interval around the command.
class CPacingCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"CPacingCmdBuilder"; }
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;
};

/// A wait for what remains of the interval.
class CIntervalPcngCmdBldr final : public IBuilder {
public:
  StringView ClassName() const override { return u"CIntervalPcngCmdBldr"; }
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;
};

/// A write of "*OPC?" and, with auto-read on, its read, which blocks until the operation before has finished.
class COPCQueryCmdBuilder final : public IBuilder {
public:
  StringView ClassName() const override { return u"COPCQueryCmdBuilder"; }
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) override;
};

namespace Class {

inline constexpr ClassKey<IBuilder> PacingCommandBuilder{u"PacingCommandBuilder"};
/// The null builder when the item "IntervalPacing" is "Off".
inline constexpr ClassKey<IBuilder> IntervalPacingCommandBuilder{u"IntervalPacingCommandBuilder"};
/// The null builder when the item "OPCPacing" is "Off".
inline constexpr ClassKey<IBuilder> OPCQueryPacingCommandBuilder{u"OPCQueryPacingCommandBuilder"};

} // namespace Class

extern const CreatorRow CtorPacingCmdBuilder;
extern const CreatorRow CtorIntrvlPcngCmdBldr;
extern const CreatorRow CtorOPCQueryCmdBldr;

} // namespace portico
