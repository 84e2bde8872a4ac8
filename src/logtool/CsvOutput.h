#pragma once

#include "logtool/ILogOutput.h"

#include <ostream>

namespace portico::logtool {

/// A table by RFC 4180 with a line of headings: file, number of the session in it, when the session was opened, kind,
/// stamp, text without the line end behind it.
class CsvOutput final : public ILogOutput {
public:
  explicit CsvOutput(std::ostream& out);

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;

private:
  std::ostream& m_out;
  std::string m_file;
  std::size_t m_number = 0;
  std::string m_start; // of each row of the session
};

} // namespace portico::logtool
