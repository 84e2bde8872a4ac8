#pragma once

namespace portico {

/// Thrown by the event loop when the program is to end. It is no error: every tail, `TryUpdate` and every handler lets
/// it pass without a report, and nothing more is sent on its way up. Deliberately not a `std::exception`.
struct Quit {};

} // namespace portico
