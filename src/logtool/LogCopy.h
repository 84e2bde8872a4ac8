#pragma once

#include "logtool/ILogOutput.h"
#include "logtool/LogSelection.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>

namespace portico::logtool {

/// Writes what is selected of several logs as one log, with all its attributes: sessions and entities in the order in
/// which they come, and as they are but for stamps. A stamp that is not behind those of its second so far takes the
/// next number, since a log that holds one twice cannot be viewed; so do those of a single log that was written so.
class LogCopy final : public ILogOutput {
public:
  LogCopy(std::ostream& out, LogSelection selection) : m_out(out), m_selection(std::move(selection)) {}

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Take(const LogElement& element) override;
  void CloseSession() override;
  void EndFile() override { CloseSession(); }
  void End() override;

private:
  void WriteHead();
  void WriteTag();
  std::string Unique(std::string_view stamp);

  std::ostream& m_out;
  LogSelection m_selection;
  bool m_hasHead = false;
  bool m_isSelected = false; // the session that is being read
  bool m_isOpen = false;     // its tag has been written
  std::size_t m_session = 0; // of the file, from 1
  Session m_tag;
  std::map<std::string, std::int64_t, std::less<>> m_next; // the number that a second has not had yet
};

} // namespace portico::logtool
