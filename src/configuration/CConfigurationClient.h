#pragma once

#include "framework/shared/IConfiguration.h"
#include "platform/ISettingsStore.h"

#include <cstdint>
#include <memory>

namespace portico {

/// The window's front of the configuration: it fills the server's table when it is made, saves the persisted items when
/// it goes, and has the main window redraw when an item is written through it. Lives as long as the main window.
class CConfigurationClient final : public IConfiguration {
public:
  enum ProtocolCode : std::int32_t { SCPI = 0, Other = 1 };

  /// Without a factory it raises `ObjectRequired`. Keeps the platform's settings store alive.
  CConfigurationClient();
  ~CConfigurationClient() override;

  StringView ClassName() const override { return u"CConfigurationClient"; }

  // Kept for the contract: the window and the dialogs read and write `Item::ProtocolName` instead.
  /// A stored protocol that is neither of the two raises `InternalState`.
  std::int32_t Protocol() const;
  /// Brings the protocol's options into effect. Any other code raises `InternalState`.
  void Protocol(std::int32_t newvalue);

  String ItemValue(StringView Name) override;
  /// Writing "ProtocolName" brings that protocol's options into effect; writing an option alone does not.
  void ItemValue(StringView Name, StringView Value) override;
  String ItemByKey(const ItemName& Key) override;
  void ItemByKey(const ItemName& Key, StringView Value) override;

private:
  String Label(StringView member) const { return String(ClassName()).append(member); }
  void ResetGlobalConfigurationServer();
  void SetGlobalConfigurationServer();
  void RestoreConfiguration();
  void PersistConfiguration();
  void ApplyProtocolSettings();
  const Ref<IConfiguration>& Server() const;

  std::shared_ptr<ISettingsStore> m_store;
  Ref<IConfiguration> m_server;
};

} // namespace portico
