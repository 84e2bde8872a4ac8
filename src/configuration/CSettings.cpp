#include "configuration/CSettings.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

#include <typeinfo>

namespace portico {
namespace {

constexpr StringView LabelOfItem = u"Get CSettings.Item(AttributeName)";

} // namespace

CSettings::CSettings(SettingTable& table, Listener listener, std::shared_ptr<const void> owner)
    : m_table(table), m_listener(std::move(listener)), m_owner(std::move(owner)), m_initialized(true) {}

CSettings::~CSettings() {
  if (m_owner) m_table.ForgetView();
}

SettingTable& CSettings::Settings() const {
  if (!m_table.Exists()) RaiseUnsetReference();
  return m_table;
}

void CSettings::Initialize() try {
  m_table.Create();
  m_initialized = true;
  Changed();
} catch (...) {
  PassOn(Label(u".Initialize"));
}

bool CSettings::IsDirty() const try {
  CheckInitialized(m_initialized);
  std::size_t at = 0;
  while (at < m_table.Count() && m_table.Washed(at) == m_table.Value(at)) ++at;
  return at > 0 && at == m_table.Count();
} catch (...) {
  PassOn(Label(u".IsDirty()"));
}

void CSettings::Wash() try {
  CheckInitialized(m_initialized);
  for (std::size_t at = 0; at < m_table.Count(); ++at) {
    if (CSetting* object = m_table.Object(at)) {
      object->Wash();
    } else {
      m_table.Wash(at);
    }
  }
} catch (...) {
  PassOn(Label(u".Wash()"));
}

bool CSettings::IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const {
  CheckInitialized(m_initialized);
  if (Count() != Other->Count()) return false;
  const IAttributes& other = *Other;
  if (typeid(other) == typeid(CSettings)) {
    return AreSame(m_table, static_cast<const CSettings&>(other).m_table, CaseSensitive);
  }
  for (std::size_t at = 0; at < m_table.Count(); ++at) {
    const Ref<CSetting> setting = ObjectOf(at);
    if (!setting->IsSame(Other->Item(setting->Name()), CaseSensitive)) return false;
  }
  return true;
}

bool CSettings::AreSame(const SettingTable& table, const SettingTable& other, bool CaseSensitive) {
  if (table.Count() != other.Count()) return false;
  for (std::size_t at = 0; at < table.Count(); ++at) {
    const PackedText& name = table.Name(at);
    const std::size_t found = other.Find(name);
    if (found == other.Count()) RecordMissing(name.ToString());
    if (found == other.Count() || !EqualNoCase(name, other.Name(found))) return false;
    const PackedText& value = table.Value(at);
    const PackedText& otherValue = other.Value(found);
    if (CaseSensitive ? !(value == otherValue) : !EqualNoCase(value, otherValue)) return false;
  }
  return true;
}

Ref<IAttribute> CSettings::Add(const String& AttributeName, const String& AttributeValue) try {
  CheckInitialized(m_initialized);
  auto setting = New<CSetting>();
  HuntERR::Check(bool(setting), ErrorNumber::CannotCreate, u"Cannot create a new attribute.");
  setting->Initialize(AttributeName, AttributeValue);
  if (m_table.Find(AttributeName) != m_table.Count()) HuntERR::RaiseStandard(ErrorNumber::DuplicateKey);
  m_table.Add(Shared(AttributeName), Shared(AttributeValue), *setting.Get(), m_listener);
  Changed();
  return setting;
} catch (...) {
  PassOn(Label(u".Add(AttributeName, AttributeValue)"), {AttributeName, AttributeValue});
}

void CSettings::Remove(const String& AttributeName) try {
  SettingTable& settings = Settings();
  const std::size_t at = settings.Find(AttributeName);
  if (at == settings.Count()) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
  settings.Remove(at);
  Changed();
} catch (...) {
  PassOn(Label(u".Remove(AttributeName)"), {AttributeName});
}

String CSettings::Value(StringView Name) const { return Read(Name, Name); }

String CSettings::Value(const KeptName& Name) const { return Read(Name.Packed, Name.Text); }

template <class Key>
String CSettings::Read(const Key& key, StringView name) const {
  CheckInitialized(m_initialized);
  const std::size_t at = m_table.Exists() ? m_table.Find(key) : 0;
  if (!m_table.Exists() || at == m_table.Count()) {
    HuntERR::Raise(ErrorNumber::BadIndex, ClassName(),
                   u"Requested data attribute, " + String(name) + u", does not exist.");
  }
  return m_table.Value(at).ToString();
}

void CSettings::Value(StringView Name, StringView Value) try { Write(KeptName(Name), Shared(Value)); } catch (...) {
  PassOn(u"Let " + Label(u".Value(Name, Value)"), {Name, Value});
}

void CSettings::Value(const KeptName& Name, const PackedText& Value) try { Write(Name, Value); } catch (...) {
  PassOn(u"Let " + Label(u".Value(Name, Value)"), {Name.Text, Value.ToString()});
}

void CSettings::Write(const KeptName& name, const PackedText& value) {
  CheckAccessible(m_initialized);
  const std::size_t at = m_table.Find(name.Packed);
  if (at == m_table.Count()) {
    RecordMissing(name.Text);
    if (name.Text.empty()) Add({}, value.ToString()); // which refuses it
    m_table.Add(name.Packed, value);
    Changed();
  } else if (CSetting* object = m_table.Object(at)) {
    object->Value(value.ToString());
  } else {
    m_table.SetValue(at, value);
    Changed();
  }
}

Ref<IAttribute> CSettings::Item(const String& AttributeName) const try {
  const SettingTable& settings = Settings();
  const std::size_t at = settings.Find(AttributeName);
  if (at < settings.Count()) return ObjectOf(at);
  RecordMissing(AttributeName);
  return {};
} catch (...) {
  StopHere(LabelOfItem, {AttributeName});
  return {};
}

// A missing name is common and nobody's fault: it is recorded without unwinding.
void CSettings::RecordMissing(StringView AttributeName) {
  HuntERR::RecordStandard(ErrorNumber::InvalidArgument, LabelOfItem, AttributeName);
}

std::int32_t CSettings::Count() const try { return static_cast<std::int32_t>(Settings().Count()); } catch (...) {
  PassOn(u"Get " + Label(u".Count()"));
}

void CSettings::Clear() try {
  m_table.Create();
  Changed();
} catch (...) {
  PassOn(Label(u".Clear()"));
}

std::vector<Ref<IAttribute>> CSettings::NewEnum() const {
  std::vector<Ref<IAttribute>> settings;
  for (std::size_t at = 0; at < Settings().Count(); ++at) settings.push_back(ObjectOf(at));
  return settings;
}

Ref<CSetting> CSettings::ObjectOf(std::size_t at) const {
  if (CSetting* object = m_table.Object(at)) return Ref<CSetting>(object->shared_from_this());
  auto setting = New<CSetting>();
  setting->m_name = m_table.Name(at).ToString();
  setting->m_value = m_table.Value(at).ToString();
  setting->m_washedValue = m_table.Washed(at).ToString();
  setting->m_initialized = true;
  m_table.Show(at, *setting.Get(), m_listener);
  return setting;
}

} // namespace portico
