#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <optional>

namespace portico {

/// The driver's time-out as the user has set it, which the settings store keeps. Needs `gSettingsStore`.
namespace KeptTimeout {

/// The milliseconds that a text says: a whole number that a driver takes.
std::optional<std::int32_t> FromText(StringView Text);

/// None as long as the user has set none.
std::optional<std::int32_t> Read();
void Save(std::int32_t Milliseconds);

} // namespace KeptTimeout
} // namespace portico
