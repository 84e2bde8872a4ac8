#include "document/log/LogFile.h"

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace portico {
namespace {

[[noreturn]] void Fail() { throw std::system_error(errno, std::generic_category()); }

class OpenFile final : public ILogFile {
public:
  explicit OpenFile(int descriptor) : m_descriptor(descriptor) {}
  ~OpenFile() override {
    if (m_descriptor >= 0) close(m_descriptor);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  struct stat Status() const {
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0) Fail();
    return status;
  }

  /// A look that is kept.
  const struct stat& Look() { return m_status = Status(); }

  LogFileIdentity Identity() const override { return IdentityOf(Status()); }
  LogFileIdentity WhenOpened() const override { return IdentityOf(m_status); }

  std::size_t Read(std::uint64_t position, char* buffer, std::size_t size) const override {
    std::size_t done = 0;
    while (done < size) {
      const auto count = pread(m_descriptor, buffer + done, size - done, static_cast<off_t>(position + done));
      if (count == 0) break;
      if (count < 0 && errno != EINTR) Fail();
      if (count > 0) done += static_cast<std::size_t>(count);
    }
    return done;
  }

  void Write(std::uint64_t position, std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto count = pwrite(m_descriptor, bytes.data(), bytes.size(), static_cast<off_t>(position));
      if (count < 0 && errno != EINTR) Fail();
      if (count <= 0) continue;
      position += static_cast<std::uint64_t>(count);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void Truncate(std::uint64_t size) override {
    while (ftruncate(m_descriptor, static_cast<off_t>(size)) != 0) {
      if (errno != EINTR) Fail();
    }
  }

  /// Others hold the lock for one save. One that is held longer must not hold up a conversation. False if it was free.
  bool Lock(int kind, const Event<>& aboutToWait) const {
    constexpr int attempts = 1000;
    constexpr timespec pause{0, 1'000'000};
    bool hasWaited = false;
    for (int attempt = 1; flock(m_descriptor, kind | LOCK_NB) != 0; ++attempt) {
      if (errno != EWOULDBLOCK && errno != EINTR) break; // where there are no locks it must go without
      if (attempt == attempts) Fail();
      if (!std::exchange(hasWaited, true)) aboutToWait();
      nanosleep(&pause, nullptr);
    }
    return hasWaited;
  }
  /// The lock of a file that nobody else knows.
  void LockNew() const { flock(m_descriptor, LOCK_EX | LOCK_NB); }

  void Synchronize() const {
    if (fsync(m_descriptor) != 0 && errno != EINVAL) Fail();
  }

  /// Closing one of two descriptors tells what the disk has to say, and keeps the lock.
  void Settle() const {
    const int descriptor = fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0 || close(descriptor) != 0) Fail();
  }

  void Close() override {
    if (close(std::exchange(m_descriptor, -1)) != 0 && errno != EINTR) Fail();
  }

  int Descriptor() const { return m_descriptor; }

private:
  static LogFileIdentity IdentityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
            static_cast<std::uint64_t>(status.st_size)};
  }

  int m_descriptor;
  struct stat m_status {};
};

