#include "drivers/simulated/SimulatedTransport.h"

#include <algorithm>

namespace portico::drivers {

SimulatedTransport::SimulatedTransport(std::string device, SimulatorConnector connect, IClock& clock,
                                       const system::Cancellation* cancellation)
    : m_device(std::move(device)), m_connect(std::move(connect)), m_clock(clock), m_cancellation(cancellation) {}

DriverResult SimulatedTransport::Open(TimePoint /*deadline*/) {
  Close();
  try {
    m_connection = m_connect(m_device);
  } catch (const simulator::NoInstrument& refusal) {
    return {DriverStatus::ConnectFailed, refusal.what()};
  }
  if (m_connection == nullptr) return {DriverStatus::UnknownSimulatedDevice, m_device};
  return {};
}

void SimulatedTransport::Close() noexcept {
  m_connection.reset();
  m_response.clear();
  m_position = 0;
}

DriverResult SimulatedTransport::Write(std::string_view bytes, TimePoint /*deadline*/) {
  m_connection->Write(bytes, m_clock.Now());
  return {};
}

Received SimulatedTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  if (m_position == m_response.size()) {
    if (DriverResult result = AwaitResponse(deadline); !result.Succeeded()) return {std::move(result)};
  }
  const std::size_t count = std::min(size, m_response.size() - m_position);
  std::copy_n(m_response.data() + m_position, count, buffer);
  m_position += count;
  return {{}, count};
}

DriverResult SimulatedTransport::AwaitResponse(TimePoint deadline) {
  for (;;) {
    if (system::Requested(m_cancellation)) return {DriverStatus::Cancelled, m_device};
    const TimePoint now = m_clock.Now();
    if (now >= deadline) return {DriverStatus::ReadTimeout, m_device};
    if (auto response = m_connection->Read(now); response && !response->empty()) {
      m_response = std::move(*response);
      m_position = 0;
      return {};
    }
    const auto event = m_connection->NextEvent();
    AboutToWait();
    m_clock.SleepUntil(event && *event > now ? std::min(*event, deadline) : deadline);
  }
}

} // namespace portico::drivers
