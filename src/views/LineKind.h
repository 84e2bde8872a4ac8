#pragma once

#include <cstdint>

namespace portico {

/// What a line of the command window is; `CPopALine` tells it.
enum class LineKind : std::int32_t {
  None = 0,
  CmdBlank = 1,
  CmdAutomatic = 2,   ///< begins with `AutomaticMarker`
  CmdInstruction = 3, ///< anything else: goes to the instrument
  CmdRemark = 4,      ///< begins with `RemarkWord`
  CmdResponse = 5,    ///< begins with `ResponseMarker`, or is italic to its line end
  CmdEnd = 6,         ///< no line: the window is empty
};

} // namespace portico
