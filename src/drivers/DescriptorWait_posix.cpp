#include "drivers/DescriptorWait.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <poll.h>

namespace portico::drivers {

int WaitFor(int descriptor, short events, TimePoint deadline) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - TimePoint::clock::now()).count();
    if (left <= 0) return ETIMEDOUT;
    pollfd entry = {descriptor, events, 0};
    const auto timeout = std::min<decltype(left)>(left, std::numeric_limits<int>::max());
    const int ready = ::poll(&entry, 1, static_cast<int>(timeout));
    if (ready > 0) return 0;
    if (ready < 0 && errno != EINTR) return errno;
  }
}

} // namespace portico::drivers
