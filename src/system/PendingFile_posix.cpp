#include "system/PendingFile.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace portico::system {
namespace {

constexpr int MostNames = 100;
constexpr std::size_t CopyBytes = 65536;
constexpr mode_t Permissions = 07777;

int WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

/// From the beginning.
int Copy(int from, int to) {
  std::array<char, CopyBytes> buffer;
  off_t position = 0;
  for (;;) {
    const ssize_t count = pread(from, buffer.data(), buffer.size(), position);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) return 0;
    if (const int error = WriteAll(to, {buffer.data(), static_cast<std::size_t>(count)}); error != 0) return error;
    position += count;
  }
}

} // namespace

PendingFile::~PendingFile() { Discard(); }

void PendingFile::Discard() {
  if (!m_pendingPath.empty()) unlink(m_pendingPath.c_str());
  m_pendingPath.clear();
}

int PendingFile::Open() {
  struct stat state {};
  const bool exists = stat(m_path.c_str(), &state) == 0;
  if (!exists && errno != ENOENT) return errno;
  if (exists && !S_ISREG(state.st_mode)) {
    m_file = FileDescriptor(open(m_path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    return m_file.IsOpen() ? 0 : errno;
  }
  if (exists) {
    if (access(m_path.c_str(), W_OK) != 0) return errno;
    // A link stays a link.
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(m_path.c_str(), nullptr), &std::free);
    if (real != nullptr) m_path = real.get();
  }
  if (const int error = OpenBeside(); error != 0) return error;
  if (exists && fchmod(m_file.Get(), state.st_mode & Permissions) != 0) return errno;
  return 0;
}

int PendingFile::OpenBeside() {
  constexpr mode_t all = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // less what the user's mask takes
  int error = EEXIST;
  for (int i = 0; i < MostNames && error == EEXIST; ++i) {
    const std::string name = m_path + "." + std::to_string(getpid()) + "-" + std::to_string(i) + ".part";
    FileDescriptor file(open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, all));
    error = file.IsOpen() ? 0 : errno;
    if (error != 0) continue;
    m_file = std::move(file);
    m_pendingPath = name;
  }
  return error;
}

int PendingFile::Write(std::string_view bytes) { return WriteAll(m_file.Get(), bytes); }

int PendingFile::Prepend(std::string_view bytes) {
  if (m_pendingPath.empty()) return ESPIPE;
  const FileDescriptor written = std::move(m_file);
  const std::string name = std::exchange(m_pendingPath, {});
  m_file = FileDescriptor();
  int error = OpenBeside();
  if (error == 0) error = Write(bytes);
  if (error == 0) error = Copy(written.Get(), m_file.Get());
  unlink(name.c_str());
  return error;
}

int PendingFile::Commit() {
  if (m_pendingPath.empty()) return 0;
  // A full disk may show no sooner.
  if (fsync(m_file.Get()) != 0) return errno;
  if (rename(m_pendingPath.c_str(), m_path.c_str()) != 0) return errno;
  m_pendingPath.clear();
  return 0;
}

} // namespace portico::system
