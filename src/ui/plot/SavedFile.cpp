#include "ui/plot/SavedFile.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <cerrno>
#include <system_error>

namespace portico {
namespace {

/// The file that a name leads to.
std::filesystem::path Resolved(const std::filesystem::path& path) {
  std::error_code fault;
  auto resolved = std::filesystem::canonical(path, fault);
  return fault ? path : resolved;
}

bool IsWrittenBeside(const std::filesystem::path& path) {
  std::error_code fault;
  const auto status = std::filesystem::status(path, fault);
  return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

} // namespace

SavedFile::SavedFile(const String& path)
    : m_name(path), m_target(Resolved(std::filesystem::path(path))), m_written(m_target) {
  if (IsWrittenBeside(m_target)) m_written += ".part";
  errno = 0;
  m_file.open(m_written, std::ios::binary | std::ios::trunc);
  Check(m_file.is_open());
}

SavedFile::~SavedFile() {
  if (m_isKept || m_written == m_target) return;
  m_file.close();
  std::error_code ignored;
  std::filesystem::remove(m_written, ignored);
}

void SavedFile::Write(std::string_view bytes) {
  errno = 0;
  m_file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  Check(m_file.good());
}

void SavedFile::Keep() {
  errno = 0;
  m_file.close();
  Check(!m_file.fail());
  if (m_written != m_target) {
    std::error_code fault;
    std::filesystem::rename(m_written, m_target, fault);
    errno = fault.value();
    Check(!fault);
  }
  m_isKept = true;
}

void SavedFile::Check(bool isDone) const {
  if (isDone) return;
  const String reason =
      errno == 0 ? String(u"it cannot be written") : FromUtf8(std::generic_category().message(errno)).Text;
  HuntERR::Raise(ErrorNumber::CannotCarryOut, u"SavedFile", m_name + u" was not saved: " + reason + u".");
}

} // namespace portico
