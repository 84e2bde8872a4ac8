#pragma once

#include "logtool/ILogOutput.h"

#include <ostream>

namespace portico::logtool {

/// One array of objects: file, number of the session in it, when the session was opened and closed (null if it never
/// was), kind, stamp, text as it was.
class JsonOutput final : public ILogOutput {
public:
  explicit JsonOutput(std::ostream& out) : m_out(out) { m_out << "["; }

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;
  void End() override { m_out << (m_first ? "]\n" : "\n]\n"); }

private:
  std::ostream& m_out;
  bool m_first = true;
  std::string m_file;
  std::size_t m_number = 0;
  std::string m_start; // of each object of the session
};

/// UTF-8 as a string of JSON, quotes included.
std::string JsonString(std::string_view text);

} // namespace portico::logtool
