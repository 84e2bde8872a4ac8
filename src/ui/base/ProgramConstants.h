#pragma once

namespace portico {

/// The application's help file. Empty would mean that there is no help.
inline constexpr char16_t ApplicationHelpFile[] = u"TVPort.hlp";

} // namespace portico
