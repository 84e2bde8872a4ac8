#pragma once

#include "logtool/ILogOutput.h"

#include <ostream>

namespace portico::logtool {

/// A line for each line of the conversation: stamp, mark, text. The marks are those of portico-run. Remarks tell where
/// a session begins, and a file if there are several.
class ShowOutput final : public ILogOutput {
public:
  ShowOutput(std::ostream& out, bool namesFiles) : m_out(out), m_namesFiles(namesFiles) {}

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;

private:
  std::ostream& m_out;
  bool m_namesFiles;
};

} // namespace portico::logtool
