#pragma once

#include "instructions/builders/IBuilder.h"
#include "support/fixtures/PipelineFixture.h"

namespace portico::test {

/// The whole factory behind a spy, for tests of one builder.
class BuilderFixture : public PipelineFixture {
protected:
  void SetUp() override;
  void TearDown() override;

  static Ref<IBuilder> Builder(StringView specification);

  /// What the built chain does, around a command that notes its own run.
  Journal Links(StringView builder, const Ref<CInstContainer>& instruction);

  Ref<ICommand> Inner();

  /// What a builder raises.
  static Failure BuildFailure(StringView builder, const Ref<CInstContainer>& instruction);

  Ref<InstructionSpyFactory> Spy = New<InstructionSpyFactory>();
};

} // namespace portico::test
