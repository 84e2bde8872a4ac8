#pragma once

#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"

#include "wire/Bytes.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

namespace portico::simulator {

using std::chrono::milliseconds;
using wire::Bytes;

/// One of a client's connections, as strings.
class HislipWire {
public:
  HislipWire(std::unique_ptr<server::IServedConnection> connection, const TimePoint& now)
      : m_connection(std::move(connection)), m_now(&now) {}

  void Send(std::string_view bytes) { m_connection->Receive(bytes, *m_now); }
  /// All that the server has for the client now.
  std::string Collected() {
    std::string output;
    std::size_t before = 0;
    do {
      before = output.size();
      m_connection->Collect(output, *m_now);
    } while (output.size() > before);
    return output;
  }
  /// Sends, and what comes of that.
  std::string Ask(std::string_view bytes) {
    Send(bytes);
    return Collected();
  }
  bool Finished(bool inputEnded = false) const { return m_connection->Finished(inputEnded); }
  bool AcceptsInput() const { return m_connection->AcceptsInput(); }
  /// Whether the server is to collect at once.
  bool Due() const {
    const auto next = m_connection->NextEvent();
    return next && *next <= *m_now;
  }
  std::optional<TimePoint> NextEvent() const { return m_connection->NextEvent(); }
  void Close() { m_connection.reset(); }

private:
  std::unique_ptr<server::IServedConnection> m_connection;
  const TimePoint* m_now;
};

struct HislipWires {
  HislipWire Synchronous;
  HislipWire Asynchronous;
};

/// A device behind HiSLIP and clients of it, whose bytes and whose time the test tells.
class HislipClients : public testing::Test {
protected:
  HislipWire Connect() { return {m_factory(4880), m_now}; }

  /// A client whose session has this number.
  HislipWires Open(std::string_view number = "0001") {
    HislipWires client = {Connect(), Connect()};
    EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 00 00 01005858 0000000000000007") + "hislip0"),
              Bytes("4853 01 00 0100") + Bytes(number) + Bytes("0000000000000000"));
    EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 11 00 0000") + Bytes(number) + Bytes("0000000000000000")),
              Bytes("4853 12 00 00005456 0000000000000000"));
    EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 0F 00 00000000 0000000000000008 0000000000010000")),
              Bytes("4853 10 00 00000000 0000000000000008 0000000000100000"));
    return client;
  }

  /// A message that ends, with this id and control code.
  static std::string Command(std::string_view id, std::string_view text, std::string_view control = "00") {
    return Bytes("4853 07") + Bytes(control) + Bytes(id) + Bytes("00000000000000") + static_cast<char>(text.size()) +
           std::string(text);
  }
  static std::string Answer(std::string_view id, std::string_view text) { return Command(id, text); }

  /// The control code of what is asked of the status byte; `id` is that of the last message.
  static std::string StatusQuery(std::string_view id, std::string_view control = "00") {
    return Bytes("4853 15") + Bytes(control) + Bytes(id) + Bytes("0000000000000000");
  }
  static std::string Status(std::string_view byte) {
    return Bytes("4853 16") + Bytes(byte) + Bytes("00000000 0000000000000000");
  }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  const server::ConnectionFactory m_factory = HislipConnection::Factory(*m_device);
  TimePoint m_now{std::chrono::hours(1)};
};

} // namespace portico::simulator
