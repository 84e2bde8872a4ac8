#include "drivers/vxi11/Vxi11Transport.h"

#include "drivers/vxi11/CorePort.h"
#include "drivers/vxi11/Vxi11Errors.h"

#include <algorithm>
#include <limits>

namespace portico::drivers {
namespace {

namespace Vxi11 = wire::Vxi11;
using Vxi11::CoreProcedure;

/// The most that one DeviceRead asks for, in bytes.
constexpr std::size_t LongestRequest = ReceiveBuffer::Capacity;
/// The results of that: error, reason, length and bytes. All others are shorter.
constexpr std::size_t MostResults = std::size_t{3} * 4 + LongestRequest;
/// For a server that does not tell how much a DeviceWrite may carry.
constexpr std::size_t UsualPiece = 1024;

} // namespace

Vxi11Transport::Vxi11Transport(LanDeviceAddress address, StreamConnector connect, IClock& clock)
    : m_address(std::move(address)), m_connect(std::move(connect)), m_clock(clock) {}

DriverResult Vxi11Transport::Open(TimePoint deadline) {
  Close();
  std::uint16_t port = m_address.Port.value_or(0);
  const auto connect = [this](const std::string& host, std::uint16_t at) { return MakeStream(host, at); };
  DriverResult result = m_address.Port ? DriverResult() : FindCorePort(connect, m_address.Host, port, deadline);
  if (result.Succeeded()) result = CreateLink(port, deadline);
  if (!result.Succeeded()) Close();
  return result;
}

std::unique_ptr<ITransport> Vxi11Transport::MakeStream(const std::string& host, std::uint16_t port) {
  auto stream = m_connect(host, port);
  stream->OnWait([this] { AboutToWait(); });
  return stream;
}

std::unique_ptr<RpcChannel> Vxi11Transport::MakeChannel(std::uint16_t port, std::uint32_t program,
                                                        std::uint32_t version, std::size_t resultLimit) {
  return std::make_unique<RpcChannel>(MakeStream(m_address.Host, port),
                                      m_address.Host + ", port " + std::to_string(port), program, version, resultLimit);
}

DriverResult Vxi11Transport::CreateLink(std::uint16_t port, TimePoint deadline) {
  m_core = MakeChannel(port, Vxi11::CoreProgram, Vxi11::Version, MostResults);
  if (DriverResult result = m_core->Stream().Open(deadline); !result.Succeeded()) return result;
  const Vxi11::CreateLinkArguments arguments = {0, false, 0, m_address.Device};
  Vxi11::CreateLinkResult link;
  DriverResult result = m_core->Client().Call(CoreProcedure::CreateLink, arguments, link, deadline);
  if (!result.Succeeded()) return OpeningFailure(std::move(result));
  if (link.Error != Vxi11::Error::None) return CreateLinkFailure(link.Error, m_core->Peer(), m_address.Device);
  m_link = link.Link;
  m_abortPort = link.AbortPort;
  m_longestPiece = link.MaxReceiveSize != 0 ? link.MaxReceiveSize : UsualPiece;
  return {};
}

void Vxi11Transport::Close() noexcept {
  m_core.reset();
  m_readPending = false;
  m_unread = {};
  m_endsMessage = false;
}

bool Vxi11Transport::Stands() { return m_core != nullptr && m_core->Stream().Stands(); }

DriverResult Vxi11Transport::Write(std::string_view bytes, TimePoint deadline) {
  do {
    const std::string_view piece = bytes.substr(0, m_longestPiece);
    const std::int32_t end = piece.size() == bytes.size() ? Vxi11::Flag::End : 0;
    const std::uint32_t left = TimeLeft(deadline);
    // Half of the time for a lock, so that a server that has waited for it in vain can still say so.
    const Vxi11::DeviceWriteArguments arguments = {m_link, left, left / 2, Vxi11::Flag::WaitForLock | end, piece};
    Vxi11::DeviceWriteResult written;
    DriverResult result = m_core->Client().Call(CoreProcedure::DeviceWrite, arguments, written, deadline);
    if (result.Status == DriverStatus::ReadTimeout) result.Status = DriverStatus::WriteTimeout;
    if (!result.Succeeded()) return result;
    if (written.Error != Vxi11::Error::None) {
      return LinkFailure(written.Error, m_core->Peer(), DriverStatus::WriteTimeout);
    }
    if (written.Size > piece.size() || (written.Size == 0 && !piece.empty())) {
      return {DriverStatus::ProtocolError,
              m_core->Peer() + ", took " + std::to_string(written.Size) + " bytes of " + std::to_string(piece.size())};
    }
    bytes.remove_prefix(written.Size);
  } while (!bytes.empty());
  return {};
}

Received Vxi11Transport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  while (m_unread.empty() && !m_endsMessage) {
    if (DriverResult result = Fetch(size, deadline); !result.Succeeded()) return {std::move(result)};
  }
  const std::size_t count = m_unread.copy(buffer, size);
  m_unread.remove_prefix(count);
  return {{}, count, m_unread.empty() && std::exchange(m_endsMessage, false)};
}

