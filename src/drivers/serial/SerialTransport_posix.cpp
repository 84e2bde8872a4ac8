#include "drivers/serial/SerialTransport.h"

#include "drivers/SteadyClock.h"
#include "drivers/serial/LineDrain.h"
#include "system/DescriptorWait.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace portico::drivers {
namespace {

struct Speed {
  unsigned BitsPerSecond;
  speed_t Code;
};

constexpr std::array Speeds = {
    Speed{50, B50},           Speed{75, B75},           Speed{110, B110},         Speed{134, B134},
    Speed{150, B150},         Speed{200, B200},         Speed{300, B300},         Speed{600, B600},
    Speed{1200, B1200},       Speed{1800, B1800},       Speed{2400, B2400},       Speed{4800, B4800},
    Speed{9600, B9600},       Speed{19200, B19200},     Speed{38400, B38400},     Speed{57600, B57600},
    Speed{115200, B115200},   Speed{230400, B230400},   Speed{460800, B460800},   Speed{500000, B500000},
    Speed{576000, B576000},   Speed{921600, B921600},   Speed{1000000, B1000000}, Speed{1152000, B1152000},
    Speed{1500000, B1500000}, Speed{2000000, B2000000}, Speed{2500000, B2500000}, Speed{3000000, B3000000},
    Speed{3500000, B3500000}, Speed{4000000, B4000000}};

/// What of the control flags a line's settings decide.
constexpr tcflag_t LineFlags = CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS;

tcflag_t ControlFlags(const SerialLine& line) {
  constexpr std::array<tcflag_t, 4> sizes = {CS5, CS6, CS7, CS8};
  tcflag_t flags = sizes.at(line.DataBits - 5);
  if (line.Parity != SerialLine::ParityKind::None) flags |= PARENB;
  if (line.Parity == SerialLine::ParityKind::Odd) flags |= PARODD;
  if (line.StopBits == 2) flags |= CSTOPB;
  if (line.Flow == SerialLine::FlowKind::RtsCts) flags |= CRTSCTS;
  return flags;
}

/// A number stands for one of the machine's own ports, of which the system counts the first as 0.
std::string PathOf(const std::string& port) {
  return port.front() == '/' ? port : "/dev/ttyS" + std::to_string(std::stoul(port) - 1);
}

/// Makes the port this session's own. Answers 0, or the system's error number.
int Claim(int port) {
  if (::isatty(port) == 0) return errno;
  // The lock keeps out those who ask for one, the superuser's programs too; exclusive use keeps out all others.
  if (::flock(port, LOCK_EX | LOCK_NB) != 0) return errno;
  return ::ioctl(port, TIOCEXCL) == 0 ? 0 : errno;
}

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK; }

} // namespace

SerialTransport::SerialTransport(const SerialAddress& address, const system::Cancellation* cancellation)
    : m_path(PathOf(address.Port)), m_line(address.Line), m_cancellation(cancellation) {}

SerialTransport::~SerialTransport() { Close(); }

DriverResult SerialTransport::Open(TimePoint /*deadline*/) {
  Close();
  // Without O_NONBLOCK the system would wait for a modem to answer.
  const int port = ::open(m_path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (port < 0) return OpenFailure(errno);
  if (const int error = Claim(port); error != 0) {
    ::close(port);
    return OpenFailure(error);
  }
  m_port = port;
  m_stuck = false;
  DriverResult result = SetLine();
  if (!result.Succeeded()) Close();
  return result;
}

DriverResult SerialTransport::SetLine() const {
  const auto* speed = std::find_if(Speeds.begin(), Speeds.end(),
                                   [this](const Speed& candidate) { return candidate.BitsPerSecond == m_line.Speed; });
  if (speed == Speeds.end()) {
    return Refused("no serial port runs at " + std::to_string(m_line.Speed) +
                   " bits per second; give the instrument's speed, as in 9600 or 115200");
  }
  termios settings = {};
  if (::tcgetattr(m_port, &settings) != 0) return OpenFailure(errno);
  ::cfmakeraw(&settings);
  settings.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY | INPCK);
  if (m_line.Flow == SerialLine::FlowKind::XonXoff) settings.c_iflag |= IXON | IXOFF;
  settings.c_cflag = (settings.c_cflag & ~LineFlags) | ControlFlags(m_line) | CLOCAL | CREAD;
  settings.c_cc[VSTART] = 0x11;
  settings.c_cc[VSTOP] = 0x13;
  // With 0 a read that finds nothing would look like one of a port that is gone.
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  ::cfsetspeed(&settings, speed->Code);
  if (::tcsetattr(m_port, TCSANOW, &settings) != 0) return OpenFailure(errno);
  // The system is content if the port takes any of the settings.
  termios taken = {};
  if (::tcgetattr(m_port, &taken) != 0) return OpenFailure(errno);
  if ((taken.c_cflag & LineFlags) != ControlFlags(m_line) || ::cfgetospeed(&taken) != speed->Code) {
    return Refused("the port does not take these line settings; choose others, as in 9600,8N1");
  }
  ::tcflush(m_port, TCIFLUSH);
  return {};
}

