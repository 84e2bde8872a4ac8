#pragma once

#include "configuration/CSetting.h"
#include "configuration/SettingRecord.h"

#include <vector>

namespace portico {

/// Is told of every change of a collection's content: of what `IsSame` would see.
class ISettingsObserver {
public:
  virtual void SettingsChanged() noexcept = 0;

protected:
  ~ISettingsObserver() = default;
};

/// An ordered collection of settings that owns them; `Add` and `Item` hand out shared references, the same one for as
/// long as anybody holds it.
///
/// Before `Initialize` there is no collection: the guarded members raise `NotInitialized`, the others
/// `MissingObject`.
class CSettings final : public IAttributes, private ISettingOwner {
public:
  CSettings() = default;
  /// The observer, if any, is not owned; it outlives the collection or its last change.
  explicit CSettings(ISettingsObserver* observer) : m_observer(observer) {}
  ~CSettings() override;
  StringView ClassName() const override { return u"CSettings"; }

  void Initialize();
  bool IsDirty() const override;
  void Wash() override;
  bool IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const override;
  bool IsSame(const CSettings& Other, bool CaseSensitive) const;
  Ref<IAttribute> Add(const String& AttributeName, const String& AttributeValue) override;
  void Remove(const String& AttributeName) override;
  String Value(const String& Name) const;
  void Value(const String& Name, const String& Value);
  String ItemValue(const String& Name) const override { return Value(Name); }
  void ItemValue(const String& Name, const String& NewValue) override { Value(Name, NewValue); }
  Ref<IAttribute> Item(const String& AttributeName) const override;
  std::int32_t Count() const override;
  /// Leaves a new, empty collection.
  void Clear();
  std::vector<Ref<IAttribute>> NewEnum() const override;

  /// As it is kept; null for an absent name. Good until the next change.
  const PackedText* Find(StringView Name) const;
  /// Some setting bears another name than the one under which it was added.
  bool HasRenamed() const;

private:
  using Records = std::vector<SettingRecord>;

  String Label(StringView member) const { return String(ClassName()).append(member); }
  /// Raises `MissingObject` before `Initialize`.
  Records& Settings() const;
  template <class Text>
  SettingRecord* FindRecord(const Text& key) const;
  SettingRecord& RecordOf(const CSetting& setting);
  Ref<CSetting> ObjectOf(SettingRecord& record) const;
  void Replace(Records records) noexcept;
  static void Release(SettingRecord& record) noexcept;
  void Changed() const noexcept;
  static void RecordMissing(StringView AttributeName);

  void TakeOver(const CSetting& setting) override;
  void Forget(const CSetting& setting) noexcept override;

  bool m_initialized = false;
  bool m_exists = false; // `Clear` makes a collection too
  ISettingsObserver* m_observer = nullptr;
  mutable Records m_records; // handing an object out leaves a trace in its record
};

} // namespace portico
