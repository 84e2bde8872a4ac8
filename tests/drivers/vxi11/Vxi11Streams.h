#pragma once

#include "drivers/vxi11/Vxi11Transport.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedTransport.h"

#include <deque>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace portico::test {

using namespace std::string_literals;

/// One RPC record of one fragment, which is the last.
inline std::string Record(const std::string& content) {
  return "\x80\0"s + static_cast<char>(content.size() / 256) + static_cast<char>(content.size() % 256) + content;
}

/// The record of a successful reply to the call of that number on its connection.
inline std::string Reply(char xid, const std::string& results) {
  return Record("\0\0\0"s + xid + "\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s + results);
}

/// The record of a call of a procedure of the core program.
inline std::string CoreCall(char xid, char procedure, const std::string& arguments) {
  return Record("\0\0\0"s + xid + "\0\0\0\0\0\0\0\2\x00\x06\x07\xAF\0\0\0\1\0\0\0"s + procedure +
                "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s + arguments);
}

/// A transport to "bench" over scripted streams. Its link has the number 7, its abort channel is at port 771.
class Vxi11TransportTest : public testing::Test {
protected:
  drivers::StreamConnector Connector() {
    return [this](const std::string& host, std::uint16_t port) {
      connections.push_back(host + ":" + std::to_string(port));
      return std::make_unique<ScriptedTransport>(port == 111 ? portMapper : port == 771 ? abort : core);
    };
  }

  std::unique_ptr<drivers::Vxi11Transport> Make(std::optional<std::uint16_t> port, std::string device = "inst0") {
    return std::make_unique<drivers::Vxi11Transport>(drivers::LanDeviceAddress{0, "bench", std::move(device), port},
                                                     Connector(), clock);
  }

  /// Makes a link whose calls may write `longest` bytes, which are four characters.
  void Open(const std::string& longest = "\0\0\4\0"s) {
    core.Piece(Reply(1, "\0\0\0\0\0\0\0\7\0\0\x03\x03"s + longest));
    ASSERT_TRUE(transport->Open(Deadline()).Succeeded());
    core.written.clear();
  }

  /// Reads into a buffer of that size, and expects it to succeed.
  std::string Read(std::size_t size = 65536) {
    std::string buffer(size, '~');
    received = transport->Read(buffer.data(), size, Deadline());
    EXPECT_EQ(received.Result.Status, drivers::DriverStatus::Success) << received.Result.Detail;
    return buffer.substr(0, received.Count);
  }

  /// Reads and expects that to fail.
  drivers::DriverResult FailedRead() {
    std::string buffer(16, '~');
    return transport->Read(buffer.data(), buffer.size(), Deadline()).Result;
  }

  /// In 5000 milliseconds: 0x1388 on the wire, half of it 0x09C4.
  drivers::TimePoint Deadline() { return clock.Now() + std::chrono::seconds(5); }

  ManualClock clock;
  ScriptedTransport::Record portMapper;
  ScriptedTransport::Record core;
  ScriptedTransport::Record abort;
  /// "HOST:PORT" of each stream that was made.
  std::vector<std::string> connections;
  std::unique_ptr<drivers::Vxi11Transport> transport = Make(1024);
  drivers::Received received;
};

} // namespace portico::test
