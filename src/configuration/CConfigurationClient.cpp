#include "configuration/CConfigurationClient.h"

#include "configuration/Options.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/Application.h"
#include "framework/shared/IMainWindow.h"

#include <array>
#include <utility>

namespace portico {
namespace {

constexpr char16_t StoreSection[] = u"Configuration";

/// Items that start fresh at each run.
constexpr std::array<std::pair<StringView, StringView>, 6> FreshItems = {{
    {Item::InstrumentOpened, ItemText::False},
    {Item::OpenfromTree, ItemText::False},
    {Item::InstrumentName, {}},
    {Item::LogFileName, {}},
    {Item::Logging, ItemText::On},
    {Item::RunningMode, ItemText::Off},
}};

[[noreturn]] void RaiseUnknownProtocol() {
  HuntERR::Raise(ErrorNumber::InternalState, u"CConfigurationClient", u"Unknown communication protocol.");
}

} // namespace

CConfigurationClient::CConfigurationClient() try : m_store(gSettingsStore) {
  SetGlobalConfigurationServer();
  if (!m_store) RaiseUnsetReference();
  RestoreConfiguration();
} catch (...) {
  FailConstruction(u"CConfigurationClient.Class_Initialize");
}

CConfigurationClient::~CConfigurationClient() {
  try {
    PersistConfiguration();
    ResetGlobalConfigurationServer();
  } catch (...) {
    SwallowInDestructor(u"CConfigurationClient.Class_Terminate");
  }
}

const Ref<IConfiguration>& CConfigurationClient::Server() const {
  HuntERR::Check(bool(m_server), ErrorNumber::ObjectRequired, u"This operation requires a configuration server.");
  return m_server;
}

std::int32_t CConfigurationClient::Protocol() const try {
  const String name = Server()->ItemValue(Item::ProtocolName);
  if (name == ItemText::SCPI) return SCPI;
  if (name == ItemText::Other) return Other;
  RaiseUnknownProtocol();
} catch (...) {
  PassOn(Label(u".Protocol"));
}

void CConfigurationClient::Protocol(std::int32_t newvalue) try {
  Server();
  if (newvalue != SCPI && newvalue != Other) RaiseUnknownProtocol();
  m_server->ItemValue(Item::ProtocolName, newvalue == SCPI ? ItemText::SCPI : ItemText::Other);
  ApplyProtocolSettings();
} catch (...) {
  PassOn(Label(u".Protocol(newvalue)"), {newvalue});
}

String CConfigurationClient::ItemByKey(const ItemName& Key) try { return m_server->ItemByKey(Key); } catch (...) {
  PassOn(Label(u".IConfiguration_ItemValue(Name)"), {Key.Name});
}

void CConfigurationClient::ItemByKey(const ItemName& Key, StringView Value) try {
  m_server->ItemByKey(Key, Value);
  if (Key.Name == Item::ProtocolName.Name) {
    ApplyProtocolSettings();
    gMainForm->UpdateUI({}, {});
  } else {
    gMainForm->UpdateUI(String(Key.Name), String(Value));
  }
} catch (...) {
  PassOn(Label(u".IConfiguration_ItemValue(Name, RHS)"), {Key.Name, Value});
}

String CConfigurationClient::ItemValue(StringView Name) { return ItemByKey(ItemName{Name}); }

void CConfigurationClient::ItemValue(StringView Name, StringView Value) { ItemByKey(ItemName{Name}, Value); }

void CConfigurationClient::ResetGlobalConfigurationServer() try { m_server = nullptr; } catch (...) {
  PassOn(Label(u".ResetGlobalConfigurationServer()"));
}

void CConfigurationClient::SetGlobalConfigurationServer() try {
  HuntERR::Check(bool(gObjectFactory), ErrorNumber::ObjectRequired, u"This operation requires an object factory.");
  m_server = Create(Class::Configuration);
  HuntERR::Check(bool(m_server), ErrorNumber::CannotCreate, u"Cannot create a configuration server.");
} catch (...) {
  PassOn(Label(u".SetGlobalConfigurationServer()"));
}

void CConfigurationClient::RestoreConfiguration() try {
  for (const auto& [name, value] : FreshItems) m_server->ItemValue(name, value);
  for (const PersistedOption& option : PersistedOptions()) {
    const String name(option.Key.Name);
    m_server->ItemValue(name, m_store->GetSetting(ApplicationTitle, StoreSection, name, String(option.Default)));
  }
  ApplyProtocolSettings();
} catch (...) {
  PassOn(Label(u".RestoreConfiguration()"));
}

void CConfigurationClient::PersistConfiguration() try {
  for (const PersistedOption& option : PersistedOptions()) {
    const String name(option.Key.Name);
    m_store->SaveSetting(ApplicationTitle, StoreSection, name, m_server->ItemValue(name));
  }
} catch (...) {
  PassOn(Label(u".PersistConfiguration()"));
}

void CConfigurationClient::ApplyProtocolSettings() try {
  const String protocol = m_server->ItemValue(Item::ProtocolName);
  const bool scpi = protocol == ItemText::SCPI;
  if (!scpi && protocol != ItemText::Other) RaiseUnknownProtocol();
  for (const WorkingItem& item : WorkingItems()) {
    const StringView option = scpi ? item.ScpiOption : item.OtherOption;
    m_server->ItemValue(item.Name, option.empty() ? String(item.OtherFixed) : m_server->ItemValue(option));
  }
} catch (...) {
  PassOn(Label(u".ApplyProtocolSettings"));
}

} // namespace portico
