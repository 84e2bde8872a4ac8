#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "framework/shared/CInstContainer.h"
#include "framework/shared/ICommand.h"
#include "framework/shared/UserCommand.h"

namespace portico {

/// Hands one instruction to the instruction processor.
class CStep final : public UserCommand {
public:
  StringView ClassName() const override { return u"CStep"; }
  void Initialize(const Ref<CInstContainer>& Instruction);

private:
  /// A processor that declines raises `CannotCarryOut`.
  void Act() override;

  Ref<CInstContainer> m_instruction;
};

/// Ends the second engine's run: "RunningMode" becomes "Off". No configuration server raises `ObjectRequired`. Part of
/// the contract; the runner executes it only in such a run.
class CStop final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CStop"; }

private:
  void Act() override;
};

namespace Class {

/// The instruction.
inline constexpr ClassKey<ICommand, Ref<CInstContainer>> Step{u"Step"};
inline constexpr ClassKey<ICommand> Stop{u"Stop"};

} // namespace Class

extern const CreatorRow CtorStep;
extern const CreatorRow CtorStop;

} // namespace portico
