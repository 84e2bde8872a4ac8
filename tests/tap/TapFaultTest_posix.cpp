#include "drivers/SteadyClock.h"
#include "drivers/session/InstrumentSession.h"
#include "drivers/standard/StandardTransports.h"
#include "server/SocketServer.h"
#include "support/Files.h"
#include "support/doubles/ScriptedServer.h"
#include "support/fixtures/FrameworkTest.h"
#include "tap/TapProtocols.h"

#include "document/log/CMockTimeStampServer.h"
#include "document/log/LogReader.h"

#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>
#include <variant>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace portico::tap {
namespace {

using test::Reaction;

/// A client on a socket, which waits no longer than a minute: a loaded machine is slow.
class Client {
public:
  explicit Client(std::uint16_t port) : m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const timeval patience{60, 0};
    setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }

  void Send(std::string_view bytes) const {
    EXPECT_EQ(send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
  }
  /// What comes until the other side ends; "!" stands behind what a break or an impatience ends.
  std::string ReadToEnd() const {
    std::string got;
    std::array<char, 1000> buffer{};
    for (;;) {
      const ssize_t count = recv(m_socket.Get(), buffer.data(), buffer.size(), 0);
      if (count <= 0) return count == 0 ? got : got + "!";
      got.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }
  /// From here on closing breaks the connection.
  void WillBreak() const {
    const linger none{1, 0};
    setsockopt(m_socket.Get(), SOL_SOCKET, SO_LINGER, &none, sizeof none);
  }

private:
  const system::FileDescriptor m_socket;
};

/// A tap between sockets, in a thread of its own for as long as Conversing() has not ended.
class TapFaultTest : public test::FrameworkTest {
protected:
  explicit TapFaultTest(Protocol client = Protocol::Raw) {
    gTimeStamper = New<CMockTimeStampServer>();
    auto log = New<CXMLDataStore>();
    log->Initialize(FromUtf8(m_folder.At("talk.log")).Text, false);
    const auto tell = [this, client](const std::string& text) {
      if (client == Protocol::Raw) m_told.push_back(text); // from one thread only
    };
    m_recorder.emplace(Recorder::Outputs{log, nullptr, false, tell});
    const auto name = std::get<drivers::ResourceName>(drivers::ResourceName::Parse(Instrument.ResourceName()));
    m_line = MakeLine(name, client, {m_server, std::chrono::seconds(10), nullptr, tell});
    m_place.emplace(*m_line, *m_recorder);
    m_server.Listen({"127.0.0.1", 0, MakeFactory(name, client, *m_place)});
    m_thread = std::thread([this] { m_server.Run(); });
  }
  ~TapFaultTest() override {
    End();
    m_recorder.reset();
    gTimeStamper = nullptr;
  }

  void End() {
    if (!m_thread.joinable()) return;
    m_server.Stop();
    m_thread.join();
    m_recorder->Finish();
  }
  std::uint16_t Port() const { return m_server.Port(); }

  /// How many sessions of a whole log are closed.
  std::size_t ClosedSessions() {
    struct Counter final : ILogVisitor {
      void SessionOpened(const LogElement& session) override {
        Count += session.Attribute("SessionCloseTimeStamp") ? 1 : 0;
      }
      std::size_t Count = 0;
    } counter;
    End();
    EXPECT_EQ(LogReader::Read(m_folder.Read("talk.log"), counter).Ending, LogReading::End::Complete);
    EXPECT_TRUE(m_told.empty());
    return counter.Count;
  }

  test::ScriptedServer Instrument{test::InstrumentScript{}};

private:
  const test::TemporaryFolder m_folder;
  server::SocketServer m_server;
  std::vector<std::string> m_told;
  std::optional<Recorder> m_recorder;
  std::unique_ptr<IInstrumentLine> m_line;
  std::optional<Place> m_place;
  std::thread m_thread;
};

const std::string Answer = "A,1\n#13\n\n\n\n";

TEST_F(TapFaultTest, ClientGetsAllThatAnInstrumentSaidBeforeItDied) {
  for (std::size_t cut = 0; cut <= Answer.size(); ++cut) {
    Instrument.On("A?", Reaction::Close(Answer.substr(0, cut)));
    const Client client(Port());
    client.Send("A?\n");
    EXPECT_EQ(client.ReadToEnd(), Answer.substr(0, cut)) << cut;
  }
  EXPECT_EQ(ClosedSessions(), Answer.size() + 1);
}

TEST_F(TapFaultTest, InstrumentGetsAllThatAClientSaidBeforeItHungUp) {
  const std::string said = "*RST\nDATA #13\n\n\n\nA?\n";
  std::string expected;
  for (std::size_t cut = 1; cut <= said.size(); ++cut) {
    {
      const Client client(Port());
      client.Send(said.substr(0, cut));
    }
    expected += said.substr(0, cut);
    Instrument.WaitForReceived(expected);
    EXPECT_EQ(Instrument.Received(), expected);
  }
  Instrument.WaitForNoClient();
  EXPECT_EQ(ClosedSessions(), said.size());
}

TEST_F(TapFaultTest, ClientThatHangsUpLeavesItsPlaceToWhoComesAtOnce) {
  Instrument.On("A?", Reaction::Answer("1\n"));
  Instrument.On("END", Reaction::Close());
  for (int i = 0; i < 20; ++i) {
    {
      const Client before(Port());
      before.Send("A?\nA?\n");
      if (i % 2 == 0) before.WillBreak();
    }
    const Client client(Port());
    client.Send("A?\nEND\n");
    EXPECT_EQ(client.ReadToEnd(), "1\n");
  }
}

TEST_F(TapFaultTest, LongAnswerCrossesWhole) {
  const std::string answer(std::size_t{4} << 20U, 'x');
  Instrument.On("A?", Reaction::Close(answer + '\n'));
  const Client client(Port());
  client.Send("A?\n");
  Instrument.WaitForReceived("A?\n");
  const std::string got = client.ReadToEnd();
  EXPECT_EQ(got.size(), answer.size() + 1);
}

/// Clients of another kind than the instrument behind its raw socket.
class RelayFaultTest : public TapFaultTest, public testing::WithParamInterface<Protocol> {
protected:
  RelayFaultTest() : TapFaultTest(GetParam()) {}

  /// What a client hears that asks "A?", or why it hears nothing.
  drivers::DriverResult Ask(std::string& answer) {
    const std::string port = std::to_string(Port());
    const std::string text = GetParam() == Protocol::Vxi11 ? "TCPIP::127.0.0.1," + port + "::inst0::INSTR"
                                                           : "TCPIP::127.0.0.1::hislip0," + port + "::INSTR";
    const auto name = std::get<drivers::ResourceName>(drivers::ResourceName::Parse(text));
    drivers::SteadyClock clock;
    drivers::InstrumentSession client(name, drivers::StandardTransports({}, clock, nullptr).at(name.Kind())(name),
                                      {clock, std::chrono::seconds(60)});
    auto result = client.Open();
    if (result.Succeeded()) result = client.Write("A?");
    if (result.Succeeded())
      result = client.ReadInPieces([&answer](std::string_view piece) {
        answer += piece;
        return true;
      });
    client.Close();
    return result;
  }
};

INSTANTIATE_TEST_SUITE_P(Protocols, RelayFaultTest, testing::Values(Protocol::Vxi11, Protocol::Hislip),
                         [](const auto& protocol) { return protocol.param == Protocol::Vxi11 ? "Vxi11" : "Hislip"; });

TEST_P(RelayFaultTest, InstrumentThatDiesAtAnyByteIsToldAndFoundByTheNextClient) {
  const std::string answer = "#13\n\n\n\n";
  for (std::size_t cut = 0; cut <= answer.size(); ++cut) {
    Instrument.On("A?", Reaction::Close(answer.substr(0, cut)));
    std::string heard;
    const auto result = Ask(heard);
    EXPECT_EQ(result.Succeeded(), cut == answer.size()) << cut;
    EXPECT_NE(result.Status, drivers::DriverStatus::ReadTimeout) << cut;
  }
  EXPECT_EQ(ClosedSessions(), answer.size() + 1);
}

TEST_P(RelayFaultTest, LongAnswerCrossesWhole) {
  Instrument.On("A?", Reaction::Answer(std::string(std::size_t{4} << 20U, 'x') + '\n'));
  std::string heard;
  EXPECT_TRUE(Ask(heard).Succeeded());
  EXPECT_EQ(heard.size(), std::size_t{4} << 20U);
}

} // namespace
} // namespace portico::tap
