#pragma once

#include "framework/text/text.h"

#include <cstddef>

namespace portico::numbers {

/// Why a text holds no numbers.
struct Fault {
  std::size_t Place; ///< where in the text, in UTF-16 units from 0
  String Text;       ///< one sentence, which tells the place, too
};

} // namespace portico::numbers
