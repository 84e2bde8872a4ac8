#include "configuration/CSettings.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"

namespace portico {

CSettings::Collection& CSettings::Settings() const {
  if (!m_settings) RaiseUnsetReference();
  return *m_settings;
}

void CSettings::Initialize() try {
  m_settings = std::make_unique<Collection>();
  m_initialized = true;
} catch (...) {
  PassOn(Label(u".Initialize"));
}

bool CSettings::IsDirty() const try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  bool answer = false;
  for (std::size_t i = 1; i <= m_settings->Count(); ++i) {
    answer = m_settings->Item(i)->IsDirty();
    if (!answer) break;
  }
  return answer;
} catch (...) {
  PassOn(Label(u".IsDirty()"));
}

void CSettings::Wash() try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  for (std::size_t i = 1; i <= m_settings->Count(); ++i) m_settings->Item(i)->Wash();
} catch (...) {
  PassOn(Label(u".Wash()"));
}

bool CSettings::IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  if (Count() != Other->Count()) return false;
  for (std::size_t i = 1; i <= m_settings->Count(); ++i) {
    const Ref<CSetting>& setting = m_settings->Item(i);
    if (!setting->IsSame(Other->Item(setting->Name()), CaseSensitive)) return false;
  }
  return true;
}

Ref<IAttribute> CSettings::Add(const String& AttributeName, const String& AttributeValue) try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  auto setting = New<CSetting>();
  HuntERR::Check(bool(setting), ErrorNumber::CannotCreate, u"Cannot create a new attribute.");
  setting->Initialize(AttributeName, AttributeValue);
  m_settings->Add(setting, AttributeName);
  return setting;
} catch (...) {
  PassOn(Label(u".Add(AttributeName, AttributeValue)"), {AttributeName, AttributeValue});
}

void CSettings::Remove(const String& AttributeName) try { Settings().Remove(AttributeName); } catch (...) {
  PassOn(Label(u".Remove(AttributeName)"), {AttributeName});
}

const String& CSettings::Value(const String& Name) const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  const Ref<CSetting>* setting = m_settings->Find(Name);
  if (setting == nullptr) {
    HuntERR::Raise(ErrorNumber::BadIndex, ClassName(), u"Requested data attribute, " + Name + u", does not exist.");
  }
  return (*setting)->Value();
}

void CSettings::Value(const String& Name, const String& Value) try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, PropertyBeforeInitialize);
  if (const auto setting = Item(Name)) {
    setting->Value(Value);
  } else {
    Add(Name, Value);
  }
} catch (...) {
  PassOn(u"Let " + Label(u".Value(Name, Value)"), {Name, Value});
}

Ref<IAttribute> CSettings::Item(const String& AttributeName) const try {
  if (const Ref<CSetting>* setting = Settings().Find(AttributeName)) return *setting;
  // A missing name is common and nobody's fault: it is recorded without unwinding.
  RecordHere(HuntERR::StandardError(ErrorNumber::InvalidArgument), u"Get " + Label(u".Item(AttributeName)"),
             {AttributeName});
  return {};
} catch (...) {
  StopHere(u"Get " + Label(u".Item(AttributeName)"), {AttributeName});
  return {};
}

std::int32_t CSettings::Count() const try { return static_cast<std::int32_t>(Settings().Count()); } catch (...) {
  PassOn(u"Get " + Label(u".Count()"));
}

void CSettings::Clear() try { m_settings = std::make_unique<Collection>(); } catch (...) {
  PassOn(Label(u".Clear()"));
}

std::vector<Ref<IAttribute>> CSettings::NewEnum() const {
  std::vector<Ref<IAttribute>> settings;
  for (std::size_t i = 1; i <= Settings().Count(); ++i) settings.push_back(Settings().Item(i));
  return settings;
}

} // namespace portico
