#pragma once

#include "framework/errors/ErrorRecord.h"

namespace portico::HuntERR {

/// Fills the current error and unwinds.
[[noreturn]] void Raise(std::int32_t Number, StringView Source, StringView Description, StringView HelpFile = {},
                        std::int32_t HelpContext = 0);
[[noreturn]] void Raise(ErrorRecord record);
/// Raises a standard number with the run time's own text and source.
[[noreturn]] void RaiseStandard(std::int32_t Number);
/// The record of such an error, to be recorded without raising it.
ErrorRecord StandardError(std::int32_t Number);

} // namespace portico::HuntERR
