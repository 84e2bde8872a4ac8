#include "support/ProcessRights.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace portico::test {
namespace {

constexpr uid_t Nobody = 65534;

} // namespace

OrdinaryUser::OrdinaryUser() : m_user(::geteuid()) { EXPECT_TRUE(m_user != 0 || ::seteuid(Nobody) == 0); }

OrdinaryUser::~OrdinaryUser() { EXPECT_EQ(::seteuid(m_user), 0); }

void LeadASession() { EXPECT_NE(::setsid(), -1); }

} // namespace portico::test
