#include "support/doubles/HislipInstrument.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <vector>

namespace portico::test {
namespace {

using namespace wire;

/// Longer answers go in several messages.
constexpr std::size_t PieceBytes = std::size_t{256} * 1024;

std::string AnswerMessages(std::uint32_t id, std::string_view text) {
  std::string messages;
  for (; text.size() > PieceBytes; text.remove_prefix(PieceBytes)) {
    messages += HislipMessage(HislipType::Data, 0, id, text.substr(0, PieceBytes));
  }
  return messages + HislipMessage(HislipType::DataEnd, 0, id, text);
}

} // namespace

HislipInstrument::HislipInstrument(InstrumentScript script)
    : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)), m_script(std::move(script)) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* any = reinterpret_cast<sockaddr*>(&address);
  EXPECT_EQ(::bind(m_listener.Get(), any, length), 0);
  EXPECT_EQ(::listen(m_listener.Get(), 16), 0);
  EXPECT_EQ(::getsockname(m_listener.Get(), any, &length), 0);
  m_port = ntohs(address.sin_port);
  m_thread = std::thread([this] { Serve(); });
}

HislipInstrument::~HislipInstrument() {
  {
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
  }
  m_wake.Wake();
  m_thread.join();
}

std::string HislipInstrument::ResourceName() const {
  return "TCPIP::127.0.0.1::hislip0," + std::to_string(m_port) + "::INSTR";
}

void HislipInstrument::On(const std::string& command, Reaction reaction) {
  const std::lock_guard lock(m_mutex);
  m_script[command] = std::move(reaction);
}

void HislipInstrument::Respond(HislipType type, std::string bytes) {
  const std::lock_guard lock(m_mutex);
  m_responses[type] = std::move(bytes);
}

void HislipInstrument::HangUpOn(HislipType type) {
  const std::lock_guard lock(m_mutex);
  m_hangUps[type] = true;
}

void HislipInstrument::ResetOn(HislipType type) {
  HangUpOn(type);
  const std::lock_guard lock(m_mutex);
  m_resets[type] = true;
}

std::string HislipInstrument::Received() const {
  const std::lock_guard lock(m_mutex);
  return m_received;
}

void HislipInstrument::WaitForReceived(const std::string& bytes) const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_received.ends_with(bytes); });
}

void HislipInstrument::WaitFor(HislipType type, int count) const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] {
    const auto found = m_counts.find(type);
    return found != m_counts.end() && found->second >= count;
  });
}

int HislipInstrument::Count(HislipType type) const {
  const std::lock_guard lock(m_mutex);
  const auto found = m_counts.find(type);
  return found == m_counts.end() ? 0 : found->second;
}

std::string HislipInstrument::SubAddress() const {
  const std::lock_guard lock(m_mutex);
  return m_subAddress;
}

HislipInstrument::Connection& HislipInstrument::Last(HislipChannel channel, std::unique_lock<std::mutex>& lock) {
  Connection* last = nullptr;
  m_changed.wait(lock, [&] {
    for (Connection& connection : m_connections) {
      if (connection.Channel == channel) last = &connection;
    }
    return last != nullptr;
  });
  return *last;
}

void HislipInstrument::Send(const std::string& answer) {
  {
    std::unique_lock lock(m_mutex);
    Connection& connection = Last(HislipChannel::Synchronous, lock);
    connection.Output += AnswerMessages(connection.LastId, answer);
  }
  m_wake.Wake();
}

void HislipInstrument::SendRaw(HislipChannel channel, const std::string& bytes) {
  {
    std::unique_lock lock(m_mutex);
    Last(channel, lock).Output += bytes;
  }
  m_wake.Wake();
}

void HislipInstrument::Drop(HislipChannel channel) {
  std::unique_lock lock(m_mutex);
  const Connection* dropped = &Last(channel, lock);
  Last(channel, lock).Closing = true;
  m_wake.Wake();
  m_changed.wait(lock, [&] {
    for (const Connection& connection : m_connections) {
      if (&connection == dropped) return false;
    }
    return true;
  });
}

void HislipInstrument::DropClients() {
  std::unique_lock lock(m_mutex);
  for (Connection& connection : m_connections) connection.Closing = true;
  m_wake.Wake();
  m_changed.wait(lock, [&] { return m_connections.empty(); });
}

void HislipInstrument::WaitForNoClient() const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_visited && m_connections.empty(); });
}

void HislipInstrument::Serve() {
  std::unique_lock lock(m_mutex);
  while (!m_stopping) {
    m_changed.notify_all();
    std::vector<pollfd> entries = {{m_wake.Descriptor(), POLLIN, 0}, {m_listener.Get(), POLLIN, 0}};
    for (const Connection& connection : m_connections) {
      const bool writes = connection.Closing || !connection.Output.empty() || !connection.Refrain.empty();
      entries.push_back({connection.Socket.Get(), static_cast<short>(POLLIN | (writes ? POLLOUT : 0)), 0});
    }
    lock.unlock();
    ::poll(entries.data(), entries.size(), -1);
    m_wake.Drain();
    lock.lock();
    auto entry = entries.begin() + 2;
    for (auto connection = m_connections.begin(); connection != m_connections.end(); ++entry) {
      const bool readable = (entry->revents & (POLLIN | POLLHUP | POLLERR)) != 0;
      const bool alive =
          (!readable || ReadFrom(*connection)) && ((entry->revents & POLLOUT) == 0 || WriteTo(*connection));
      connection = alive ? std::next(connection) : m_connections.erase(connection);
    }
    if ((entries[1].revents & POLLIN) != 0) Accept();
  }
}

