// Feeds a VXI-11 server any bytes, as two clients, in pieces of any size and at any times. What it sends is replies.

#include "simulator/devices/Device.h"
#include "simulator/vxi11/ServedVxi11.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

using namespace portico;
using simulator::TimePoint;

namespace {

constexpr std::size_t LongestReply = std::size_t{2} << 20U;

/// A client that looks at what it gets.
struct Client {
  std::unique_ptr<server::IServedConnection> Connection;
  wire::RpcRecordReader Replies{LongestReply};

  /// False if nothing came.
  bool Collect(TimePoint now) {
    std::string output;
    Connection->Collect(output, now);
    for (std::string_view rest = output; !rest.empty();) {
      rest.remove_prefix(Replies.Feed(rest));
      if (!Replies.Complete()) std::abort();
      wire::XdrReader reader(Replies.Content());
      wire::RpcReply reply;
      if (!wire::ReadRpcReply(reader, reply)) std::abort();
      Replies.Restart();
    }
    return !output.empty();
  }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto device = simulator::Device::Make("dmm", 1);
  const auto connect = simulator::ServedVxi11::Factory(*device);
  std::array<Client, 2> clients;
  for (Client& client : clients) client.Connection = connect(771);
  // An answer without end gives a piece at each of its events: two are as good as all.
  constexpr int mostEvents = 2;
  std::string_view input(reinterpret_cast<const char*>(data), size);
  TimePoint now{};
  while (!input.empty()) {
    // The first byte of each piece says whose it is, how long it is, and so when the next one comes.
    const auto control = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    const std::string_view piece = input.substr(0, control >> 1U);
    input.remove_prefix(piece.size());
    Client& client = clients[control & 1U];
    if (client.Connection->Finished(false)) client.Connection = connect(771);
    if (client.Connection->AcceptsInput()) client.Connection->Receive(piece, now);
    for (int i = 0; i < mostEvents; ++i) {
      for (Client& each : clients) {
        while (each.Collect(now)) {
        }
      }
      const auto next = client.Connection->NextEvent();
      if (!next) break;
      now = std::max(now, *next);
    }
    now += std::chrono::microseconds(control);
  }
  return 0;
}
