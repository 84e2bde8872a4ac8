#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>

namespace portico::qt {

/// Shift, Ctrl and Alt as one number.
std::int32_t ShiftState(Qt::KeyboardModifiers modifiers);

/// The code of a key, as `FormEvents::KeyDown` has it; 0 for a key that has no code.
std::int32_t KeyCode(int key);

} // namespace portico::qt
