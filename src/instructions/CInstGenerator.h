#pragma once

#include "framework/shared/CInstContainer.h"

namespace portico {

/// The one place where instructions are made from raw values. The caller owns what it gets.
///
/// An empty instrument name raises `MissingInstrumentName`, empty data or an empty attribute name the error beside it.
class CInstGenerator final {
public:
  /// Kept for the contract: no operation asks whether it has been called, and nothing in the program calls it.
  void Initialize() { m_initialized = true; }

  Ref<CInstContainer> ConstructXMLOpenCmdString(const String& Instrument) const;
  Ref<CInstContainer> ConstructXMLCloseCmdString() const;
  Ref<CInstContainer> ConstructXMLWriteCmdString(const String& Data) const; ///< `MissingText`
  Ref<CInstContainer> ConstructXMLSCPICmdString(const String& Data) const;  ///< `MissingText`
  Ref<CInstContainer> ConstructXMLReadCmdString() const;
  /// An empty value is legal.
  Ref<CInstContainer> ConstructXMLSetAttribCmdString(const String& Name,
                                                     const String& Value) const; ///< `MissingAttributeName`
  /// Kept for the contract: nothing in the program asks for it.
  Ref<CInstContainer> ConstructXMLGetAttribCmdString(const String& Name) const; ///< `MissingText`

private:
  bool m_initialized = false;
};

} // namespace portico
