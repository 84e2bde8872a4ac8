#pragma once

#include <QCursor>

#include <cstdint>

namespace portico::qt {

/// The pointer of a shape. `OwnPointer`, and a number that is no shape, raise `BadPropertyValue`.
QCursor PointerShape(std::int32_t shape);

} // namespace portico::qt
