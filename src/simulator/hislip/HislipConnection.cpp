#include "simulator/hislip/HislipConnection.h"

#include "wire/HislipMessage.h"

#include <utility>

namespace portico::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t FirstVendorType = 128;

bool IsData(HislipType type) { return type == HislipType::Data || type == HislipType::DataEnd; }

} // namespace

server::ConnectionFactory HislipConnection::Factory(Instrument& instrument) {
  return Factory(std::make_shared<StreamInstrument>(instrument));
}

server::ConnectionFactory HislipConnection::Factory(std::shared_ptr<IMessageInstrument> instrument) {
  return [server = std::make_shared<HislipServer>(std::move(instrument))](std::uint16_t /*port*/) {
    return std::make_unique<HislipConnection>(server);
  };
}

HislipConnection::HislipConnection(std::shared_ptr<HislipServer> server) : m_server(std::move(server)) {}

HislipConnection::~HislipConnection() { EndSession(); }

void HislipConnection::EndSession() {
  m_over = true;
  if (m_session) m_server->End(*m_session);
}

void HislipConnection::Receive(std::string_view bytes, TimePoint now) {
  while (!m_over) {
    const auto piece = m_reader.Next(bytes);
    if (!piece) break;
    Take(*piece, now);
  }
  if (!m_over && m_reader.Broken()) Fail(HislipFatal::BadHeader, "a message begins with HS");
}

void HislipConnection::Take(const HislipPiece& piece, TimePoint now) {
  if (m_refusing) {
    m_refusing = !piece.Last;
  } else if (TakeAnywhere(piece)) {
    return;
  } else if (!m_session) {
    TakeFirst(piece);
  } else if (m_asynchronous) {
    TakeAsynchronous(piece, now);
  } else {
    TakeSynchronous(piece);
  }
}

bool HislipConnection::TakeAnywhere(const HislipPiece& piece) {
  if (piece.Header.Type == HislipType::FatalError) {
    EndSession();
  } else if (piece.TooLarge) {
    Complain(HislipError::TooLarge, "a message has at most " + std::to_string(LongestMessage) + " bytes");
  } else {
    return piece.Header.Type == HislipType::Error;
  }
  return true;
}

void HislipConnection::TakeFirst(const HislipPiece& piece) {
  if (piece.Header.Type == HislipType::Initialize) return TakeInitialize(piece);
  if (piece.Header.Type == HislipType::AsyncInitialize) return TakeAsyncInitialize(piece);
  Fail(HislipFatal::ChannelsMissing, "a connection begins with Initialize or AsyncInitialize");
}

void HislipConnection::TakeInitialize(const HislipPiece& piece) {
  if (piece.Payload != HislipServer::SubAddress) {
    return Fail(HislipFatal::BadInitialization, "the one device here is " + std::string(HislipServer::SubAddress));
  }
  if (piece.Header.Parameter >> 16U < HislipVersion1) {
    return Fail(HislipFatal::BadInitialization, "the lowest version here is 1.0");
  }
  m_session = m_server->Begin();
  if (!m_session) return Fail(HislipFatal::TooManyClients, "");
  m_opening = true;
  Begin();
}

void HislipConnection::Begin() {
  const auto standing = m_session->Dialogue.Standing();
  if (!m_opening || standing == IMessageConnection::State::Opening) return;
  m_opening = false;
  if (standing == IMessageConnection::State::Lost) {
    return Fail(HislipFatal::Unidentified, "the instrument cannot be reached");
  }
  m_output += HislipMessage(HislipType::InitializeResponse, 0, HislipVersionAnd(HislipVersion1, m_session->Number));
}

void HislipConnection::TakeAsyncInitialize(const HislipPiece& piece) {
  m_session = m_server->Join(piece.Header.Parameter);
  if (!m_session) return Fail(HislipFatal::BadInitialization, "no session waits for this connection");
  m_asynchronous = true;
  m_output += HislipMessage(HislipType::AsyncInitializeResponse, 0, HislipVendorId);
}

