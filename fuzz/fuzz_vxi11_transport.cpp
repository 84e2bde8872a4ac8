// Plays the VXI-11 instrument and the portmapper for the transport: whatever they send, it ends in its time, reads no
// more than there is room for, and sends nothing but RPC records.

#include "drivers/vxi11/Vxi11Transport.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

using namespace portico::drivers;
using portico::wire::RpcRecordReader;

namespace {

/// A clock on which a read in vain takes all the time that it has.
class Clock final : public IClock {
public:
  TimePoint Now() const override { return m_now; }
  void SleepUntil(TimePoint moment) override { m_now = std::max(m_now, moment); }

private:
  TimePoint m_now{};
};

/// Brings what the fuzzer says, in pieces: the first byte of each says how long it is, and none that there is nothing.
class Stream final : public ITransport {
public:
  Stream(std::string_view& input, Clock& clock) : m_input(input), m_clock(clock) {}

  DriverResult Open(TimePoint) override { return {}; }
  void Close() noexcept override {}
  DriverResult Write(std::string_view bytes, TimePoint) override {
    RpcRecordReader record(std::size_t{1} << 17U);
    if (record.Feed(bytes) != bytes.size() || !record.Complete()) std::abort();
    return {};
  }
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override {
    if (m_input.empty()) return {{DriverStatus::ConnectionClosed}};
    const std::string_view piece = m_input.substr(1, static_cast<unsigned char>(m_input.front()));
    m_input.remove_prefix(1 + piece.size());
    if (!piece.empty()) return {{}, piece.copy(buffer, size)};
    m_clock.SleepUntil(deadline);
    return {{DriverStatus::ReadTimeout}};
  }

private:
  std::string_view& m_input;
  Clock& m_clock;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr auto timeout = std::chrono::milliseconds(1000);
  std::string_view input(reinterpret_cast<const char*>(data), size);
  Clock clock;
  const auto connect = [&](const std::string&, std::uint16_t) { return std::make_unique<Stream>(input, clock); };
  // Half of the inputs are asked for the port, too.
  const bool named = size % 2 == 0;
  Vxi11Transport transport({0, "bench", "inst0", named ? std::optional<std::uint16_t>(1024) : std::nullopt}, connect,
                           clock);
  std::array<char, 64> buffer = {};
  while (!input.empty() && transport.Open(clock.Now() + timeout).Succeeded()) {
    while (transport.Write("SYST:ERR?\r\n", clock.Now() + timeout).Succeeded()) {
      Received received;
      do {
        received = transport.Read(buffer.data(), buffer.size(), clock.Now() + timeout);
        if (received.Count > buffer.size()) std::abort();
      } while (received.Result.Succeeded() && !received.End);
      const bool goesOn = received.Result.Succeeded() ||
                          (received.Result.Status == DriverStatus::ReadTimeout && transport.Clear(timeout));
      if (!goesOn) break;
    }
    transport.ReturnToLocal(clock.Now() + timeout);
    transport.Close();
  }
  return 0;
}
