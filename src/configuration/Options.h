#pragma once

#include "framework/shared/ConfigurationItems.h"

#include <span>

namespace portico {

/// An item that outlives the program, in the section "Configuration" of the settings store.
struct PersistedOption {
  AnyItemKey Key;
  StringView Default;
};

/// All of them, in the order in which they are restored and saved.
std::span<const PersistedOption> PersistedOptions();

/// A working item and where each protocol takes its value from: the name of a persisted option, or a fixed text.
struct WorkingItem {
  StringView Name;
  StringView ScpiOption;
  StringView OtherOption; ///< empty where `OtherFixed` counts
  StringView OtherFixed;
};

/// In the order in which they are applied.
std::span<const WorkingItem> WorkingItems();

} // namespace portico