/// A new file beside another, removed again unless it has taken the other's place.
class NewFile {
public:
  explicit NewFile(const std::filesystem::path& target)
      : m_target(target),
        m_path(target.parent_path() / (".portico-log." + std::to_string(std::random_device()()) + ".new")) {
    const int descriptor = open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) Fail();
    m_file = std::make_unique<OpenFile>(descriptor);
  }
  ~NewFile() {
    if (!m_path.empty()) unlink(m_path.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void Fill(const std::function<void(const ILogDisk::Sink&)>& write) {
    std::uint64_t size = 0;
    write([&](std::string_view bytes) {
      m_file->Write(size, bytes);
      size += bytes.size();
    });
  }

  /// No file if there is another by now.
  std::unique_ptr<OpenFile> TakeFreePlace() {
    m_file->LockNew();
    m_file->Settle();
    if (link(m_path.c_str(), m_target.c_str()) == 0) return std::move(m_file);
    if (errno == EEXIST && LogDisk().Exists(m_target)) return {};
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) Fail();
    return TakePlace(); // where a file cannot have two names
  }

  /// Nobody else can write the file before the caller has let it go.
  std::unique_ptr<OpenFile> TakePlace() {
    m_file->LockNew();
    struct stat old {};
    if (stat(m_target.c_str(), &old) == 0) {
      // What stood there may be all that somebody has: the new bytes are on the disk first.
      if (fchmod(m_file->Descriptor(), old.st_mode & 07777U) != 0) Fail();
      m_file->Synchronize();
    }
    if (rename(m_path.c_str(), m_target.c_str()) != 0) Fail();
    m_path.clear();
    return std::move(m_file);
  }

private:
  std::filesystem::path m_target;
  std::filesystem::path m_path;
  std::unique_ptr<OpenFile> m_file;
};

/// The system would end the name at a zero character, and take another file.
bool IsPath(const std::string& path) { return !path.empty() && path.find('\0') == std::string::npos; }

void CheckPath(const std::string& path) {
  if (!IsPath(path)) throw std::system_error(EINVAL, std::generic_category());
}

/// Behind symbolic links, so that a link stays one.
std::filesystem::path Resolved(std::filesystem::path path) {
  constexpr int mostLinks = 40;
  std::error_code fault;
  for (int links = 0; links < mostLinks && std::filesystem::is_symlink(path, fault); ++links) {
    path = path.parent_path() / std::filesystem::read_symlink(path, fault);
  }
  return path;
}

std::unique_ptr<OpenFile> OpenFileAt(const std::string& path, int mode) {
  int descriptor = -1;
  do { // without waiting, because a named pipe would wait for its other end
    descriptor = open(path.c_str(), mode | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0 && errno == ENOENT) return {};
  if (descriptor < 0) Fail();
  return std::make_unique<OpenFile>(descriptor);
}

bool IsAt(const std::string& path, const struct stat& status) {
  struct stat named {};
  return stat(path.c_str(), &named) == 0 && named.st_dev == status.st_dev && named.st_ino == status.st_ino;
}

} // namespace

bool LogDisk::Exists(const std::string& path) const {
  struct stat status {};
  return IsPath(path) && stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::unique_ptr<ILogFile> LogDisk::Open(const std::string& path, Access access) {
  CheckPath(path);
  for (;;) {
    auto file = OpenFileAt(path, access == Access::ReadAndWrite ? O_RDWR : O_RDONLY);
    if (!file) return {};
    const bool hasWaited =
        access != Access::Read && file->Lock(access == Access::ReadAndWrite ? LOCK_EX : LOCK_SH, AboutToWait);
    const auto& status = file->Look();
    if (!S_ISREG(status.st_mode)) throw std::system_error(EINVAL, std::generic_category());
    if (access == Access::Read) return file;
    // Whoever had the lock may have put another in its place. Where nobody had, a file that has its one name still had
    // it a moment ago: what happens to the name from here on happens behind the save.
    if ((!hasWaited && status.st_nlink == 1) || IsAt(path, status)) return file;
  }
}

void LogDisk::Remove(const std::string& path) {
  struct stat status {};
  CheckPath(path);
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  if (unlink(Resolved(path).c_str()) != 0) Fail();
}

std::unique_ptr<ILogFile> LogDisk::Create(const std::string& path, const std::function<void(const Sink&)>& write) {
  CheckPath(path);
  NewFile file(Resolved(path));
  file.Fill(write);
  return file.TakeFreePlace();
}

std::unique_ptr<ILogFile> LogDisk::Replace(const std::string& path, const std::function<void(const Sink&)>& write) {
  CheckPath(path);
  NewFile file(Resolved(path));
  file.Fill(write);
  return file.TakePlace();
}

} // namespace portico
