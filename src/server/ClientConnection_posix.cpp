#include "server/ClientConnection.h"

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace portico::server {
namespace {

// What IServedConnection::AcceptsInput() promises room for.
constexpr std::size_t ReceiveBytes = 65536;

/// Answers are gathered up to this size before they are sent: a client may ask many questions at once.
constexpr std::size_t SendBytes = 65536;

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

/// Without the signal that a client who has gone would cause.
ssize_t Put(int wire, const char* bytes, std::size_t size) {
  const ssize_t count = send(wire, bytes, size, MSG_NOSIGNAL);
  return count < 0 && errno == ENOTSOCK ? write(wire, bytes, size) : count; // a terminal knows no such signal
}

} // namespace

ClientConnection::ClientConnection(system::FileDescriptor wire, std::unique_ptr<IServedConnection> connection)
    : m_wire(std::move(wire)), m_connection(std::move(connection)) {}

std::optional<TimePoint> ClientConnection::NextEvent() const {
  if (!m_output.empty()) return std::nullopt; // first the client takes what there is
  return m_connection->NextEvent();
}

void ClientConnection::Exchange(bool readable, TimePoint now, bool ended) {
  if (readable) {
    while (Receive(now) && ended && WantsInput()) continue;
  }
  Send(now);
  if (!m_output.empty()) return;
  if (m_connection->Finished(m_inputEnded)) m_finished = true;
  if (m_connection->OutputEnded()) EndOutput();
}

void ClientConnection::EndOutput() {
  if (!std::exchange(m_outputEnded, true)) shutdown(m_wire.Get(), SHUT_WR);
}

void ClientConnection::Break(TimePoint now) {
  while (m_connection->IsDuplex() && Receive(now)) {
  }
  m_finished = true;
}

bool ClientConnection::Receive(TimePoint now) {
  std::array<char, ReceiveBytes> buffer; // not cleared: that would cost more than a short message does
  const ssize_t count = read(m_wire.Get(), buffer.data(), buffer.size());
  if (count > 0) {
    m_connection->Receive(std::string_view(buffer.data(), static_cast<std::size_t>(count)), now);
  } else if (count == 0) {
    m_inputEnded = true;
    m_connection->EndInput(now);
  } else if (!WouldBlock(errno)) {
    m_finished = true;
  }
  return count > 0;
}

void ClientConnection::Send(TimePoint now) {
  while (!m_finished) {
    if (m_output.empty()) Collect(now);
    if (m_output.empty()) return;
    const ssize_t count = Put(m_wire.Get(), m_output.data() + m_sent, m_output.size() - m_sent);
    if (count < 0) {
      if (!WouldBlock(errno)) m_finished = true;
      return;
    }
    m_sent += static_cast<std::size_t>(count);
    if (m_sent == m_output.size()) {
      m_output.clear();
      m_sent = 0;
    }
  }
}

void ClientConnection::Collect(TimePoint now) {
  std::size_t before = 0;
  do {
    before = m_output.size();
    m_connection->Collect(m_output, now);
  } while (m_output.size() > before && m_output.size() < SendBytes);
}

} // namespace portico::server
