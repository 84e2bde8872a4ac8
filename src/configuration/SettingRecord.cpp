#include "configuration/SettingRecord.h"

namespace portico {

void SettingRecord::Set(PackedText name, PackedText value, PackedText washed) {
  const bool plain = name == m_key && washed == value;
  if (!plain) {
    Rest& rest = Exceptions();
    rest.Name = name == m_key ? std::optional<PackedText>() : std::move(name);
    rest.Washed = washed == value ? std::optional<PackedText>() : std::move(washed);
  } else if (m_rest) {
    m_rest->Name.reset();
    m_rest->Washed.reset();
    DropEmptyRest();
  }
  m_value = std::move(value);
}

void SettingRecord::SetObject(CSetting* object) {
  if (object == nullptr && !m_rest) return;
  Exceptions().Object = object;
  DropEmptyRest();
}

SettingRecord::Rest& SettingRecord::Exceptions() {
  if (!m_rest) m_rest = std::make_unique<Rest>();
  return *m_rest;
}

void SettingRecord::DropEmptyRest() {
  if (!m_rest->Name && !m_rest->Washed && m_rest->Object == nullptr) m_rest.reset();
}

} // namespace portico
