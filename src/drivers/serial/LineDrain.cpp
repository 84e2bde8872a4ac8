#include "drivers/serial/LineDrain.h"

#include <chrono>

namespace portico::drivers {
namespace {

/// With its start, parity and stop bits, and what the port may take between two.
constexpr std::int64_t BitsPerByte = 12;
/// What the system may take.
constexpr std::chrono::milliseconds Margin(100);

} // namespace

int DrainLine(const std::function<int()>& queued, const SerialLine& line, IClock& clock,
              const system::Cancellation* cancellation) {
  int left = queued();
  const TimePoint deadline = clock.Now() + Margin + std::chrono::milliseconds(1000 * BitsPerByte * left / line.Speed);
  while (left > 0 && clock.Now() < deadline && !system::Requested(cancellation)) {
    clock.SleepUntil(clock.Now() + std::chrono::milliseconds(1));
    left = queued();
  }
  return left;
}

} // namespace portico::drivers
