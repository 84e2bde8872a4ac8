#include "terminal/console/Diagnostic.h"

#include "framework/errors/HuntERR.h"

namespace portico::terminal {

std::string WhatFailed() {
  const String report = HuntERR::ErrDescription();
  const StringView description = Trim(StringView(report).substr(0, report.find(NewLine)));
  return description.empty() ? "error " + std::to_string(HuntERR::ErrNumber()) : ToUtf8(description);
}

} // namespace portico::terminal
