#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/shared/CInstContainer.h"

#include <cstdint>

namespace portico {

/// Carries out instructions.
class IInstProcessor : public virtual IObject {
public:
  static constexpr std::int32_t Done = 0;
  static constexpr std::int32_t NotHandled = 1;

  /// `Done`, or `NotHandled` for an instruction of another kind. Returns when the instruction has been carried out.
  virtual std::int32_t Send(const Ref<CInstContainer>& Instruction) = 0;
};

/// A processor of one kind of instruction.
class IInstHandler : public virtual IObject {
public:
  /// The `CmdType` that this handler takes, in any case.
  virtual String Prefix() const = 0;
};

namespace Class {

/// The one processor that the rest of the system sees.
inline constexpr ClassKey<IInstProcessor> InstructionProcessor{u"InstructionProcessor"};

// The handlers, which it asks. Each also gives `IInstHandler`.
inline constexpr ClassKey<IInstProcessor> CommunicationInstructionHandler{u"CommunicationInstructionHandler"};
inline constexpr ClassKey<IInstProcessor> SCPIInstructionHandler{u"SCPIInstructionHandler"};
/// Kept for the contract: nothing in the program sends a "CONFIG" instruction.
inline constexpr ClassKey<IInstProcessor> ConfigurationInstructionHandler{u"ConfigurationInstructionHandler"};

} // namespace Class

} // namespace portico
