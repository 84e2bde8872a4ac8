#pragma once

#include "logtool/ILogOutput.h"
#include "logtool/ToolOptions.h"

#include <memory>
#include <ostream>

namespace portico::logtool {

/// The output that was asked for; the stream must outlive it.
std::unique_ptr<ILogOutput> MakeOutput(const ToolOptions& options, std::ostream& out);

} // namespace portico::logtool
