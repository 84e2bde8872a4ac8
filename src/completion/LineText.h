#pragma once

#include "framework/text/text.h"

#include <string>

namespace portico::completion {

/// One byte for each unit of a line, so that positions stay; units that SCPI does not know become a byte that it does
/// not know either.
std::string LineBytes(StringView line);

} // namespace portico::completion
