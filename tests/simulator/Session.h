#pragma once

#include "simulator/Instrument.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico::simulator {

/// A client of an instrument in a time of its own, which only moves when a test says so.
class Session {
public:
  explicit Session(std::string_view device = "dmm", std::uint64_t seed = 1)
      : m_instrument(Instrument::Make(device, seed)) {}

  Instrument& TheInstrument() { return *m_instrument; }
  TimePoint Now() const { return m_now; }
  void Advance(TimePoint::duration time) { m_now += time; }

  /// Sends a message; the line feed is added.
  void Send(std::string_view message) { m_instrument->Write(std::string(message) + '\n', m_now); }
  void SendRaw(std::string_view bytes) { m_instrument->Write(bytes, m_now); }

  /// What can be read now, without its line feed.
  std::optional<std::string> Read() {
    auto response = m_instrument->Read(m_now);
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
      const auto next = m_instrument->NextEvent();
      if (!next) return "(none)";
      m_now = *next;
    }
  }

  /// Takes the oldest error.
  std::string Error() { return Ask("SYST:ERR?"); }

private:
  std::unique_ptr<Instrument> m_instrument;
  TimePoint m_now{std::chrono::hours(1)};
};

} // namespace portico::simulator
