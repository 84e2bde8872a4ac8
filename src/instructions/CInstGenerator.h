#pragma once

#include "framework/shared/CInstContainer.h"

namespace portico {

/// The one place where instructions are made from raw values. The caller owns what it gets.
///
/// An empty instrument name raises 0x8004145C, empty data or an empty attribute name the number beside it.
class CInstGenerator final {
public:
  /// No operation asks whether it has been called.
  void Initialize() { m_initialized = true; }

  Ref<CInstContainer> ConstructXMLOpenCmdString(const String& Instrument) const;
  Ref<CInstContainer> ConstructXMLCloseCmdString() const;
  Ref<CInstContainer> ConstructXMLWriteCmdString(const String& Data) const; ///< 0x80041451
  Ref<CInstContainer> ConstructXMLSCPICmdString(const String& Data) const;  ///< 0x80041451
  Ref<CInstContainer> ConstructXMLReadCmdString() const;
  /// An empty value is legal.
  Ref<CInstContainer> ConstructXMLSetAttribCmdString(const String& Name, const String& Value) const; ///< 0x8004145F
  Ref<CInstContainer> ConstructXMLGetAttribCmdString(const String& Name) const;                      ///< 0x80041451

private:
  bool m_initialized = false;
};

} // namespace portico
