#include "tap/RawCrossing.h"

namespace portico::tap {

server::ConnectionFactory RawCrossing::Factory(Place& place) {
  return [&place](std::uint16_t /*port*/) {
    const auto crossing = std::make_shared<RawCrossing>(place.Record);
    auto end = crossing->ClientEnd();
    if (!crossing->Begin(place)) crossing->DismissClient();
    return end;
  };
}

bool RawCrossing::Begin(Place& place) {
  if (!place.Take(shared_from_this()) || !place.Line.Connect(InstrumentEnd())) return false;
  m_talk.emplace(std::make_shared<Recording>(place.Record), drivers::Marks::None);
  return true;
}

void RawCrossing::FromClient(std::string_view bytes) {
  ToInstrument() += bytes;
  m_talk->Sent(bytes);
}

void RawCrossing::FromInstrument(std::string_view bytes) {
  ToClient() += bytes;
  m_talk->Answered(bytes);
}

} // namespace portico::tap
