#include "ui/base/WindowSettings.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"
#include "platform/ISettingsStore.h"

namespace portico {

String WindowSettings::Read(StringView key, StringView standard) const {
  return gSettingsStore->GetSetting(ApplicationTitle, m_section, String(key), String(standard));
}

void WindowSettings::Save(StringView key, StringView value) const {
  gSettingsStore->SaveSetting(ApplicationTitle, m_section, String(key), String(value));
}

double WindowSettings::ReadSingle(StringView key, StringView standard) const {
  const auto number = ReadNumber(Read(key, standard));
  if (!number) HuntERR::RaiseStandard(ErrorNumber::TypeMismatch);
  return static_cast<double>(static_cast<float>(*number));
}

void WindowSettings::SaveSingle(StringView key, double newValue) const {
  Save(key, ToText(static_cast<double>(static_cast<float>(newValue))));
}

} // namespace portico
