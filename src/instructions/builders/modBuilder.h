#pragma once

#include "framework/errors/Value.h"
#include "framework/shared/CInstContainer.h"
#include "framework/shared/ICommand.h"
#include "instructions/builders/StringArray.h"

/// What builders share.
namespace portico::modBuilder {

/// Number of elements; 0 for an array that was never allocated.
std::int32_t ParamCount(const StringArray& Params);

/// The inner command, then the strings in order.
Params BuildCommandParams(const Ref<ICommand>& InnerCommand, StringArray Data);

/// The value of the last parameter; all of them must be texts or read as one. An empty list raises `BadSubscript`.
String LastValue(const KeyedList<Value>& Parameters);

/// An array as long as the list whose first element holds the last value; the other elements stay empty. An empty list
/// raises `BadSubscript`. All instructions in use have one parameter, so that this one is what the array holds.
StringArray LastValueFirst(const KeyedList<Value>& Parameters);

/// An instruction with the one parameter "Data".
Ref<CInstContainer> Instruction(StringView CmdType, StringView FunctionName, String Data);

} // namespace portico::modBuilder
