#pragma once

#include "framework/objects/Creator.h"
#include "instructions/IInstProcessor.h"
#include "instructions/builders/StringArray.h"

#include <vector>

namespace portico {

/// Carries out the instructions of one type: its builders assemble a chain of commands, the chain runs, and the end is
/// announced with a report of code `InstructionComplete`.
///
/// Builders are made anew for each instruction, so that a change of settings takes effect at the next one.
class CInstHandler final : public IInstHandler, public IInstProcessor {
public:
  StringView ClassName() const override { return u"CInstHandler"; }

  /// Builder specifications, outermost first. An empty prefix, a list that does not exist or an empty specification
  /// raises `InvalidArgument`.
  void Initialize(const String& InstructionPrefix, const StringArray& CommandBuilderSpecs);

  /// Raises `NotInitialized` before `Initialize`.
  String Prefix() const override;
  /// Raises `NotInitialized` before `Initialize`. An instruction without a function name raises `MissingFunction`,
  /// whatever its type.
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override;

private:
  void PublishReport(const Ref<CInstContainer>& Instruction) const;

  String m_prefix;
  StringArray m_commandBuilderSpecs;
  std::vector<CreatorKey> m_builders; // of these specifications
  String m_reporter;                  // what the report of the end names as its command
  bool m_initialized = false;
};

// The three handlers. They differ in prefix and builders only.
extern const CreatorRow CtorCOMMInstHandler;
extern const CreatorRow CtorSCPIInstHandler;
extern const CreatorRow CtorCONFIGInstHandler;

} // namespace portico
