#include "server/PseudoTerminal.h"

#include "server/SocketServer.h"
#include "server/TestClient.h"
#include "simulator/connection/ServedLine.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace portico::server {
namespace {

using namespace simulator;

/// A client that leaves the line's settings as it finds them.
class LineClient {
public:
  explicit LineClient(const std::string& name) : m_port(open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}

  std::string Ask(std::string_view query) {
    EXPECT_EQ(write(m_port.Get(), query.data(), query.size()), static_cast<ssize_t>(query.size()));
    std::string answer;
    char byte = 0;
    pollfd readable{m_port.Get(), POLLIN, 0};
    while (!answer.ends_with('\n') && poll(&readable, 1, 10000) > 0 && read(m_port.Get(), &byte, 1) == 1) {
      answer += byte;
    }
    return answer;
  }

private:
  const system::FileDescriptor m_port;
};

/// A device behind a serial line and a socket, in a thread of its own.
class PseudoTerminalTest : public testing::Test {
protected:
  PseudoTerminalTest() {
    m_server.Add(m_line.TakeFarEnd(), std::make_unique<ServedLine>(ServedStream::Factory(*m_device)));
    m_thread = std::thread([this] { m_server.Run(); });
  }
  ~PseudoTerminalTest() override {
    m_server.Stop();
    m_thread.join();
  }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  PseudoTerminal m_line;
  SocketServer m_server{{{"127.0.0.1", 0, ServedStream::Factory(*m_device)}}};
  std::thread m_thread;
};

TEST_F(PseudoTerminalTest, CarriesBytesAsTheyAre) {
  LineClient client(m_line.Name());
  EXPECT_EQ(client.Ask("*IDN?\r\n"), "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n");
  EXPECT_EQ(client.Ask("TRAC #13\x03\x04\x11\nTRAC?\n"), "#13\x03\x04\x11\n");
}

TEST_F(PseudoTerminalTest, ServesClientsThatComeOneAfterTheOther) {
  EXPECT_EQ(LineClient(m_line.Name()).Ask("*ESE 7;*ESE?\n"), "7\n");
  test::TestClient other(m_server.Port()); // once it is answered, the server has looked at the line without its client
  other.Send("*ESE?\n");
  EXPECT_EQ(other.ReadLine(), "7\n");
  EXPECT_EQ(LineClient(m_line.Name()).Ask("*ESE?\n"), "7\n");
}

TEST_F(PseudoTerminalTest, LongAnswersArriveWhole) {
  LineClient client(m_line.Name());
  EXPECT_EQ(client.Ask("SIM:LENG? 100000\n"), std::string(100000, '5') + '\n');
  EXPECT_EQ(client.Ask("*ESE?\n"), "0\n");
}

} // namespace
} // namespace portico::server
