#include "ui/UiFixture.h"

namespace portico::test {
namespace {

bool Has(const KeyedList<Value>& list, StringView name) {
  try {
    list.Item(name);
    return true;
  } catch (const Error&) {
    return false;
  }
}

} // namespace

StringView InstructionRecorder::ClassName() const { return u"InstructionRecorder"; }

std::int32_t InstructionRecorder::Send(const Ref<CInstContainer>& Instruction) {
  std::string line = ToUtf8(Instruction->CmdType() + u"." + Instruction->FunctionName());
  for (StringView name : {u"ChannelName", u"Name", u"Value", u"Data"}) {
    if (!Has(*Instruction->Params(), name)) continue;
    line += " " + ToUtf8(name) + "='" + ToUtf8(Instruction->Params()->Item(name).ToString()) + "'";
  }
  Note(line);
  return Answer;
}

UiFixture::UiFixture() {
  gCommonDialog = Dialog;
  gMainFormParts = MainForm = New<MainFormDouble>(WindowCalls);
  gMainForm = MainForm;
  Offer(u"Configuration", Server);
  Offer(u"InstructionProcessor", Processor);
  Server->Items = {
      {u"OpenfromTree", u"False"}, {u"InstrumentName", u""}, {u"InstrumentOpened", u"False"}, {u"TERMCHAR", u"LF"}};
}

UiFixture::~UiFixture() {
  gMainForm = {};
  gMainFormParts = {};
  MainForm = {};
  gInstrumentList.reset();
  gRegistry.reset();
  gCommonDialog = {};
}

void UiFixture::Press(memory::Form& form, StringView button) {
  EXPECT_TRUE(Find<memory::CommandButton>(form, button).Press()) << ToUtf8(button);
}

UiFixture::List UiFixture::Filed() const {
  List texts;
  for (const auto& append : Environment.Appended) {
    EXPECT_EQ(append.Path, u"/opt/portico/SCPIComm.log");
    texts.push_back(ToUtf8(FirstDescription(append.Text)));
  }
  return texts;
}

std::vector<String> UiFixture::FiledTrail() const {
  return Environment.Appended.empty() ? std::vector<String>() : CallStack(Environment.Appended.back().Text);
}

} // namespace portico::test
