#include "system/DescriptorWait.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <limits>
#include <poll.h>

namespace portico::system {
namespace {

/// Two connections and the order to give up are the most that anybody waits for.
constexpr std::size_t MostDescriptors = 3;

} // namespace

int WaitForAny(std::span<Awaited> awaited, std::chrono::steady_clock::time_point deadline,
               const Cancellation* cancellation) {
  using std::chrono::milliseconds;
  std::array<pollfd, MostDescriptors> entries = {};
  if (awaited.size() >= entries.size()) return EINVAL;
  std::size_t count = 0;
  for (const Awaited& entry : awaited) entries[count++] = {entry.Descriptor, entry.Events, 0};
  const std::size_t order = count;
  if (cancellation != nullptr) entries[count++] = {cancellation->Descriptor(), POLLIN, 0};
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    if (left <= 0) return ETIMEDOUT;
    const auto timeout = std::min<milliseconds::rep>(left, std::numeric_limits<int>::max());
    const int ready = ::poll(entries.data(), count, static_cast<int>(timeout));
    if (ready < 0 && errno != EINTR) return errno;
    if (ready <= 0) continue;
    if (cancellation != nullptr && entries[order].revents != 0) return ECANCELED;
    for (std::size_t i = 0; i < awaited.size(); ++i) awaited[i].Ready = entries[i].revents;
    return 0;
  }
}

int WaitFor(int descriptor, short events, std::chrono::steady_clock::time_point deadline,
            const Cancellation* cancellation) {
  std::array awaited = {Awaited{descriptor, events}};
  return WaitForAny(awaited, deadline, cancellation);
}

} // namespace portico::system
