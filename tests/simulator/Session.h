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
      : instrument_(Instrument::Make(device, seed)) {}

  Instrument& TheInstrument() { return *instrument_; }
  TimePoint Now() const { return now_; }
  void Advance(TimePoint::duration time) { now_ += time; }

  /// Sends a message; the line feed is added.
  void Send(std::string_view message) { instrument_->Write(std::string(message) + '\n', now_); }
  void SendRaw(std::string_view bytes) { instrument_->Write(bytes, now_); }

  /// What can be read now, without its line feed.
  std::optional<std::string> Read() {
    auto response = instrument_->Read(now_);
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
      const auto next = instrument_->NextEvent();
      if (!next) return "(none)";
      now_ = *next;
    }
  }

  /// Takes the oldest error.
  std::string Error() { return Ask("SYST:ERR?"); }

private:
  std::unique_ptr<Instrument> instrument_;
  TimePoint now_{std::chrono::hours(1)};
};

} // namespace portico::simulator