void HislipConnection::TakeSynchronous(const HislipPiece& piece) {
  const HislipType type = piece.Header.Type;
  if (type == HislipType::Initialize) return Fail(HislipFatal::BadInitialization, "the session has begun");
  if (!m_session->HasAsynchronous) return Fail(HislipFatal::ChannelsMissing, "the second connection is missing");
  if (IsData(type) || type == HislipType::Trigger) {
    if (piece.Header.Control <= HislipControl::ResponseDelivered) return m_session->Dialogue.Take(piece);
    m_refusing = !piece.Last;
    return Complain(HislipError::UnknownControlCode, "bit 0 alone may be set");
  }
  if (type != HislipType::DeviceClearComplete) return RefuseType(piece);
  if (!m_session->Dialogue.Clearing()) return Complain(HislipError::Unidentified, "no device clear has begun");
  m_session->Dialogue.EndClear();
  // Whatever mode the client wants, this is the one that there is.
  m_output += HislipMessage(HislipType::DeviceClearAcknowledge);
}

void HislipConnection::TakeAsynchronous(const HislipPiece& piece, TimePoint now) {
  const HislipType type = piece.Header.Type;
  if (type == HislipType::AsyncMaximumMessageSize) return TakeMaximumMessageSize(piece);
  if (type == HislipType::AsyncInitialize) return Fail(HislipFatal::BadInitialization, "the session has begun");
  if (HislipRequests::Knows(type)) return m_session->Requests.Take(piece, now);
  RefuseType(piece);
}

void HislipConnection::TakeMaximumMessageSize(const HislipPiece& piece) {
  const auto size = ReadHislipSize(piece.Payload);
  if (!size || *size <= HislipHeaderSize) {
    return Fail(HislipFatal::BadInitialization, "that maximum message size leaves no room for data");
  }
  m_session->Dialogue.SetLongestMessage(*size);
  m_output += HislipMessage(HislipType::AsyncMaximumMessageSizeResponse, 0, 0, HislipSize(LongestMessage));
}

void HislipConnection::Complain(HislipError code, std::string_view why) {
  m_output += HislipMessage(HislipType::Error, static_cast<std::uint8_t>(code), 0, why);
}

void HislipConnection::RefuseType(const HislipPiece& piece) {
  m_refusing = !piece.Last;
  const auto type = static_cast<std::uint8_t>(piece.Header.Type);
  Complain(type < FirstVendorType ? HislipError::UnknownType : HislipError::UnknownVendorMessage,
           "there is no message type " + std::to_string(type) + " on this connection");
}

void HislipConnection::Fail(HislipFatal code, std::string_view why) {
  m_output += HislipMessage(HislipType::FatalError, static_cast<std::uint8_t>(code), 0, why);
  EndSession();
}

void HislipConnection::Collect(std::string& output, TimePoint now) {
  if (m_opening && !m_over) Begin();
  if (!m_output.empty()) {
    output += std::exchange(m_output, {});
  } else if (m_session && !m_session->Over && m_asynchronous) {
    m_session->Requests.Collect(output, now);
  } else if (m_session && !m_session->Over) {
    m_session->Dialogue.Collect(output, m_server->Admits(*m_session), now);
  }
}

bool HislipConnection::AcceptsInput() const {
  if (!m_session) return true;
  return m_asynchronous ? m_session->Requests.AcceptsInput() : m_session->Dialogue.AcceptsInput();
}

std::optional<TimePoint> HislipConnection::NextEvent() const {
  if (!m_output.empty() || m_over) return TimePoint{};
  if (!m_session) return std::nullopt;
  if (m_session->Over) return TimePoint{};
  return m_asynchronous ? m_session->Requests.NextEvent() : m_session->Dialogue.NextEvent(m_server->Admits(*m_session));
}

bool HislipConnection::Finished(bool inputEnded) const {
  if (!m_output.empty()) return false;
  if (m_over || !m_session || m_session->Over) return m_over || m_session || inputEnded;
  if (m_asynchronous) return inputEnded;
  return (inputEnded || m_session->Dialogue.CloseRequested()) && !m_session->Dialogue.Busy();
}

} // namespace portico::simulator
