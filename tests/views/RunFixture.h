#pragma once

#include "instructions/IInstProcessor.h"
#include "views/CInstructionRunner.h"
#include "views/CRun.h"
#include "views/RunCommands.h"
#include "views/ViewFixture.h"

namespace portico::test {

/// A processor that writes down what it is sent, and answers as it is told.
class ProcessorDouble final : public IInstProcessor {
public:
  explicit ProcessorDouble(std::vector<std::string>& journal);
  StringView ClassName() const override;
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override;

  std::int32_t Answer = 0;
  std::function<void(const std::string&)> OnSend;

private:
  std::vector<std::string>& m_journal;
};

/// The window's journal holds what the runners do; the command window, `Box`, writes to one of its own.
class RunFixture : public ViewFixture {
protected:
  RunFixture();

  std::string Current();
  std::string Mode();

  std::vector<std::string> BoxCalls;
  Ref<ProcessorDouble> Processor = New<ProcessorDouble>(Calls);
};

} // namespace portico::test
