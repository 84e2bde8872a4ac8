#include "instructions/InstructionShapes.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico::InstructionShapes {
namespace {

// Missing data of a write and of a SCPI instruction is reported with the text for attributes; users know it so.
constexpr StringView NameRequired = u"An attribute name required for SetattributeValue command";

} // namespace

InstructionShape Open(StringView Instrument) {
  HuntERR::Check(!Instrument.empty(), ErrorNumber::MissingInstrumentName, u"An instrument name required");
  return {u"COMM", u"Open", {{{u"ChannelName", Instrument}}}};
}

InstructionShape Close() { return {u"COMM", u"Close"}; }

InstructionShape Write(StringView Data) {
  HuntERR::Check(!Data.empty(), ErrorNumber::MissingText, NameRequired);
  return {u"COMM", u"Write", {{{u"Data", Data}}}};
}

InstructionShape SCPI(StringView Data) {
  HuntERR::Check(!Data.empty(), ErrorNumber::MissingText, NameRequired);
  return {u"SCPI", u"Send", {{{u"Data", Data}}}};
}

InstructionShape Read() { return {u"COMM", u"Read", {{{u"Data", u""}}}}; }

InstructionShape SetAttribute(StringView Name, StringView Value) {
  HuntERR::Check(!Name.empty(), ErrorNumber::MissingAttributeName, NameRequired);
  return {u"COMM", u"SetAttribute", {{{u"Name", Name}, {u"Value", Value}}}};
}

InstructionShape GetAttribute(StringView Name, std::int32_t emptyNameError) {
  HuntERR::Check(!Name.empty(), emptyNameError, u"An attribute name required for GetattributeValue command");
  return {u"COMM", u"GetAttribute", {{{u"Name", Name}, {u"Value", u""}}}};
}

} // namespace portico::InstructionShapes