DriverResult Vxi11Transport::Fetch(std::size_t size, TimePoint deadline) {
  if (!m_readPending) {
    const std::uint32_t left = TimeLeft(deadline);
    const auto request = static_cast<std::uint32_t>(std::min(size, LongestRequest));
    const Vxi11::DeviceReadArguments arguments = {m_link, request, left, left / 2, Vxi11::Flag::WaitForLock, 0};
    DriverResult result = m_core->Client().Start(CoreProcedure::DeviceRead, arguments, deadline);
    if (!result.Succeeded()) return result;
    m_readPending = true;
  }
  Vxi11::DeviceReadResult read;
  DriverResult result = m_core->Client().Finish(read, deadline);
  if (!result.Succeeded()) return result;
  m_readPending = false;
  // A server may give up before its time, and the call of an earlier read ends before that of this one.
  const bool goOn =
      read.Error == Vxi11::Error::None || (read.Error == Vxi11::Error::IoTimeout && m_clock.Now() < deadline);
  if (!goOn) return LinkFailure(read.Error, m_core->Peer(), DriverStatus::ReadTimeout);
  m_unread = read.Data;
  m_endsMessage = (read.Reason & (Vxi11::Reason::End | Vxi11::Reason::TerminationCharacterSeen)) != 0;
  return {};
}

bool Vxi11Transport::Clear(std::chrono::milliseconds timeout) {
  const TimePoint deadline = m_clock.Now() + timeout;
  m_unread = {};
  m_endsMessage = false;
  return m_core != nullptr && EndPendingRead(deadline) &&
         CallForError(CoreProcedure::DeviceClear, Generic(deadline), deadline);
}

DriverResult Vxi11Transport::GoToLocal(TimePoint deadline) {
  if (m_core == nullptr) return {DriverStatus::NotConnected};
  if (!EndPendingRead(deadline)) return {DriverStatus::ReadTimeout, m_core->Peer()};
  Vxi11::ErrorResult answer;
  DriverResult result = m_core->Client().Call(CoreProcedure::DeviceLocal, Generic(deadline), answer, deadline);
  if (!result.Succeeded() || answer.Error == Vxi11::Error::None) return result;
  if (answer.Error == Vxi11::Error::NotSupported) return {DriverStatus::NotPossible};
  return LinkFailure(answer.Error, m_core->Peer(), DriverStatus::WriteTimeout);
}

void Vxi11Transport::ReturnToLocal(TimePoint deadline) noexcept {
  if (m_core == nullptr || !EndPendingRead(deadline)) return;
  GoToLocal(deadline);
  CallForError(CoreProcedure::DestroyLink, Vxi11::LinkArguments{m_link}, deadline);
}

bool Vxi11Transport::EndPendingRead(TimePoint deadline) {
  if (!m_readPending) return true;
  // Its time is over by now, so that its reply is due. One that does not come is sent for.
  const TimePoint now = m_clock.Now();
  Vxi11::DeviceReadResult dropped;
  DriverResult result = m_core->Client().Finish(dropped, now + (deadline - now) / 4);
  if (result.Status == DriverStatus::ReadTimeout && Abort(deadline)) {
    result = m_core->Client().Finish(dropped, deadline);
  }
  m_readPending = !result.Succeeded();
  return !m_readPending;
}

bool Vxi11Transport::Abort(TimePoint deadline) {
  constexpr std::size_t resultLimit = 4;
  const auto channel = MakeChannel(m_abortPort, Vxi11::AbortProgram, Vxi11::Version, resultLimit);
  Vxi11::ErrorResult aborted;
  return channel->Stream().Open(deadline).Succeeded() &&
         channel->Client()
             .Call(Vxi11::AbortProcedure::DeviceAbort, Vxi11::LinkArguments{m_link}, aborted, deadline)
             .Succeeded() &&
         aborted.Error == Vxi11::Error::None;
}

template <typename Arguments>
bool Vxi11Transport::CallForError(CoreProcedure procedure, const Arguments& arguments, TimePoint deadline) {
  Vxi11::ErrorResult answer;
  return m_core->Client().Call(procedure, arguments, answer, deadline).Succeeded() &&
         answer.Error == Vxi11::Error::None;
}

Vxi11::GenericArguments Vxi11Transport::Generic(TimePoint deadline) const {
  const std::uint32_t left = TimeLeft(deadline);
  return {m_link, 0, left, left};
}

std::uint32_t Vxi11Transport::TimeLeft(TimePoint deadline) const {
  using std::chrono::milliseconds;
  const auto left = std::chrono::ceil<milliseconds>(deadline - m_clock.Now()).count();
  return static_cast<std::uint32_t>(std::clamp<milliseconds::rep>(left, 1, std::numeric_limits<std::uint32_t>::max()));
}

} // namespace portico::drivers
