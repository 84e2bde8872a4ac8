#pragma once

#include "configuration/IAttributes.h"

namespace portico {

/// One setting. Every member but `IsDirty` and `Wash` raises 0x80041460 before `Initialize`.
class CSetting final : public IAttribute {
public:
  StringView ClassName() const override { return u"CSetting"; }

  /// An empty name raises 5.
  void Initialize(const String& Name, const String& Value);
  bool IsDirty() const override;
  void Wash() override;
  bool IsSame(const Ref<IAttribute>& OtherSetting, bool CaseSensitive) const override;
  const String& Value() const override;
  void Value(const String& newValue) override;
  const String& Name() const override;
  /// A collection keeps the key under which it was added.
  void Name(const String& newValue);

private:
  String Label(StringView member) const { return String(ClassName()).append(member); }

  bool m_initialized = false;
  String m_washedValue;
  String m_name;
  String m_value;
};

} // namespace portico
