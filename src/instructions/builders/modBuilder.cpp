#include "instructions/builders/modBuilder.h"

#include "framework/errors/HuntERR.h"

namespace portico::modBuilder {

std::int32_t ParamCount(const StringArray& Params) try {
  if (!Params.IsAllocated()) return 0;
  return Params.UpperBound() - Params.LowerBound() + 1;
} catch (...) {
  PassOn(u"modBuilder.ParamCount(Params)");
}

Params BuildCommandParams(const Ref<ICommand>& InnerCommand, const StringArray& Data) {
  Params parameters{InnerCommand};
  for (std::int32_t i = 0; i < ParamCount(Data); ++i) parameters.emplace_back(Data[i]);
  return parameters;
}

StringArray LastValueFirst(const KeyedList<Value>& Parameters) {
  StringArray values(Parameters.Count());
  for (std::size_t i = 1; i <= Parameters.Count(); ++i) values[0] = Parameters.Item(i).ToString();
  return values;
}

Ref<CInstContainer> Instruction(StringView CmdType, StringView FunctionName, const String& Data) {
  auto instruction = New<CInstContainer>();
  instruction->CmdType(String(CmdType));
  instruction->FunctionName(String(FunctionName));
  instruction->Params()->Add(Data, u"Data");
  return instruction;
}

} // namespace portico::modBuilder
