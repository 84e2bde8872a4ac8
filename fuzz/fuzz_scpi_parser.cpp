// Feeds a multimeter any bytes, in pieces of any size and at any times, and reads what it answers.

#include "simulator/connection/StreamConnection.h"
#include "simulator/devices/Device.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

using portico::simulator::Device;
using portico::simulator::StreamConnection;
using portico::simulator::TimePoint;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto device = Device::Make("dmm", 1);
  StreamConnection connection(*device);
  // An answer without end gives a piece at each of its events: two are as good as all.
  constexpr int mostEvents = 2;
  std::string_view input(reinterpret_cast<const char*>(data), size);
  TimePoint now{};
  while (!input.empty()) {
    // The first byte of each piece says how long it is, and so when the next one comes.
    const auto control = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    const std::string_view piece = input.substr(0, control + 1U);
    input.remove_prefix(piece.size());
    connection.Write(piece, now);
    for (int i = 0; i < mostEvents; ++i) {
      while (connection.Read(now)) {
      }
      const auto next = connection.NextEvent();
      if (!next) break;
      now = std::max(now, *next);
    }
    now += std::chrono::microseconds(control);
  }
  return 0;
}
