#include "drivers/hislip/HislipTransport.h"

#include "system/DescriptorWait.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>

namespace portico::drivers {
namespace {

using wire::HislipChannel;

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

/// What an opening says that failed behind the first connection.
DriverResult OpenFailure(DriverResult failure) {
  switch (failure.Status) {
  case DriverStatus::Cancelled:
    break;
  case DriverStatus::ReadTimeout:
    failure.Status = DriverStatus::ConnectTimeout;
    break;
  case DriverStatus::ConnectionClosed:
    failure.Detail += ", the instrument closed it";
    [[fallthrough]];
  case DriverStatus::ConnectionLost:
    failure.Detail += "; see that HiSLIP is switched on and that no other program has it open";
    failure.Status = DriverStatus::ConnectFailed;
    break;
  default:
    failure.Status = DriverStatus::ConnectFailed;
    break;
  }
  return failure;
}

} // namespace

HislipTransport::HislipTransport(std::string host, std::uint16_t port, std::string device,
                                 const system::Cancellation* cancellation)
    : m_connector(std::move(host), port, cancellation), m_cancellation(cancellation), m_client(std::move(device)) {}

DriverResult HislipTransport::Open(TimePoint deadline) {
  Close();
  AboutToWait();
  DriverResult result = Connect(deadline);
  if (!result.Succeeded()) Close();
  return result;
}

DriverResult HislipTransport::Connect(TimePoint deadline) {
  TcpConnection first = m_connector.Connect(deadline);
  if (!first.Result.Succeeded()) return std::move(first.Result);
  m_synchronous = std::move(first.Socket);
  m_client.Open();
  const auto answered = [this] { return m_client.AwaitsSecondConnection(); };
  DriverResult result = ConverseUntil(answered, deadline, DriverStatus::ReadTimeout);
  if (!result.Succeeded()) return OpenFailure(std::move(result));
  TcpConnection second = m_connector.ConnectAgain(deadline);
  if (!second.Result.Succeeded()) return std::move(second.Result);
  m_asynchronous = std::move(second.Socket);
  m_client.SecondConnectionMade();
  result = ConverseUntilReady(deadline);
  return result.Succeeded() ? result : OpenFailure(std::move(result));
}

void HislipTransport::Close() noexcept {
  m_synchronous = system::FileDescriptor();
  m_asynchronous = system::FileDescriptor();
  m_input.Clear();
}

DriverResult HislipTransport::Write(std::string_view bytes, TimePoint deadline) {
  m_client.Write(std::string(bytes));
  return ConverseUntil([this] { return !m_client.Writing(); }, deadline, DriverStatus::WriteTimeout);
}

Received HislipTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  DriverResult result;
  const TimePoint now = TimePoint::clock::now();
  if (now >= deadline) result = m_connector.Failure(DriverStatus::ReadTimeout);
  TimePoint patience = now + (deadline - now) / 2;
  while (result.Succeeded()) {
    const wire::HislipAnswer answer = TakeAnswer(size);
    if (!answer.Empty()) {
      std::copy_n(answer.Payload.data(), answer.Payload.size(), buffer);
      return {{}, answer.Payload.size(), answer.End, answer.Anew};
    }
    result = Failed() ? ProtocolFailure() : Exchange(patience, DriverStatus::ReadTimeout);
    if (result.Status != DriverStatus::ReadTimeout || patience == deadline) continue;
    // An answer that takes long may never come, because another program has the instrument for itself.
    patience = deadline;
    m_client.AskForLocks();
    result = Transmit();
  }
  if (result.Status == DriverStatus::ReadTimeout) result.Detail += ReasonOfSilence();
  return {std::move(result)};
}

std::string HislipTransport::ReasonOfSilence() const {
  if (m_client.LockedByOthers()) return std::string(LockedElsewhere);
  // An instrument that could not do with the command has said so, and will not answer.
  return m_client.Complaint().empty() ? "" : ", " + m_client.Complaint();
}

bool HislipTransport::Stands() {
  if (!m_client.Ready()) return false; // a clear was not answered
  std::array<pollfd, 2> entries = {{{m_synchronous.Get(), POLLRDHUP, 0}, {m_asynchronous.Get(), POLLRDHUP, 0}}};
  return ::poll(entries.data(), entries.size(), 0) == 0;
}

bool HislipTransport::Clear(std::chrono::milliseconds timeout) {
  m_client.Clear();
  return ConverseUntilReady(TimePoint::clock::now() + timeout).Succeeded();
}

