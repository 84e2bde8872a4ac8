#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"

#include "wire/HislipMessage.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <vector>

using namespace portico::simulator;
namespace server = portico::server;
using namespace portico::wire;

namespace {

constexpr std::uint64_t ClientsLimit = 40;
constexpr std::size_t MostOutput = std::size_t{1} << 20U; // of one turn; then its client goes

/// One of a client's connections. What comes on it has to be HiSLIP, and no more at once than the client takes.
class Wire {
public:
  explicit Wire(const server::ConnectionFactory& factory) : m_connection(factory(0)) {}

  void Send(std::string_view bytes, TimePoint now) {
    if (!m_ended && m_connection->AcceptsInput()) m_connection->Receive(bytes, now);
  }

  void Listen(TimePoint now) {
    std::string output;
    std::size_t before = 0;
    do {
      before = output.size();
      m_connection->Collect(output, now);
    } while (output.size() > before && output.size() < MostOutput);
    Judge(output);
    m_ended = m_ended || output.size() >= MostOutput || m_connection->Finished(false);
    // What is due and brings nothing would be asked for again and again.
    const auto next = m_connection->NextEvent();
    if (!m_ended && next && *next <= now) std::abort();
  }

  bool Ended() const { return m_ended; }
  std::optional<TimePoint> NextEvent() const { return m_ended ? std::nullopt : m_connection->NextEvent(); }

private:
  void Judge(std::string_view output) {
    while (const auto piece = m_reader.Next(output)) {
      if (piece->TooLarge || m_fatal) std::abort();
      m_fatal = piece->Header.Type == HislipType::FatalError;
    }
    if (m_reader.Broken()) std::abort();
  }

  std::unique_ptr<server::IServedConnection> m_connection;
  HislipReader m_reader{HislipLongestText};
  bool m_fatal = false;
  bool m_ended = false;
};

/// A device with two clients, whose sessions are open at first.
class Bench {
public:
  Bench() {
    for (std::uint16_t number = 1; number <= 2; ++number) Open(number);
  }

  void Act(unsigned action, std::string_view bytes) {
    Wire& wire = m_wires[action % m_wires.size()];
    switch (action / m_wires.size() % 8) {
    case 0:
      m_now += std::chrono::milliseconds(bytes.size());
      break;
    case 1:
      m_now = std::max(m_now, wire.NextEvent().value_or(m_now));
      break;
    case 2:
      if (wire.Ended()) wire = Wire(m_factory);
      break;
    default:
      wire.Send(bytes, m_now);
      break;
    }
    for (Wire& each : m_wires) each.Listen(m_now);
  }

private:
  void Open(std::uint16_t number) {
    Wire& synchronous = m_wires.emplace_back(m_factory);
    synchronous.Send(HislipMessage(HislipType::Initialize, 0, HislipVersionAnd(HislipVersion1, 0), "hislip0"), m_now);
    Wire& asynchronous = m_wires.emplace_back(m_factory);
    asynchronous.Send(HislipMessage(HislipType::AsyncInitialize, 0, number), m_now);
    asynchronous.Send(HislipMessage(HislipType::AsyncMaximumMessageSize, 0, 0, HislipSize(ClientsLimit)), m_now);
  }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  const server::ConnectionFactory m_factory = HislipConnection::Factory(*m_device);
  TimePoint m_now{std::chrono::hours(1)};
  std::vector<Wire> m_wires;
};

} // namespace

// Whatever its clients send, the server sends them nothing but messages of the size that they take, and nothing behind
// a fatal error. The input is a row of actions: a byte that picks it and the connection, one with the number of its
// bytes, and these.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bench bench;
  std::string_view script(reinterpret_cast<const char*>(data), size);
  while (script.size() > 2) {
    const std::string_view bytes = script.substr(2, static_cast<unsigned char>(script[1]));
    bench.Act(static_cast<unsigned char>(script[0]), bytes);
    script.remove_prefix(2 + bytes.size());
  }
  return 0;
}
