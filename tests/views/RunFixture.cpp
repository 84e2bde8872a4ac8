#include "views/RunFixture.h"

#include "views/CInstructionRunner.h"
#include "views/RunCommands.h"

namespace portico::test {

ProcessorDouble::ProcessorDouble(std::vector<std::string>& journal) : m_journal(journal) {}

StringView ProcessorDouble::ClassName() const { return u"ProcessorDouble"; }

std::int32_t ProcessorDouble::Send(const Ref<CInstContainer>& Instruction) {
  const std::string text = ToUtf8(Instruction->Params()->Item(u"Data").ToString());
  m_journal.push_back("send " + ToUtf8(Instruction->CmdType()) + "." + ToUtf8(Instruction->FunctionName()) + " " +
                      text);
  if (OnSend) OnSend(text);
  return Answer;
}

RunFixture::RunFixture() {
  for (const CreatorRow* row : {&CtorStep, &CtorRun, &CtorStop, &CtorInstructionRunner}) {
    gObjectFactory->Add(MakeCreator(*row));
  }
  Offer(u"InstructionProcessor", Processor);
  Configuration->Items[u"CurrentInstruction"] = u"";
  Configuration->Items[u"RunningMode"] = u"Off";
  Box = New<RecordingTextBox>(BoxCalls, "future");
}

std::string RunFixture::Current() { return ToUtf8(Configuration->Items[u"CurrentInstruction"]); }

std::string RunFixture::Mode() { return ToUtf8(Configuration->Items[u"RunningMode"]); }

} // namespace portico::test
