#pragma once

#include "document/log/LogErrors.h"
#include "logtool/ILogOutput.h"

#include <cstdint>
#include <ostream>

namespace portico::logtool {

/// A line for each entity that tells of an error: the file, the entity's number among those that can be read, what the
/// user had typed last, and the first line of what it says.
class ErrorsOutput final : public ILogOutput {
public:
  explicit ErrorsOutput(std::ostream& out) : m_out(out) {}

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;

private:
  std::ostream& m_out;
  std::string m_file;
  std::uint64_t m_number = 0;
  LogErrors m_errors;
};

} // namespace portico::logtool
