#include "server/PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace portico::server {

using system::FileDescriptor;

PseudoTerminal::PseudoTerminal() : m_farEnd(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  std::array<char, 64> name{};
  const int farEnd = m_farEnd.Get();
  if (farEnd >= 0 && grantpt(farEnd) == 0 && unlockpt(farEnd) == 0 &&
      ptsname_r(farEnd, name.data(), name.size()) == 0) {
    m_name = name.data();
    m_nearEnd = FileDescriptor(open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  }
  termios settings{};
  if (!m_nearEnd.IsOpen() || tcgetattr(m_nearEnd.Get(), &settings) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot make a pseudo-terminal");
  }
  cfmakeraw(&settings);
  tcsetattr(m_nearEnd.Get(), TCSANOW, &settings);
}

} // namespace portico::server
