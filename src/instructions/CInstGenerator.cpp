#include "instructions/CInstGenerator.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "instructions/InstructionShapes.h"

namespace portico {
namespace {

Ref<CInstContainer> Container(const InstructionShape& shape) {
  auto instruction = New<CInstContainer>();
  instruction->CmdType(String(shape.CmdType));
  instruction->FunctionName(String(shape.FunctionName));
  shape.ForEachParam([&](StringView name, StringView value) { instruction->Params()->Add(value, name); });
  return instruction;
}

} // namespace

// Only the first has a tail: an error of the others appears under its caller's line.

Ref<CInstContainer> CInstGenerator::ConstructXMLOpenCmdString(const String& Instrument) const try {
  return Container(InstructionShapes::Open(Instrument));
} catch (...) {
  PassOn(u"CInstGenerator.ConstructXMLOpenCmdString(Instrument)", {Instrument});
}

Ref<CInstContainer> CInstGenerator::ConstructXMLCloseCmdString() const { return Container(InstructionShapes::Close()); }

Ref<CInstContainer> CInstGenerator::ConstructXMLWriteCmdString(const String& Data) const {
  return Container(InstructionShapes::Write(Data));
}

Ref<CInstContainer> CInstGenerator::ConstructXMLSCPICmdString(const String& Data) const {
  return Container(InstructionShapes::SCPI(Data));
}

Ref<CInstContainer> CInstGenerator::ConstructXMLReadCmdString() const { return Container(InstructionShapes::Read()); }

Ref<CInstContainer> CInstGenerator::ConstructXMLSetAttribCmdString(const String& Name, const String& Value) const {
  return Container(InstructionShapes::SetAttribute(Name, Value));
}

Ref<CInstContainer> CInstGenerator::ConstructXMLGetAttribCmdString(const String& Name) const {
  return Container(InstructionShapes::GetAttribute(Name, ErrorNumber::MissingText));
}

} // namespace portico
