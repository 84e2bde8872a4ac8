#include "support/doubles/SerialInstrument.h"

#include "support/doubles/ScriptedConnection.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace portico::test {
namespace {

using simulator::TimePoint;

/// How long poll() waits for that moment; for ever if there is none.
int TimeoutUntil(std::optional<TimePoint> moment) {
  if (!moment) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*moment - TimePoint::clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60000));
}

} // namespace

SerialInstrument::SerialInstrument() : m_farEnd(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  std::array<char, 64> path = {};
  const bool ready = ::grantpt(m_farEnd.Get()) == 0 && ::unlockpt(m_farEnd.Get()) == 0 &&
                     ::ptsname_r(m_farEnd.Get(), path.data(), path.size()) == 0;
  EXPECT_TRUE(ready) << "this machine has no pseudo-terminals";
  m_path = path.data();
  m_nearEnd = system::FileDescriptor(::open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
}

SerialInstrument::SerialInstrument(std::unique_ptr<simulator::SimulatedConnection> connection) : SerialInstrument() {
  m_connection = std::move(connection);
  m_thread = std::thread([this] { Serve(); });
}

SerialInstrument::SerialInstrument(InstrumentScript script) : SerialInstrument() {
  m_connection = std::make_unique<ScriptedConnection>(std::move(script), m_scriptReceived);
  m_thread = std::thread([this] { Serve(); });
}

SerialInstrument::~SerialInstrument() {
  {
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
  }
  m_wake.Wake();
  if (m_thread.joinable()) m_thread.join();
}

void SerialInstrument::Permit(bool anybody) const { EXPECT_EQ(::chmod(m_path.c_str(), anybody ? 0666 : 0), 0); }

drivers::SerialLine SerialInstrument::Line() const {
  using drivers::SerialLine;
  termios settings = {};
  EXPECT_EQ(::tcgetattr(m_nearEnd.Get(), &settings), 0);
  SerialLine line;
  const speed_t speed = ::cfgetospeed(&settings);
  line.Speed = speed == B300 ? 300 : speed == B9600 ? 9600 : speed == B115200 ? 115200 : 0;
  line.StopBits = (settings.c_cflag & CSTOPB) != 0 ? 2 : 1;
  if ((settings.c_cflag & CRTSCTS) != 0) line.Flow = SerialLine::FlowKind::RtsCts;
  if ((settings.c_iflag & (IXON | IXOFF)) == (IXON | IXOFF)) line.Flow = SerialLine::FlowKind::XonXoff;
  return line;
}

std::string SerialInstrument::Received() const {
  const std::lock_guard lock(m_mutex);
  return m_received;
}

void SerialInstrument::WaitForReceived(const std::string& bytes) const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_received.ends_with(bytes); });
}

void SerialInstrument::WaitForSilence() const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_output.empty(); });
}

void SerialInstrument::Send(const std::string& bytes) {
  {
    const std::lock_guard lock(m_mutex);
    m_output += bytes;
  }
  m_wake.Wake();
}

void SerialInstrument::Unplug() {
  std::unique_lock lock(m_mutex);
  m_unplugging = true;
  m_wake.Wake();
  m_changed.wait(lock, [&] { return !m_farEnd.IsOpen(); });
}

void SerialInstrument::Serve() {
  std::unique_lock lock(m_mutex);
  while (!m_stopping) {
    while (auto response = m_connection->Read(TimePoint::clock::now())) m_output += *response;
    // Here, not in Unplug(), as nobody may close what this thread waits for.
    if (m_unplugging) {
      m_farEnd = system::FileDescriptor();
      m_nearEnd = system::FileDescriptor();
    }
    m_changed.notify_all();
    const auto events = static_cast<short>(POLLIN | (m_output.empty() ? 0 : POLLOUT));
    std::array<pollfd, 2> entries = {{{m_wake.Descriptor(), POLLIN, 0}, {m_farEnd.Get(), events, 0}}};
    const int timeout = TimeoutUntil(m_connection->NextEvent());
    lock.unlock();
    ::poll(entries.data(), entries.size(), timeout);
    m_wake.Drain();
    lock.lock();
    if ((entries[1].revents & POLLIN) != 0) Receive();
    if ((entries[1].revents & POLLOUT) != 0) Transmit();
  }
}

void SerialInstrument::Receive() {
  std::array<char, 4096> bytes = {};
  const ssize_t count = ::read(m_farEnd.Get(), bytes.data(), bytes.size());
  if (count <= 0) return;
  const std::string_view received(bytes.data(), static_cast<std::size_t>(count));
  m_received.append(received);
  m_connection->Write(received, TimePoint::clock::now());
}

void SerialInstrument::Transmit() {
  const ssize_t count = ::write(m_farEnd.Get(), m_output.data(), m_output.size());
  if (count > 0) m_output.erase(0, static_cast<std::size_t>(count));
}

} // namespace portico::test
