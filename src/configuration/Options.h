#pragma once

#include "framework/text/text.h"

#include <span>

namespace portico {

/// What a persisted option may hold.
enum class OptionKind {
  Protocol,    ///< "SCPI" or "Other"
  Switch,      ///< "On" or "Off"
  Interval,    ///< milliseconds as text; 1 to 65535 elapse
  Command,     ///< any text
  Termination, ///< "Auto", "CR", "LF", "CRLF" or "LFCR"
};

/// An item that outlives the program, in the section "Configuration" of the settings store.
struct PersistedOption {
  StringView Name;
  StringView Default;
  OptionKind Kind;
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
