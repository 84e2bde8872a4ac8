#include "instructions/builders/BuilderFixture.h"

namespace portico::test {

void BuilderFixture::SetUp() {
  PipelineFixture::SetUp();
  SetAllOff();
  Spy->StandBefore(gObjectFactory);
  gObjectFactory = Spy;
}

void BuilderFixture::TearDown() {
  Spy->StandBefore(nullptr);
  Spy->Requests.clear();
  PipelineFixture::TearDown();
}

Ref<IBuilder> BuilderFixture::Builder(StringView specification) { return Create<IBuilder>(specification); }

Journal BuilderFixture::Links(StringView builder, const Ref<CInstContainer>& instruction) {
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

Ref<ICommand> BuilderFixture::Inner() {
  return New<CommandOf>([this] { Calls.emplace_back("inner"); });
}

Failure BuilderFixture::BuildFailure(StringView builder, const Ref<CInstContainer>& instruction) {
  return FailureOf([&] { Builder(builder)->Build({}, instruction); });
}

} // namespace portico::test
