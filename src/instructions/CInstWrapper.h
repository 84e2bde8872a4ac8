#pragma once

#include "framework/text/text.h"

namespace portico {

/// The generator's textual twin: the same instructions spelled as a string that is XML in shape only, since values are
/// pasted in as they stand. Kept for the contract: nothing in the program asks for it.
///
/// Raises what the generator raises, but `MissingAttributeName` for an empty name given to
/// `ConstructXMLGetAttribCmdString`.
class CInstWrapper final {
public:
  String ConstructXMLOpenCmdString(const String& Instrument) const;
  String ConstructXMLCloseCmdString() const;
  String ConstructXMLWriteCmdString(const String& Data) const;
  String ConstructXMLSCPICmdString(const String& Data) const;
  String ConstructXMLReadCmdString() const;
  String ConstructXMLSetAttribCmdString(const String& Name, const String& Value) const;
  String ConstructXMLGetAttribCmdString(const String& Name) const;
};

} // namespace portico
