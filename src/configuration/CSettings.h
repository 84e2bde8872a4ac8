#pragma once

#include "configuration/SettingTable.h"

namespace portico {

/// An ordered collection of settings that owns them, or shows those of a table that another owns; `Add` and `Item` hand
/// out shared references, the same one for as long as anybody holds it.
///
/// Before `Initialize` there is no collection: the guarded members raise `NotInitialized`, the others
/// `MissingObject`.
class CSettings final : public IAttributes {
public:
  using Listener = SettingTable::Listener;

  CSettings() = default;
  /// Of a table that exists. The listener is told of every change of what `IsSame` would see; the owner, if it is
  /// given, is kept alive.
  CSettings(SettingTable& table, Listener listener, std::shared_ptr<const void> owner = {});
  ~CSettings() override;
  StringView ClassName() const override { return u"CSettings"; }

  void Initialize();
  bool IsDirty() const override;
  void Wash() override;
  bool IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const override;
  Ref<IAttribute> Add(const String& AttributeName, const String& AttributeValue) override;
  void Remove(const String& AttributeName) override;
  String Value(StringView Name) const;
  void Value(StringView Name, StringView Value);
  /// The same of what is packed already.
  String Value(const KeptName& Name) const;
  void Value(const KeptName& Name, const PackedText& Value);
  String ItemValue(const String& Name) const override { return Value(Name); }
  void ItemValue(const String& Name, const String& NewValue) override { Value(Name, NewValue); }
  Ref<IAttribute> Item(const String& AttributeName) const override;
  std::int32_t Count() const override;
  /// Leaves a new, empty collection.
  void Clear();
  std::vector<Ref<IAttribute>> NewEnum() const override;

  /// Some setting bears another name than the one under which it was added.
  bool HasRenamed() const { return m_table.Exists() && m_table.HasRenamed(); }

  /// What `IsSame` answers for two tables that exist.
  static bool AreSame(const SettingTable& table, const SettingTable& other, bool CaseSensitive);

private:
  String Label(StringView member) const { return String(ClassName()).append(member); }
  /// Raises `MissingObject` before `Initialize`.
  SettingTable& Settings() const;
  Ref<CSetting> ObjectOf(std::size_t at) const;
  void Changed() const {
    if (m_listener) m_listener();
  }
  template <class Key>
  String Read(const Key& key, StringView name) const;
  void Write(const KeptName& name, const PackedText& value);
  static void RecordMissing(StringView AttributeName);

  SettingTable m_own;
  SettingTable& m_table = m_own;
  Listener m_listener;
  std::shared_ptr<const void> m_owner; // of another's table
  bool m_initialized = false;
};

} // namespace portico
