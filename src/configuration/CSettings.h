#pragma once

#include "configuration/CSetting.h"
#include "framework/KeyedList.h"

#include <memory>

namespace portico {

/// An ordered collection of settings that owns them; `Add` and `Item` hand out shared references.
///
/// Before `Initialize` there is no collection: the guarded members raise 0x80041460, the others 91.
class CSettings final : public IAttributes {
public:
  StringView ClassName() const override { return u"CSettings"; }

  void Initialize();
  bool IsDirty() const override;
  void Wash() override;
  bool IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const override;
  Ref<IAttribute> Add(const String& AttributeName, const String& AttributeValue) override;
  void Remove(const String& AttributeName) override;
  const String& Value(const String& Name) const;
  void Value(const String& Name, const String& Value);
  const String& ItemValue(const String& Name) const override { return Value(Name); }
  void ItemValue(const String& Name, const String& NewValue) override { Value(Name, NewValue); }
  Ref<IAttribute> Item(const String& AttributeName) const override;
  std::int32_t Count() const override;
  /// Leaves a new, empty collection.
  void Clear();
  std::vector<Ref<IAttribute>> NewEnum() const override;

private:
  using Collection = KeyedList<Ref<CSetting>>;

  String Label(StringView member) const { return String(ClassName()).append(member); }
  /// Raises 91 before `Initialize`.
  Collection& Settings() const;

  bool m_initialized = false;
  std::unique_ptr<Collection> m_settings;
};

} // namespace portico
