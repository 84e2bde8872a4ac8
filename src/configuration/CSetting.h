#pragma once

#include "configuration/IAttributes.h"

#include <memory>

namespace portico {

class CSetting;

/// What a setting tells the collection that it stands in.
class ISettingOwner {
public:
  /// The setting has another name, value or washed value.
  virtual void TakeOver(const CSetting& setting) = 0;
  /// Nobody holds the setting any more.
  virtual void Forget(const CSetting& setting) noexcept = 0;

protected:
  ~ISettingOwner() = default;
};

/// One setting. Every member but `IsDirty` and `Wash` raises `NotInitialized` before `Initialize`.
///
/// A collection makes such an object when somebody asks for one of its settings. As long as anybody holds it, what is
/// written to one is written to the other.
class CSetting final : public IAttribute, public std::enable_shared_from_this<CSetting> {
public:
  CSetting() = default;
  ~CSetting() override;
  StringView ClassName() const override { return u"CSetting"; }

  /// An empty name raises `InvalidArgument`.
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
  friend class CSettings;
  friend class SettingTable;

  String Label(StringView member) const { return String(ClassName()).append(member); }
  void TellOwner() const;

  bool m_initialized = false;
  ISettingOwner* m_owner = nullptr; // none for a setting that is in none, or was taken out
  String m_washedValue;
  String m_name;
  String m_value;
};

} // namespace portico
