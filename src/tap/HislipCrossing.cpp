#include "tap/HislipCrossing.h"

#include "wire/HislipMessage.h"

#include <limits>
#include <utility>

namespace portico::tap {
namespace {

using namespace wire;

/// What the instrument and the client allow each other is their business.
constexpr std::uint64_t AnyLength = std::numeric_limits<std::uint64_t>::max();

constexpr std::uint32_t SessionMask = 0xFFFF;

} // namespace

server::ConnectionFactory HislipCrossing::Factory(Place& place, std::string subAddress) {
  return [&place, subAddress = std::move(subAddress)](std::uint16_t /*port*/) {
    return std::make_shared<HislipCrossing>(place, subAddress)->ClientEnd();
  };
}

HislipCrossing::HislipCrossing(Place& place, std::string subAddress)
    : Crossing(place.Record),
      m_place(place),
      m_subAddress(std::move(subAddress)),
      m_fromClient(AnyLength),
      m_fromInstrument(AnyLength) {}

void HislipCrossing::GiveWay() {
  Crossing::GiveWay();
  if (const auto asynchronous = m_asynchronous.lock()) asynchronous->GiveWay();
}

void HislipCrossing::FromClient(std::string_view bytes) {
  if (!m_begun) {
    const auto first = m_fromClient.Next(bytes);
    if (m_fromClient.Broken()) Refuse(HislipFatal::BadHeader, "a message begins with HS");
    if (!first || !Begin(*first)) return;
    m_begun = true;
  }
  ToInstrument() += bytes;
  Watch(m_fromClient, bytes, &Talk::Sent);
}

void HislipCrossing::FromInstrument(std::string_view bytes) {
  ToClient() += bytes;
  Watch(m_fromInstrument, bytes, &Talk::Answered);
}

bool HislipCrossing::Begin(const HislipPiece& first) {
  if (first.Header.Type == HislipType::Initialize) return BeginSession(first);
  if (first.Header.Type == HislipType::AsyncInitialize) return BeginAsynchronous(first);
  return Refuse(HislipFatal::ChannelsMissing, "a connection begins with Initialize or AsyncInitialize");
}

bool HislipCrossing::BeginSession(const HislipPiece& first) {
  if (!m_place.Take(shared_from_this())) return Refuse(HislipFatal::TooManyClients, "");
  if (!m_place.Line.Connect(InstrumentEnd())) {
    return Refuse(HislipFatal::Unidentified, "the instrument cannot be reached");
  }
  m_talk.emplace(std::make_shared<Recording>(m_place.Record), drivers::Marks::Ends);
  ToInstrument() += HislipMessage(first.Header.Type, first.Header.Control, first.Header.Parameter, m_subAddress);
  return true;
}

bool HislipCrossing::BeginAsynchronous(const HislipPiece& first) {
  const auto session = std::dynamic_pointer_cast<HislipCrossing>(m_place.Taken());
  if (!session || session->m_session != first.Header.Parameter || !session->m_asynchronous.expired()) {
    return Refuse(HislipFatal::BadInitialization, "no session waits for this connection");
  }
  if (!m_place.Line.ConnectFurther(InstrumentEnd(), 0)) {
    return Refuse(HislipFatal::Unidentified, "the instrument cannot be reached");
  }
  session->m_asynchronous = shared_from_this();
  ToInstrument() += HislipMessage(first.Header.Type, first.Header.Control, first.Header.Parameter, first.Payload);
  return true;
}

bool HislipCrossing::Refuse(HislipFatal code, std::string_view why) {
  ToClient() += HislipMessage(HislipType::FatalError, static_cast<std::uint8_t>(code), 0, why);
  DismissClient();
  return false;
}

void HislipCrossing::Watch(HislipReader& reader, std::string_view bytes, void (Talk::*said)(std::string_view, bool)) {
  if (!m_talk) return;
  while (const auto piece = reader.Next(bytes)) {
    switch (piece->Header.Type) {
    case HislipType::Data:
    case HislipType::DataEnd:
      ((*m_talk).*said)(piece->Payload, piece->Last && piece->Header.Type == HislipType::DataEnd);
      break;
    case HislipType::InitializeResponse:
      m_session = static_cast<std::uint16_t>(piece->Header.Parameter & SessionMask);
      break;
    case HislipType::Interrupted:
    case HislipType::DeviceClearAcknowledge:
      m_talk->Break();
      break;
    default:
      break;
    }
  }
}

} // namespace portico::tap
