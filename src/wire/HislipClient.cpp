#include "wire/HislipClient.h"

#include <algorithm>
#include <utility>

namespace portico::wire {
namespace {

constexpr const char* UseNoEncryption = "switch encryption off in its settings";

template <typename Code>
std::string Told(std::string_view kind, const HislipPiece& piece) {
  std::string text(kind);
  text.append(" ").append(std::to_string(piece.Header.Control)).append(", ");
  text.append(HislipErrorText(static_cast<Code>(piece.Header.Control)));
  if (!piece.Payload.empty()) text.append(" (").append(piece.Payload).append(")");
  return text;
}

} // namespace

HislipClient::HislipClient(std::string subAddress) : m_subAddress(std::move(subAddress)) {}

void HislipClient::Open() {
  *this = HislipClient(m_subAddress);
  m_synchronous.Bytes =
      HislipMessage(HislipType::Initialize, 0, HislipVersionAnd(HislipVersion1, HislipVendorId), m_subAddress);
  m_phase = Phase::InitializeResponse;
  if (m_subAddress.size() <= HislipLongestText) return;
  Fail("the device name has " + std::to_string(m_subAddress.size()) + " bytes",
       "HiSLIP takes " + std::to_string(HislipLongestText) + " at most");
}

void HislipClient::SecondConnectionMade() {
  m_asynchronous.Bytes = HislipMessage(HislipType::AsyncInitialize, 0, m_session);
  m_phase = Phase::AsyncInitializeResponse;
}

void HislipClient::Write(std::string message) {
  m_complaint.clear();
  m_lockedByOthers = false;
  m_message = std::move(message);
  m_composed = 0;
  m_composing = m_writing = true;
  m_answers.AwaitNone();
}

void HislipClient::Clear() {
  // What is begun has to be sent whole, or the instrument would not find the next message's header.
  m_composing = m_writing = false;
  if (m_synchronous.Sent == 0) m_synchronous.Bytes.clear();
  m_asynchronous.Bytes += HislipMessage(HislipType::AsyncDeviceClear);
  m_phase = Phase::AsyncDeviceClearAcknowledge;
}

void HislipClient::GoToLocal() {
  m_asynchronous.Bytes +=
      HislipMessage(HislipType::AsyncRemoteLocalControl, HislipControl::GoToLocal, m_nextId - HislipMessageIdStep);
  m_phase = Phase::RemoteLocalResponse;
}

void HislipClient::AskForLocks() {
  m_asynchronous.Bytes += HislipMessage(HislipType::AsyncLockInfo);
  m_askingForLocks = true;
}

std::string_view HislipClient::Output(HislipChannel channel) {
  if (!m_failure.empty()) return {};
  if (channel == HislipChannel::Synchronous) ComposeNext();
  const Stream& stream = StreamOf(channel);
  return std::string_view(stream.Bytes).substr(stream.Sent);
}

void HislipClient::Sent(HislipChannel channel, std::size_t count) {
  Stream& stream = StreamOf(channel);
  stream.Sent += count;
  if (stream.Sent < stream.Bytes.size()) return;
  stream.Bytes.clear();
  stream.Sent = 0;
  if (channel == HislipChannel::Synchronous && m_writing && !m_composing) {
    m_writing = false;
    m_answers.Await(m_nextId - HislipMessageIdStep);
  }
}

void HislipClient::ComposeNext() {
  if (!m_composing || !m_synchronous.Bytes.empty() || m_interruptions < 0) return;
  const auto length = std::min<std::uint64_t>(m_message.size() - m_composed, m_longestPayload);
  const auto payload = std::string_view(m_message).substr(m_composed, static_cast<std::size_t>(length));
  m_composed += payload.size();
  m_composing = m_composed < m_message.size();
  const HislipType type = m_composing ? HislipType::Data : HislipType::DataEnd;
  const std::uint8_t control = std::exchange(m_delivered, false) ? HislipControl::ResponseDelivered : 0;
  m_synchronous.Bytes = HislipMessage(type, control, m_nextId, payload);
  m_nextId += HislipMessageIdStep;
}

HislipAnswer HislipClient::Receive(std::string_view& bytes) {
  HislipAnswer answer;
  while (answer.Empty() && m_failure.empty()) {
    const auto piece = m_synchronous.Reader.Next(bytes);
    if (!piece) break;
    answer = Take(*piece);
  }
  if (m_synchronous.Reader.Broken()) FailWithoutHeader();
  if (!m_failure.empty()) bytes = {};
  return answer;
}

void HislipClient::ReceiveAsynchronous(std::string_view bytes) {
  while (m_failure.empty()) {
    const auto piece = m_asynchronous.Reader.Next(bytes);
    if (!piece) break;
    TakeAsynchronous(*piece);
  }
  if (m_asynchronous.Reader.Broken()) FailWithoutHeader();
}

HislipAnswer HislipClient::Take(const HislipPiece& piece) {
  if (TakeError(piece, HislipChannel::Synchronous)) return {};
  if (m_phase == Phase::InitializeResponse) {
    TakeInitializeResponse(piece);
    return {};
  }
  if (Clearing()) {
    TakeDeviceClearAcknowledge(piece);
    return {};
  }
  switch (piece.Header.Type) {
  case HislipType::Interrupted:
    --m_interruptions;
    m_answers.BreakOff();
    return {};
  case HislipType::Data:
  case HislipType::DataEnd: {
    if (m_interruptions > 0) {
      m_answers.Refuse(piece);
      return {};
    }
    const HislipAnswer answer = m_answers.Take(piece);
    m_delivered = m_delivered || answer.End;
    return answer;
  }
  default:
    return {};
  }
}

void HislipClient::TakeAsynchronous(const HislipPiece& piece) {
  if (TakeError(piece, HislipChannel::Asynchronous)) return;
  switch (piece.Header.Type) {
  case HislipType::AsyncInterrupted:
    ++m_interruptions;
    return;
  case HislipType::AsyncInitializeResponse:
    if (m_phase != Phase::AsyncInitializeResponse) return;
    m_asynchronous.Bytes += HislipMessage(HislipType::AsyncMaximumMessageSize, 0, 0, HislipSize(LongestPayload));
    m_phase = Phase::MaximumMessageSizeResponse;
    return;
  case HislipType::AsyncMaximumMessageSizeResponse:
    if (m_phase == Phase::MaximumMessageSizeResponse) TakeMaximumMessageSize(piece);
    return;
  case HislipType::AsyncDeviceClearAcknowledge:
    if (m_phase != Phase::AsyncDeviceClearAcknowledge) return;
    // No feature bit: synchronized mode is wanted, whatever the instrument prefers.
    m_synchronous.Bytes += HislipMessage(HislipType::DeviceClearComplete);
    m_phase = Phase::DeviceClearAcknowledge;
    return;
  case HislipType::AsyncLockInfoResponse:
    // This client has no lock, so whoever has one keeps it out.
    m_lockedByOthers =
        std::exchange(m_askingForLocks, false) && (piece.Header.Control != 0 || piece.Header.Parameter != 0);
    return;
  case HislipType::AsyncRemoteLocalResponse:
    if (m_phase == Phase::RemoteLocalResponse) m_phase = Phase::Ready;
    return;
  default:
    return;
  }
}

bool HislipClient::TakeError(const HislipPiece& piece, HislipChannel channel) {
  if (piece.TooLarge) {
    Fail("a message has " + std::to_string(piece.Header.PayloadLength) + " bytes, more than was agreed");
    return true;
  }
  if (piece.Header.Type == HislipType::FatalError) {
    TakeFatalError(piece);
    return true;
  }
  if (piece.Header.Type != HislipType::Error) return false;
  const bool toRequest = channel == HislipChannel::Asynchronous; // on the other connection it is of an earlier message
  if (toRequest && std::exchange(m_askingForLocks, false)) return true;
  m_complaint = Told<HislipError>("error", piece);
  if (Opening() || (Clearing() && toRequest)) {
    Fail(m_complaint);
  } else if (m_phase == Phase::RemoteLocalResponse && toRequest) {
    m_phase = Phase::Ready;
  }
  return true;
}

void HislipClient::TakeFatalError(const HislipPiece& piece) {
  const std::string reason = Told<HislipFatal>("fatal error", piece);
  switch (static_cast<HislipFatal>(piece.Header.Control)) {
  case HislipFatal::Unidentified:
  case HislipFatal::BadInitialization:
    return Fail(reason, "check the device name " + m_subAddress);
  case HislipFatal::TooManyClients:
    return Fail(reason, "close it in another program");
  case HislipFatal::SecureConnectionFailed:
    return Fail(reason, UseNoEncryption);
  case HislipFatal::BadHeader:
  case HislipFatal::ChannelsMissing:
    break;
  }
  Fail(reason);
}

void HislipClient::TakeInitializeResponse(const HislipPiece& piece) {
  if (piece.Header.Type != HislipType::InitializeResponse) {
    return Fail("message type " + std::to_string(static_cast<int>(piece.Header.Type)) +
                " came instead of the response");
  }
  if ((piece.Header.Control & (HislipControl::EncryptionMandatory | HislipControl::InitialEncryption)) != 0) {
    return Fail("encrypted connection required, not supported", UseNoEncryption);
  }
  const std::uint32_t version = piece.Header.Parameter >> 16U;
  if (version < HislipVersion1) {
    return Fail("it speaks HiSLIP " + std::to_string(version >> 8U) + "." + std::to_string(version & 0xFFU) +
                    ", which is not supported",
                "try its raw socket, as in TCPIP::HOST::5025::SOCKET");
  }
  m_overlapped = (piece.Header.Control & HislipControl::Overlapped) != 0;
  m_session = static_cast<std::uint16_t>(piece.Header.Parameter);
  m_phase = Phase::SecondConnection;
}

void HislipClient::TakeMaximumMessageSize(const HislipPiece& piece) {
  const auto size = ReadHislipSize(piece.Payload);
  // Some count the header as part of the size.
  if (!size || *size <= HislipHeaderSize) return Fail("the maximum message size leaves no room for a command");
  m_longestPayload = *size - HislipHeaderSize;
  m_phase = Phase::Ready;
  if (m_overlapped) Clear();
}

void HislipClient::TakeDeviceClearAcknowledge(const HislipPiece& piece) {
  if (piece.Header.Type != HislipType::DeviceClearAcknowledge || m_phase != Phase::DeviceClearAcknowledge) return;
  if ((piece.Header.Control & HislipControl::Overlapped) != 0) {
    return Fail("it stays in overlapped mode, which is not supported; set it to synchronized mode");
  }
  m_answers.Reset();
  m_nextId = HislipFirstMessageId;
  m_delivered = false;
  m_interruptions = 0;
  m_phase = Phase::Ready;
}

void HislipClient::FailWithoutHeader() {
  Fail("the message header is none of HiSLIP", "check that the port is that of HiSLIP");
}

void HislipClient::Fail(std::string_view reason, std::string_view advice) {
  m_failure = reason;
  if (Opening()) m_failure.append("; ").append(advice);
  m_phase = Phase::Closed;
}

} // namespace portico::wire
