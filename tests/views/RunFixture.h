#pragma once

#include "instructions/IInstProcessor.h"
#include "views/CInstructionRunner.h"
#include "views/RunCommands.h"
#include "views/ViewFixture.h"

namespace portico::test {

/// A processor that writes down what it is sent, and answers as it is told.
class ProcessorDouble final : public IInstProcessor {
public:
  explicit ProcessorDouble(std::vector<std::string>& journal) : m_journal(journal) {}
  StringView ClassName() const override { return u"ProcessorDouble"; }
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override {
    const std::string text = ToUtf8(Instruction->Params()->Item(u"Data").ToString());
    m_journal.push_back("send " + ToUtf8(Instruction->CmdType()) + "." + ToUtf8(Instruction->FunctionName()) + " " +
                        text);
    if (OnSend) OnSend(text);
    return Answer;
  }

  std::int32_t Answer = 0;
  std::function<void(const std::string&)> OnSend;

private:
  std::vector<std::string>& m_journal;
};

/// The window's journal holds what the runners do; the command window, `Box`, writes to one of its own.
class RunFixture : public ViewFixture {
protected:
  RunFixture() {
    for (const CreatorRow* row : {&CtorStep, &CtorRun, &CtorStop, &CtorInstructionRunner}) {
      gObjectFactory->Add(MakeCreator(*row));
    }
    Offer(u"InstructionProcessor", Processor);
    Configuration->Items[u"CurrentInstruction"] = u"";
    Configuration->Items[u"RunningMode"] = u"Off";
    Box = New<RecordingTextBox>(BoxCalls, "future");
  }

  std::string Current() { return ToUtf8(Configuration->Items[u"CurrentInstruction"]); }
  std::string Mode() { return ToUtf8(Configuration->Items[u"RunningMode"]); }

  std::vector<std::string> BoxCalls;
  Ref<ProcessorDouble> Processor = New<ProcessorDouble>(Calls);
};

} // namespace portico::test
