#pragma once

#include "logtool/ILogOutput.h"

#include <cstddef>
#include <optional>
#include <ostream>
#include <string_view>

namespace portico::logtool {

/// Writes each block of the answers to a file of its own in a folder, which is made if there is none: `block-1.png`,
/// `block-2.bin`, as they come. For each file a line tells its name, its size, and what was asked. A file that stands
/// there already is left alone. Once a file could not be written no more are tried.
class BlocksOutput final : public ILogOutput {
public:
  /// `session` is the one that is wanted, from 1; without it, all are.
  BlocksOutput(std::ostream& out, std::string folder, std::optional<std::size_t> session)
      : m_out(out), m_folder(std::move(folder)), m_wanted(session) {}

  void OpenSession(const Session& session) override;
  std::string Add(const LogEntry& entry) override;

private:
  /// What is wrong; empty if all is well.
  std::string Write(std::string_view bytes);

  std::ostream& m_out;
  const std::string m_folder;
  const std::optional<std::size_t> m_wanted;
  std::size_t m_session = 0;
  String m_asked;
  std::size_t m_blocks = 0;
  bool m_hasFailed = false;
};

} // namespace portico::logtool
