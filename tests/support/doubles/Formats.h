#pragma once

#include "platform/SelectionFormat.h"

#include <string>

namespace portico::test {

/// The values of a format that are set.
std::string FormatText(const SelectionFormat& format);

namespace Formats {

/// What text has that nobody has formatted.
SelectionFormat Standard();
/// Takes the changes that are set.
void Apply(SelectionFormat& format, const SelectionFormat& changes);
/// What differs is not set afterwards.
void Intersect(SelectionFormat& format, const SelectionFormat& other);

} // namespace Formats
} // namespace portico::test