DriverResult HislipTransport::GoToLocal(TimePoint deadline) {
  if (!m_asynchronous.IsOpen()) return {DriverStatus::NotConnected};
  m_client.GoToLocal();
  return ConverseUntilReady(deadline);
}

template <typename Done>
DriverResult HislipTransport::ConverseUntil(Done done, TimePoint deadline, DriverStatus onTimeout) {
  for (;;) {
    while (!m_input.Empty() && !Failed()) TakeAnswer(ReceiveBuffer::Capacity);
    if (Failed()) return ProtocolFailure();
    if (DriverResult result = Transmit(); !result.Succeeded()) return result;
    if (done()) return {};
    AboutToWait();
    if (DriverResult result = Exchange(deadline, onTimeout); !result.Succeeded()) return result;
  }
}

DriverResult HislipTransport::ConverseUntilReady(TimePoint deadline) {
  return ConverseUntil([this] { return m_client.Ready(); }, deadline, DriverStatus::ReadTimeout);
}

DriverResult HislipTransport::Transmit() {
  DriverResult result = Transmit(HislipChannel::Asynchronous);
  return result.Succeeded() ? Transmit(HislipChannel::Synchronous) : result;
}

DriverResult HislipTransport::Transmit(HislipChannel channel) {
  for (auto bytes = m_client.Output(channel); !bytes.empty(); bytes = m_client.Output(channel)) {
    const ssize_t sent = ::send(Descriptor(channel), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0) return WouldBlock(errno) ? DriverResult() : m_connector.Failure(errno, DriverStatus::ConnectionLost);
    m_client.Sent(channel, static_cast<std::size_t>(sent));
  }
  return {};
}

DriverResult HislipTransport::Exchange(TimePoint deadline, DriverStatus onTimeout) {
  const auto awaited = [this](HislipChannel channel) {
    const int events = POLLIN | (m_client.Output(channel).empty() ? 0 : POLLOUT);
    return system::Awaited{Descriptor(channel), static_cast<short>(events)};
  };
  std::array both = {awaited(HislipChannel::Synchronous), awaited(HislipChannel::Asynchronous)};
  if (const int error = system::WaitForAny(both, deadline, m_cancellation); error != 0) {
    if (error == ETIMEDOUT) return m_connector.Failure(onTimeout);
    return m_connector.Failure(error, DriverStatus::ConnectionLost);
  }
  // First the one that tells why the other was closed. One that has ended leaves what came on the other to be taken.
  constexpr short output = POLLOUT;
  bool ended = (both[1].Ready & ~output) != 0 && ReceiveAsynchronous() == 0;
  if (Failed()) return ProtocolFailure();
  if ((both[0].Ready & ~output) == 0 && !ended) return {};
  const std::ptrdiff_t count = ReceiveSynchronous();
  if (count > 0) return {};
  ended = ended || count == 0;
  if (ended) return m_connector.Failure(DriverStatus::ConnectionClosed);
  return WouldBlock(errno) ? DriverResult() : m_connector.Failure(errno, DriverStatus::ConnectionLost);
}

std::ptrdiff_t HislipTransport::ReceiveSynchronous() {
  const ssize_t count = ::recv(m_synchronous.Get(), m_input.Space(), ReceiveBuffer::Capacity, 0);
  if (count > 0) m_input.Filled(static_cast<std::size_t>(count), false);
  return count;
}

std::ptrdiff_t HislipTransport::ReceiveAsynchronous() {
  std::array<char, 4096> bytes; // not cleared: that would cost more than a message does
  const ssize_t count = ::recv(m_asynchronous.Get(), bytes.data(), bytes.size(), 0);
  if (count > 0) m_client.ReceiveAsynchronous({bytes.data(), static_cast<std::size_t>(count)});
  return count;
}

wire::HislipAnswer HislipTransport::TakeAnswer(std::size_t size) {
  wire::HislipAnswer answer;
  while (answer.Empty() && !m_input.Empty() && !Failed()) {
    const std::string_view offered = m_input.Unread().substr(0, size);
    std::string_view rest = offered;
    answer = m_client.Receive(rest);
    m_input.Drop(offered.size() - rest.size());
  }
  return answer;
}

DriverResult HislipTransport::Failure(DriverStatus status, const std::string& reason) const {
  return {status, m_connector.Place() + ", " + reason};
}

} // namespace portico::drivers