void SerialTransport::Close() noexcept {
  if (m_port < 0) return;
  Drain();
  ::ioctl(m_port, TIOCNXCL);
  ::close(m_port);
  m_port = -1;
}

/// What is not out in time is dropped: closing the port would wait half a minute for an instrument that holds it up.
void SerialTransport::Drain() const noexcept {
  const auto queued = [port = m_port] {
    int count = 0;
    return ::ioctl(port, TIOCOUTQ, &count) == 0 ? count : 0;
  };
  SteadyClock clock(m_cancellation);
  if ((m_stuck ? queued() : DrainLine(queued, m_line, clock, m_cancellation)) > 0) ::tcflush(m_port, TCOFLUSH);
}

DriverResult SerialTransport::Write(std::string_view bytes, TimePoint deadline) {
  while (!bytes.empty()) {
    const ssize_t sent = ::write(m_port, bytes.data(), bytes.size());
    if (sent > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
      continue;
    }
    int error = sent == 0 ? EAGAIN : errno;
    if (error == EINTR) continue;
    if (WouldBlock(error)) {
      AboutToWait();
      error = system::WaitFor(m_port, POLLOUT, deadline, m_cancellation);
    }
    if (error == ETIMEDOUT) {
      m_stuck = true;
      return {DriverStatus::WriteTimeout, m_path};
    }
    if (error != 0) return Lost(error);
  }
  return {};
}

Received SerialTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  for (;;) {
    int error = system::WaitFor(m_port, POLLIN, deadline, m_cancellation);
    if (error == ETIMEDOUT) return {{DriverStatus::ReadTimeout, m_path}};
    if (error == 0) {
      const ssize_t received = ::read(m_port, buffer, size);
      if (received > 0) return {{}, static_cast<std::size_t>(received)};
      error = received == 0 ? EIO : errno;
    }
    if (error != EINTR && !WouldBlock(error)) return {Lost(error)};
  }
}

bool SerialTransport::Clear(std::chrono::milliseconds timeout) {
  std::array<char, 4096> dropped = {};
  const TimePoint end = TimePoint::clock::now() + 2 * timeout;
  Received received;
  while (received.Result.Succeeded()) {
    received = Read(dropped.data(), dropped.size(), std::min(end, TimePoint::clock::now() + timeout));
  }
  return received.Result.Status == DriverStatus::ReadTimeout;
}

DriverResult SerialTransport::OpenFailure(int error) const {
  switch (error) {
  case ENOENT:
  case ENOTDIR:
  case ENXIO:
  case ENODEV:
  case EIO:
    return Refused("there is no such serial port; check its name and that it is plugged in");
  case EACCES:
  case EPERM:
    return Refused("permission denied; have your user added to the group dialout, and log in again");
  case EBUSY:
  case EWOULDBLOCK:
    return Refused("it is in use; close it in the program or session that has it open");
  case ENOTTY:
    return Refused("it is no serial port; name one, as in ASRL/dev/ttyUSB0::INSTR");
  default:
    return Refused(std::generic_category().message(error));
  }
}

DriverResult SerialTransport::Lost(int error) const {
  if (error == ECANCELED) return {DriverStatus::Cancelled, m_path};
  const bool unplugged = error == EIO || error == ENXIO || error == ENODEV;
  return {DriverStatus::ConnectionLost,
          m_path + ", " + (unplugged ? "the port is gone; plug it in again" : std::generic_category().message(error))};
}

} // namespace portico::drivers
