#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>

namespace portico::qt {

/// Shift, Ctrl and Alt as one number.
std::int32_t ShiftState(Qt::KeyboardModifiers modifiers);

/// The code of a key, as `FormEvents::KeyDown` has it; 0 for one that has none.
std::int32_t KeyCode(int key);

} // namespace portico::qt
