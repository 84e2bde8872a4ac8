#include "support/ProcessRights.h"

#include <gtest/gtest.h>

#include <csignal>
#include <utility>

#include <sys/resource.h>
#include <unistd.h>

namespace portico::test {
namespace {

constexpr uid_t Nobody = 65534;

/// Answers the limit that held before.
std::uint64_t LimitFiles(std::uint64_t bytes) {
  rlimit limit{};
  EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const std::uint64_t old = std::exchange(limit.rlim_cur, bytes);
  EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  return old;
}

} // namespace

OrdinaryUser::OrdinaryUser() : m_user(::geteuid()) { EXPECT_TRUE(m_user != 0 || ::seteuid(Nobody) == 0); }

OrdinaryUser::~OrdinaryUser() { EXPECT_EQ(::seteuid(m_user), 0); }

FileSizeLimit::FileSizeLimit(std::uint64_t bytes)
    : m_handler(std::signal(SIGXFSZ, SIG_IGN)), m_old(LimitFiles(bytes)) {}

FileSizeLimit::~FileSizeLimit() {
  LimitFiles(m_old);
  std::signal(SIGXFSZ, m_handler);
}

void LeadASession() { EXPECT_NE(::setsid(), -1); }

} // namespace portico::test
