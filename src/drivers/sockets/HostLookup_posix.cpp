#include "drivers/sockets/HostLookup.h"

#include "system/DescriptorWait.h"
#include "system/WakePipe.h"

#include <cerrno>
#include <cstring>
#include <future>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>

namespace portico::drivers {
namespace {

HostLookup Ask(const std::string& host, std::uint16_t port, int flags) {
  addrinfo hints = {};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV | flags;
  addrinfo* first = nullptr;
  const int error = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &first);
  if (error != 0) return {{DriverStatus::UnknownHost, host + ", " + ::gai_strerror(error)}};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> list(first, &::freeaddrinfo);
  HostLookup lookup;
  for (const addrinfo* entry = first; entry != nullptr; entry = entry->ai_next) {
    NetworkAddress address(entry->ai_addrlen);
    std::memcpy(address.data(), entry->ai_addr, address.size());
    lookup.Addresses.push_back(std::move(address));
  }
  return lookup;
}

} // namespace

HostLookup LookUpHost(const std::string& host, std::uint16_t port, TimePoint deadline,
                      const system::Cancellation* cancellation) {
  // An address needs no look-up, and so no thread.
  if (HostLookup numeric = Ask(host, port, AI_NUMERICHOST); numeric.Result.Succeeded()) return numeric;
  try {
    const auto done = std::make_shared<system::WakePipe>();
    std::packaged_task<HostLookup()> task([host, port] { return Ask(host, port, 0); });
    std::future<HostLookup> answer = task.get_future();
    std::thread([task = std::move(task), done]() mutable {
      task();
      done->Wake();
    }).detach();
    const int error = system::WaitFor(done->Descriptor(), POLLIN, deadline, cancellation);
    if (error == 0) return answer.get();
    if (error == ECANCELED) return {{DriverStatus::Cancelled, "the look-up of the name " + host}};
  } catch (const std::system_error& error) {
    return {{DriverStatus::ConnectFailed, host + ", " + error.what()}};
  }
  return {{DriverStatus::ConnectTimeout, "the look-up of the name " + host}};
}

} // namespace portico::drivers
