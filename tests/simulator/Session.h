#pragma once

#include "simulator/connection/StreamConnection.h"
#include "simulator/devices/Device.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::test {

/// A client of an instrument in a time of its own, which only moves when a test says so.
class Session {
public:
  explicit Session(std::string_view kind = "dmm", std::uint64_t seed = 1)
      : Session(simulator::Device::Make(kind, seed)) {}
  explicit Session(std::unique_ptr<simulator::Instrument> instrument)
      : Session(std::make_shared<World>(std::move(instrument))) {}

  /// A further client of the same instrument, in the same time.
  Session Another() const { return Session(m_world); }

  simulator::Instrument& TheDevice() { return *m_world->instrument; }
  simulator::StreamConnection& Connection() { return *m_connection; }
  simulator::TimePoint Now() const { return m_world->now; }
  void Advance(simulator::TimePoint::duration time) { m_world->now += time; }

  /// Sends a message; the line feed is added.
  void Send(std::string_view message) { m_connection->Write(std::string(message) + '\n', Now()); }
  void SendRaw(std::string_view bytes) { m_connection->Write(bytes, Now()); }

  /// What can be read now, without its line feed.
  std::optional<std::string> Read() {
    auto response = m_connection->Read(Now());
    if (response && response->ends_with('\n')) response->pop_back();
    return response;
  }

  /// Sends a message and lets the time run until its answer is there; "(none)" if nothing is under way any more.
  std::string Ask(std::string_view message) {
    Send(message);
    return Await();
  }

  std::string Await() {
    for (;;) {
      if (auto response = Read()) return *response;
      const auto next = m_connection->NextEvent();
      if (!next) return "(none)";
      m_world->now = *next;
    }
  }

  /// Takes the oldest error.
  std::string Error() { return Ask("SYST:ERR?"); }

private:
  struct World {
    explicit World(std::unique_ptr<simulator::Instrument> made) : instrument(std::move(made)) {}

    const std::unique_ptr<simulator::Instrument> instrument;
    simulator::TimePoint now{std::chrono::hours(1)};
  };

  explicit Session(std::shared_ptr<World> world)
      : m_world(std::move(world)), m_connection(std::make_unique<simulator::StreamConnection>(*m_world->instrument)) {}

  std::shared_ptr<World> m_world;
  std::unique_ptr<simulator::StreamConnection> m_connection;
};

/// The number that an answer is.
inline double NumberIn(const std::string& answer) { return std::stod(answer); }

} // namespace portico::test
