#include "simulator/connection/ServedStream.h"

#include <utility>

namespace portico::simulator {

server::ConnectionFactory ServedStream::Factory(Instrument& instrument) {
  return [&instrument](std::uint16_t /*port*/) { return std::make_unique<ServedStream>(instrument); };
}

void ServedStream::Collect(std::string& output, TimePoint now) {
  auto response = m_connection.Read(now);
  if (!response) return;
  if (output.empty()) {
    output = std::move(*response);
  } else {
    output += *response;
  }
}

bool ServedStream::Finished(bool inputEnded) const {
  // A client that only ended its own side still gets the answers that are under way.
  return (inputEnded || m_connection.CloseRequested()) && !m_connection.Busy();
}

} // namespace portico::simulator
