#pragma once

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

/// Makes this process the first of a session without a terminal, which would get the first one it opens. For a process
/// that a death test has made.
void LeadASession();

} // namespace portico::test
