#pragma once

#include "framework/errors/ErrorRecord.h"
#include "framework/errors/Value.h"

#include <ctime>
#include <optional>

namespace portico::ErrorReport {

/// The procedure that an error passes.
struct Passage {
  StringView MethodName;
  const Params& Values;
  std::optional<std::tm> Time = {}; ///< if it is not now
};

/// The report of `error` with one more stack line. If it has passed a tail before, its description is the report so
/// far; otherwise a header comes first. All that goes in is captured now, the text is composed when it is read.
LazyText Compose(const ErrorRecord& error, bool passedBefore, const Passage& passage, const String& collected);

} // namespace portico::ErrorReport
