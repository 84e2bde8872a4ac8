#pragma once

#include "logtool/ILogOutput.h"

#include <ostream>

namespace portico::logtool {

/// The instructions that the user typed, as a command file.
class CommandOutput final : public ILogOutput {
public:
  explicit CommandOutput(std::ostream& out) : m_out(out) {}

  /// An instruction that no command file can hold is left out.
  std::string Add(const LogEntry& entry) override;

private:
  std::ostream& m_out;
};

} // namespace portico::logtool
