#pragma once

#include "configuration/CSetting.h"
#include "framework/containers/KeyedList.h"
#include "framework/objects/Creator.h"
#include "framework/shared/IConfiguration.h"

#include <cstdint>

namespace portico {

/// The configuration server: it holds the one table of items. Creators and commands use it directly, which tells the
/// main window nothing. One in the process, held by its creator.
class CConfiguration final : public IConfiguration, public IConfigurationServer {
public:
  StringView ClassName() const override { return u"CConfiguration"; }

  void Initialize();
  Ref<IResponse> Update(const String& Configuration) override;
  Ref<IResponse> Retrieve(const String& Configuration) override;
  /// Kept for the contract: nothing in the program asks for it.
  void Clear();
  String ItemValue(StringView Name) override;
  /// Never raises: a write that fails, or that comes before `Initialize`, has no effect.
  void ItemValue(StringView Name, StringView Value) override;
  String ItemByKey(const ItemName& Key) override;
  void ItemByKey(const ItemName& Key, StringView Value) override;

private:
  /// A number for each table that is begun, so that no key takes one for another. A table loses no item.
  static std::uint64_t NextState();
  void Begin();
  /// Null for an absent item.
  CSetting* Find(const ItemName& Key);
  String Label(StringView member) const { return String(ClassName()).append(member); }
  Ref<IResponse> AllItems() const;

  bool m_initialized = false;
  KeyedList<Ref<CSetting>> m_items;
  std::uint64_t m_state = NextState();
};

/// Makes `Class::Configuration`.
extern const CreatorRow CtorConfiguration;

} // namespace portico
