#include "ui/base/KeptTimeout.h"

#include "framework/shared/Application.h"
#include "platform/IExtendedDriver.h"
#include "platform/ISettingsStore.h"

#include <cmath>

namespace portico::KeptTimeout {
namespace {

const String Section = u"Data";
const String Key = u"Timeout";

} // namespace

std::optional<std::int32_t> FromText(StringView Text) {
  const auto number = ReadNumber(Text);
  if (!number || std::trunc(*number) != *number || *number < ShortestTimeout || *number > LongestTimeout) return {};
  return static_cast<std::int32_t>(*number);
}

std::optional<std::int32_t> Read() { return FromText(gSettingsStore->GetSetting(ApplicationTitle, Section, Key, {})); }

void Save(std::int32_t Milliseconds) {
  gSettingsStore->SaveSetting(ApplicationTitle, Section, Key, ToText(std::int64_t{Milliseconds}));
}

} // namespace portico::KeptTimeout
