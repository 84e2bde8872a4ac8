#pragma once

#include <cstdint>

namespace portico::test {

/// As long as it lives, files that are closed to an ordinary user are so to this program too, should it run as the
/// superuser.
class OrdinaryUser {
public:
  OrdinaryUser();
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
  const unsigned m_user;
};

/// As long as it lives, no file of this process may grow beyond a size, as on a full disk.
class FileSizeLimit {
public:
  explicit FileSizeLimit(std::uint64_t bytes);
  ~FileSizeLimit();
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
  void (*const m_handler)(int);
  std::uint64_t m_old;
};

/// Makes this process the first of a session without a terminal, which would get the first one it opens. For a process
/// that a death test has made.
void LeadASession();

} // namespace portico::test
