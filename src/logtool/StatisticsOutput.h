#pragma once

#include "document/log/LogErrors.h"
#include "logtool/ILogOutput.h"

#include <cstdint>
#include <optional>
#include <ostream>

namespace portico::logtool {

/// Counts for each file, and for all of them if there are several.
class StatisticsOutput final : public ILogOutput {
public:
  explicit StatisticsOutput(std::ostream& out) : m_out(out) {}

  void BeginFile(const std::string& name) override;
  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;
  void CloseSession() override { EndSession(); }
  void EndFile() override;
  void End() override;

private:
  struct Counts {
    std::uint64_t Sessions = 0;
    std::uint64_t NotClosed = 0;
    std::uint64_t Instructions = 0;
    std::uint64_t Automatic = 0;
    std::uint64_t Responses = 0;
    std::uint64_t Others = 0;
    std::uint64_t Errors = 0;
    std::int64_t Seconds = 0;
    void Add(const Counts& more);
  };

  void EndSession();
  void Print(const std::string& name, const Counts& counts);

  std::ostream& m_out;
  std::string m_name;
  std::size_t m_files = 0;
  Counts m_file;
  Counts m_all;
  bool m_inSession = false;
  LogErrors m_errors;
  std::string m_first;
  std::string m_last;
};

/// Seconds since some day for a stamp, whose fraction is a number and no time; none for another text.
std::optional<std::int64_t> SecondsOf(std::string_view stamp);

} // namespace portico::logtool