void HislipInstrument::Accept() {
  system::FileDescriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  if (!socket.IsOpen()) return;
  const int on = 1;
  ::setsockopt(socket.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  m_connections.push_back({std::move(socket)});
  m_visited = true;
}

bool HislipInstrument::ReadFrom(Connection& connection) {
  std::array<char, 4096> buffer = {};
  const ssize_t count = ::recv(connection.Socket.Get(), buffer.data(), buffer.size(), 0);
  if (count < 0) return errno == EAGAIN || errno == EINTR;
  if (count == 0) return false;
  std::string_view bytes(buffer.data(), static_cast<std::size_t>(count));
  while (const auto piece = connection.Reader.Next(bytes)) Take(connection, *piece);
  EXPECT_FALSE(connection.Reader.Broken()) << "the client sent what is no HiSLIP";
  return true;
}

bool HislipInstrument::WriteTo(Connection& connection) {
  if (connection.Output.empty() && !connection.Closing) connection.Output = connection.Refrain;
  if (connection.Output.empty()) return !connection.Closing;
  const ssize_t count =
      ::send(connection.Socket.Get(), connection.Output.data(), connection.Output.size(), MSG_NOSIGNAL);
  if (count < 0) return errno == EAGAIN || errno == EINTR;
  connection.Output.erase(0, static_cast<std::size_t>(count));
  return !connection.Closing || !connection.Output.empty();
}

void HislipInstrument::Take(Connection& connection, const HislipPiece& piece) {
  const HislipType type = piece.Header.Type;
  if (type == HislipType::AsyncInitialize) connection.Channel = HislipChannel::Asynchronous;
  if (type == HislipType::Initialize) m_subAddress = piece.Payload;
  if (piece.Last) ++m_counts[type];
  if (m_hangUps[type]) connection.Closing = true;
  if (m_resets[type]) {
    const linger atOnce = {1, 0};
    ::setsockopt(connection.Socket.Get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  }
  if (type == HislipType::AsyncDeviceClear) {
    for (Connection& other : m_connections) other.Refrain.clear();
  }
  if (type == HislipType::DeviceClearComplete) {
    connection.LastId = HislipFirstMessageId - HislipMessageIdStep;
    connection.Input.clear();
  }
  if (type == HislipType::Data || type == HislipType::DataEnd) {
    TakeData(connection, piece);
  } else {
    const auto response = m_responses.find(type);
    connection.Output += response == m_responses.end() ? Response(piece.Header) : response->second;
  }
}

void HislipInstrument::TakeData(Connection& connection, const HislipPiece& piece) {
  m_received += piece.Payload;
  connection.Input += piece.Payload;
  connection.LastId = piece.Header.Parameter;
  if (piece.Header.Type != HislipType::DataEnd || !piece.Last) return;
  for (std::string command; TakeCommand(connection.Input, command);) {
    if (const auto found = m_script.find(command); found != m_script.end()) React(connection, found->second);
  }
}

void HislipInstrument::React(Connection& connection, const Reaction& reaction) {
  const std::uint32_t id = connection.LastId;
  switch (reaction.kind) {
  case Reaction::Kind::Answer:
    connection.Output += AnswerMessages(id, reaction.text);
    break;
  case Reaction::Kind::Part:
    connection.Output += HislipMessage(HislipType::Data, 0, id, reaction.text);
    break;
  case Reaction::Kind::Silence:
    break;
  case Reaction::Kind::Close:
    if (!reaction.text.empty()) connection.Output += AnswerMessages(id, reaction.text);
    connection.Closing = true;
    break;
  case Reaction::Kind::Endless:
    connection.Refrain = HislipMessage(HislipType::Data, 0, id, reaction.text);
    break;
  }
}

std::string HislipInstrument::Response(const HislipHeader& header) {
  switch (header.Type) {
  case HislipType::Initialize:
    return HislipMessage(HislipType::InitializeResponse, 0, HislipVersionAnd(HislipVersion1, 1));
  case HislipType::AsyncInitialize:
    return HislipMessage(HislipType::AsyncInitializeResponse, 0, 0x5858);
  case HislipType::AsyncMaximumMessageSize:
    return HislipMessage(HislipType::AsyncMaximumMessageSizeResponse, 0, 0, HislipSize(1U << 20U));
  case HislipType::AsyncDeviceClear:
    return HislipMessage(HislipType::AsyncDeviceClearAcknowledge);
  case HislipType::DeviceClearComplete:
    return HislipMessage(HislipType::DeviceClearAcknowledge);
  case HislipType::AsyncRemoteLocalControl:
    return HislipMessage(HislipType::AsyncRemoteLocalResponse);
  default:
    return {};
  }
}

} // namespace portico::test
