#include "instructions/builders/modBuilder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <utility>

namespace portico::modBuilder {

std::int32_t ParamCount(const StringArray& Params) try {
  if (!Params.IsAllocated()) return 0;
  return Params.UpperBound() - Params.LowerBound() + 1;
} catch (...) {
  PassOn(u"modBuilder.ParamCount(Params)");
}

Params BuildCommandParams(const Ref<ICommand>& InnerCommand, StringArray Data) {
  const std::int32_t count = ParamCount(Data);
  Params parameters;
  parameters.reserve(1 + static_cast<std::size_t>(count));
  parameters.emplace_back(InnerCommand);
  for (std::int32_t i = 0; i < count; ++i) parameters.emplace_back(std::move(Data[i]));
  return parameters;
}

String LastValue(const KeyedList<Value>& Parameters) {
  if (Parameters.Count() == 0) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
  String value;
  for (std::size_t i = 1; i <= Parameters.Count(); ++i) value = Parameters.Item(i).ToString();
  return value;
}

StringArray LastValueFirst(const KeyedList<Value>& Parameters) {
  StringArray values(Parameters.Count());
  values[0] = LastValue(Parameters);
  return values;
}

Ref<CInstContainer> Instruction(StringView CmdType, StringView FunctionName, String Data) {
  auto instruction = New<CInstContainer>();
  instruction->CmdType(String(CmdType));
  instruction->FunctionName(String(FunctionName));
  instruction->Params()->Add(std::move(Data), u"Data");
  return instruction;
}

} // namespace portico::modBuilder
