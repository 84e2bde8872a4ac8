#pragma once

namespace portico::terminal {

/// Keeps the places of standard streams that the caller has closed, or a connection would get their numbers and with
/// them the conversation. Such a stream still cannot be used. To be called before anything is opened.
void HoldClosedStandardStreams();

/// Somebody watches standard error, and standard output goes elsewhere: a progress line disturbs nobody.
bool IsProgressWelcome();

/// Standard output is a terminal.
bool IsOutputShown();

} // namespace portico::terminal
