#pragma once

#include <QCursor>

#include <cstdint>

namespace portico::qt {

/// The pointer of a shape. `OwnPointer` is none, and raises `BadPropertyValue` as every other number does that is no
/// shape's.
QCursor PointerShape(std::int32_t shape);

} // namespace portico::qt
