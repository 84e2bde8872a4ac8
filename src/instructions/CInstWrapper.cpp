#include "instructions/CInstWrapper.h"

#include "framework/errors/ErrorNumbers.h"
#include "instructions/InstructionShapes.h"

namespace portico {
namespace {

String Spell(const InstructionShape& shape) {
  String text;
  text.append(u"<Instruction Type=\"").append(shape.CmdType).append(u"\">");
  text.append(u"<Function Name=\"").append(shape.FunctionName).append(u"\"><Parameters>");
  shape.ForEachParam([&](StringView name, StringView value) {
    text.append(u"<Parameter Name=\"").append(name).append(u"\">").append(value).append(u"</Parameter>");
  });
  return text.append(u"</Parameters></Function></Instruction>");
}

} // namespace

String CInstWrapper::ConstructXMLOpenCmdString(const String& Instrument) const {
  return Spell(InstructionShapes::Open(Instrument));
}

String CInstWrapper::ConstructXMLCloseCmdString() const { return Spell(InstructionShapes::Close()); }

String CInstWrapper::ConstructXMLWriteCmdString(const String& Data) const {
  return Spell(InstructionShapes::Write(Data));
}

String CInstWrapper::ConstructXMLSCPICmdString(const String& Data) const {
  return Spell(InstructionShapes::SCPI(Data));
}

String CInstWrapper::ConstructXMLReadCmdString() const { return Spell(InstructionShapes::Read()); }

String CInstWrapper::ConstructXMLSetAttribCmdString(const String& Name, const String& Value) const {
  return Spell(InstructionShapes::SetAttribute(Name, Value));
}

String CInstWrapper::ConstructXMLGetAttribCmdString(const String& Name) const {
  return Spell(InstructionShapes::GetAttribute(Name, ErrorNumber::MissingAttributeName));
}

} // namespace portico
