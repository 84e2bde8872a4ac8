#include "configuration/CSettings.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>
#include <typeinfo>

namespace portico {

namespace {

constexpr std::size_t UsualCount = 2; // every data entity has two from the start
constexpr StringView LabelOfItem = u"Get CSettings.Item(AttributeName)";

} // namespace

CSettings::~CSettings() {
  for (SettingRecord& record : m_records) Release(record);
}

CSettings::Records& CSettings::Settings() const {
  if (!m_exists) RaiseUnsetReference();
  return m_records;
}

void CSettings::Initialize() try {
  Records records;
  records.reserve(UsualCount);
  Replace(std::move(records));
  m_initialized = true;
} catch (...) {
  PassOn(Label(u".Initialize"));
}

bool CSettings::IsDirty() const try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  return !m_records.empty() &&
         std::all_of(m_records.begin(), m_records.end(), [](const SettingRecord& record) { return record.IsWashed(); });
} catch (...) {
  PassOn(Label(u".IsDirty()"));
}

void CSettings::Wash() try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  for (SettingRecord& record : m_records) {
    if (record.Object() != nullptr) {
      record.Object()->Wash();
    } else {
      record.Wash();
    }
  }
} catch (...) {
  PassOn(Label(u".Wash()"));
}

bool CSettings::IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  const IAttributes* other = Other.Get();
  if (other != nullptr && typeid(*other) == typeid(CSettings)) {
    return IsSame(static_cast<const CSettings&>(*other), CaseSensitive);
  }
  if (Count() != Other->Count()) return false;
  for (SettingRecord& record : m_records) {
    const Ref<CSetting> setting = ObjectOf(record);
    if (!setting->IsSame(Other->Item(setting->Name()), CaseSensitive)) return false;
  }
  return true;
}

bool CSettings::IsSame(const CSettings& Other, bool CaseSensitive) const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  if (Count() != Other.Count()) return false;
  return std::all_of(m_records.begin(), m_records.end(), [&](const SettingRecord& record) {
    const SettingRecord* other = Other.FindRecord(record.Name());
    if (other == nullptr) RecordMissing(record.Name().ToString());
    if (other == nullptr || !EqualNoCase(record.Name(), other->Name())) return false;
    return CaseSensitive ? record.Value() == other->Value() : EqualNoCase(record.Value(), other->Value());
  });
}

Ref<IAttribute> CSettings::Add(const String& AttributeName, const String& AttributeValue) try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  auto setting = New<CSetting>();
  HuntERR::Check(bool(setting), ErrorNumber::CannotCreate, u"Cannot create a new attribute.");
  setting->Initialize(AttributeName, AttributeValue);
  if (FindRecord(AttributeName) != nullptr) HuntERR::RaiseStandard(ErrorNumber::DuplicateKey);
  m_records.emplace_back(AttributeName, AttributeValue);
  m_records.back().SetObject(setting.Get());
  setting->m_owner = this;
  Changed();
  return setting;
} catch (...) {
  PassOn(Label(u".Add(AttributeName, AttributeValue)"), {AttributeName, AttributeValue});
}

void CSettings::Remove(const String& AttributeName) try {
  Records& records = Settings();
  SettingRecord* record = FindRecord(AttributeName);
  if (record == nullptr) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
  Release(*record);
  records.erase(records.begin() + (record - records.data()));
  Changed();
} catch (...) {
  PassOn(Label(u".Remove(AttributeName)"), {AttributeName});
}

String CSettings::Value(const String& Name) const {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  const PackedText* value = Find(Name);
  if (value == nullptr) {
    HuntERR::Raise(ErrorNumber::BadIndex, ClassName(), u"Requested data attribute, " + Name + u", does not exist.");
  }
  return value->ToString();
}

void CSettings::Value(const String& Name, const String& Value) try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, PropertyBeforeInitialize);
  SettingRecord* record = FindRecord(Name);
  if (record == nullptr) {
    RecordMissing(Name);
    if (Name.empty()) Add(Name, Value); // which refuses it
    m_records.emplace_back(Name, Value);
    Changed();
  } else if (record->Object() != nullptr) {
    record->Object()->Value(Value);
  } else {
    record->SetValue(Shared(Value));
    Changed();
  }
} catch (...) {
  PassOn(u"Let " + Label(u".Value(Name, Value)"), {Name, Value});
}

Ref<IAttribute> CSettings::Item(const String& AttributeName) const try {
  Settings();
  if (SettingRecord* record = FindRecord(AttributeName)) return ObjectOf(*record);
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

std::int32_t CSettings::Count() const try { return static_cast<std::int32_t>(Settings().size()); } catch (...) {
  PassOn(u"Get " + Label(u".Count()"));
}

void CSettings::Clear() try {
  Records records;
  records.reserve(UsualCount);
  Replace(std::move(records));
} catch (...) {
  PassOn(Label(u".Clear()"));
}

std::vector<Ref<IAttribute>> CSettings::NewEnum() const {
  std::vector<Ref<IAttribute>> settings;
  for (SettingRecord& record : Settings()) settings.push_back(ObjectOf(record));
  return settings;
}

const PackedText* CSettings::Find(StringView Name) const {
  const SettingRecord* record = FindRecord(Name);
  return record == nullptr ? nullptr : &record->Value();
}

bool CSettings::HasRenamed() const {
  return std::any_of(m_records.begin(), m_records.end(),
                     [](const SettingRecord& record) { return record.IsRenamed(); });
}

template <class Text>
SettingRecord* CSettings::FindRecord(const Text& key) const {
  const auto found = std::find_if(m_records.begin(), m_records.end(),
                                  [&key](const SettingRecord& record) { return EqualNoCase(record.Key(), key); });
  return found == m_records.end() ? nullptr : &*found;
}

Ref<CSetting> CSettings::ObjectOf(SettingRecord& record) const {
  if (record.Object() != nullptr) return Ref<CSetting>(record.Object()->shared_from_this());
  auto setting = New<CSetting>();
  setting->m_name = record.Name().ToString();
  setting->m_value = record.Value().ToString();
  setting->m_washedValue = record.Washed().ToString();
  setting->m_initialized = true;
  record.SetObject(setting.Get());
  setting->m_owner = const_cast<CSettings*>(this); // who holds the object may write through it
  return setting;
}

void CSettings::Replace(Records records) noexcept {
  for (SettingRecord& record : m_records) Release(record);
  m_records = std::move(records);
  m_exists = true;
  Changed();
}

void CSettings::Release(SettingRecord& record) noexcept {
  if (record.Object() != nullptr) record.Object()->m_owner = nullptr;
}

void CSettings::Changed() const noexcept {
  if (m_observer != nullptr) m_observer->SettingsChanged();
}

void CSettings::TakeOver(const CSetting& setting) {
  RecordOf(setting).Set(Shared(setting.m_name), Shared(setting.m_value), Shared(setting.m_washedValue));
  Changed();
}

void CSettings::Forget(const CSetting& setting) noexcept { RecordOf(setting).SetObject(nullptr); }

SettingRecord& CSettings::RecordOf(const CSetting& setting) {
  return *std::find_if(m_records.begin(), m_records.end(),
                       [&setting](const SettingRecord& record) { return record.Object() == &setting; });
}

} // namespace portico
