#pragma once

#include "platform/IEventLoop.h"
#include "platform/IInstrumentList.h"
#include "platform/IInstrumentSearch.h"

#include <cstdint>
#include <iosfwd>

namespace portico::terminal {

/// Prints the names of instruments, a line each: those that are known, and then those that are found, as they come,
/// with what they say of themselves behind a tab. Returns when the time is over, 1 to `LongestInterval` milliseconds;
/// false if something could not be written, at once.
bool PrintInstruments(IInstrumentList& known, IInstrumentSearch& search, std::int32_t milliseconds, IEventLoop& loop,
                      std::ostream& output);

} // namespace portico::terminal
