#pragma once

#include "instructions/builders/IBuilder.h"
#include "support/fixtures/PipelineFixture.h"

namespace portico::support {

/// The whole factory behind a spy, for tests of one builder.
class BuilderFixture : public PipelineFixture {
protected:
  void SetUp() override {
    PipelineFixture::SetUp();
    SetAllOff();
    Spy->StandBefore(gObjectFactory);
    gObjectFactory = Spy;
  }
  void TearDown() override {
    Spy->StandBefore(nullptr);
    Spy->Requests.clear();
    PipelineFixture::TearDown();
  }

  static Ref<IBuilder> Builder(StringView specification) { return Create<IBuilder>(specification); }

  /// What the built chain does, around a command that notes its own run.
  Journal Links(StringView builder, const Ref<CInstContainer>& instruction) {
    const auto command = Builder(builder)->Build(Inner(), instruction);
    EXPECT_EQ(Calls, Journal{}) << "nothing may reach the channel while a chain is built";
    if (command) command->Execute();
    Journal links;
    for (const std::string& line : Calls) {
      if (line.rfind("report ", 0) != 0) links.push_back(line);
    }
    Calls.clear();
    return links;
  }

  Ref<ICommand> Inner() {
    return New<InstructionCommand>([this] { Calls.emplace_back("inner"); });
  }

  /// What a builder raises.
  static Failure BuildFailure(StringView builder, const Ref<CInstContainer>& instruction) {
    return FailureOf([&] { Builder(builder)->Build({}, instruction); });
  }

  Ref<InstructionSpyFactory> Spy = New<InstructionSpyFactory>();
};

} // namespace portico::support
