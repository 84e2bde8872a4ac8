#include "configuration/CSetting.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {

CSetting::~CSetting() {
  if (m_owner != nullptr) m_owner->Forget(*this);
}

void CSetting::TellOwner() const {
  if (m_owner != nullptr) m_owner->TakeOver(*this);
}

void CSetting::Initialize(const String& Name, const String& Value) try {
  HuntERR::Check(!Name.empty(), ErrorNumber::InvalidArgument, u"Setting name cannot be an empty string.");
  m_name = Name;
  m_value = Value;
  m_washedValue = Value;
  m_initialized = true;
  TellOwner();
} catch (...) {
  PassOn(Label(u".Initialize"));
}

// True when nothing has changed: the collection's own answer is built on this sense.
bool CSetting::IsDirty() const try { return m_washedValue == m_value; } catch (...) {
  PassOn(Label(u".IsDirty()"));
}

void CSetting::Wash() try {
  m_washedValue = m_value;
  TellOwner();
} catch (...) {
  PassOn(Label(u".Wash()"));
}

bool CSetting::IsSame(const Ref<IAttribute>& OtherSetting, bool CaseSensitive) const try {
  CheckInitialized(m_initialized);
  if (!OtherSetting || !EqualNoCase(m_name, OtherSetting->Name())) return false;
  return CaseSensitive ? m_value == OtherSetting->Value() : EqualNoCase(m_value, OtherSetting->Value());
} catch (...) {
  PassOn(Label(u".IsSame(OtherSetting, CaseSensitive)"), {OtherSetting, CaseSensitive});
}

const String& CSetting::Value() const try {
  CheckAccessible(m_initialized);
  return m_value;
} catch (...) {
  PassOn(Label(u".Value"));
}

void CSetting::Value(const String& newValue) try {
  CheckAccessible(m_initialized);
  m_value = newValue;
  TellOwner();
} catch (...) {
  PassOn(Label(u".Value(newValue)"), {newValue});
}

const String& CSetting::Name() const try {
  CheckAccessible(m_initialized);
  return m_name;
} catch (...) {
  PassOn(Label(u".Name"));
}

void CSetting::Name(const String& newValue) try {
  CheckAccessible(m_initialized);
  m_name = newValue;
  TellOwner();
} catch (...) {
  PassOn(Label(u".Name(newValue)"), {newValue});
}

} // namespace portico
