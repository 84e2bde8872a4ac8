#include "tap/HislipCrossing.h"

#include "tap/TapBench.h"
#include "wire/HislipMessage.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using namespace wire;
using testing::ElementsAre;

constexpr std::uint16_t Session = 7;

class HislipCrossingTest : public TapBench {
protected:
  /// A client with a session, on its synchronous connection.
  Wire& Come() {
    Wire& client = NewClient(m_factory);
    Say(client, HislipMessage(HislipType::Initialize, 0, 0x01005859, "hislip0"));
    if (Instruments.empty()) return client;
    Say(*Instruments.back(), HislipMessage(HislipType::InitializeResponse, 0, 0x01000000 + Session));
    return client;
  }
  Wire& Instrument() { return *Instruments.front(); }

  const server::ConnectionFactory m_factory = HislipCrossing::Factory(*Place, "hislip3");
};

TEST_F(HislipCrossingTest, DeviceIsTheInstruments) {
  Wire& client = Come();
  EXPECT_EQ(Instrument().Got, HislipMessage(HislipType::Initialize, 0, 0x01005859, "hislip3"));
  EXPECT_EQ(client.Got, HislipMessage(HislipType::InitializeResponse, 0, 0x01000000 + Session));
}

TEST_F(HislipCrossingTest, MessagesGoOnAsTheyComeAndUnchanged) {
  Wire& client = Come();
  Instrument().Got.clear();
  client.Got.clear();
  const std::string question =
      HislipMessage(HislipType::Data, 1, 0xFFFFFF00, "*ID") + HislipMessage(HislipType::DataEnd, 0, 0xFFFFFF00, "N?");
  Say(client, question.substr(0, 18));
  EXPECT_EQ(Instrument().Got, question.substr(0, 18));
  Say(client, question.substr(18));
  EXPECT_EQ(Instrument().Got, question);
  const std::string answer =
      HislipMessage(HislipType::Data, 0, 0xFFFFFF00, "1\n2") + HislipMessage(HislipType::DataEnd, 0, 0xFFFFFF00, "\n");
  Say(Instrument(), answer);
  EXPECT_EQ(client.Got, answer);
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "< 1\n2"));
}

TEST_F(HislipCrossingTest, AsynchronousConnectionLeadsToTheSameInstrument) {
  Come();
  Wire& second = NewClient(m_factory);
  Say(second, HislipMessage(HislipType::AsyncInitialize, 0, Session) + HislipMessage(HislipType::AsyncLockInfo));
  EXPECT_THAT(FurtherPorts, ElementsAre(0));
  EXPECT_EQ(Instruments.back()->Got,
            HislipMessage(HislipType::AsyncInitialize, 0, Session) + HislipMessage(HislipType::AsyncLockInfo));
  Say(*Instruments.back(), HislipMessage(HislipType::AsyncServiceRequest, 80, 0));
  EXPECT_EQ(second.Got, HislipMessage(HislipType::AsyncServiceRequest, 80, 0));
}

TEST_F(HislipCrossingTest, AnotherClientIsToldThatThereAreTooMany) {
  Come();
  Wire& other = NewClient(m_factory);
  Say(other, HislipMessage(HislipType::Initialize, 0, 0x01005859, "hislip0"));
  EXPECT_EQ(other.Got, HislipMessage(HislipType::FatalError, 4, 0));
  EXPECT_FALSE(other.Open());
  EXPECT_EQ(Instruments.size(), 1U);
}

TEST_F(HislipCrossingTest, ConnectionOfNoSessionIsRefused) {
  Come();
  Wire& other = NewClient(m_factory);
  Say(other, HislipMessage(HislipType::AsyncInitialize, 0, Session + 1));
  EXPECT_EQ(other.Got, HislipMessage(HislipType::FatalError, 3, 0, "no session waits for this connection"));
  Wire& stranger = NewClient(m_factory);
  Say(stranger, "GET / HTTP/1.1\r\n\r\n");
  EXPECT_EQ(stranger.Got, HislipMessage(HislipType::FatalError, 1, 0, "a message begins with HS"));
  EXPECT_FALSE(stranger.Open());
}

TEST_F(HislipCrossingTest, InterruptedAnswerIsKeptAsFarAsItCame) {
  Wire& client = Come();
  Say(client, HislipMessage(HislipType::DataEnd, 0, 0xFFFFFF00, "A?\n"));
  Say(Instrument(), HislipMessage(HislipType::Data, 0, 0xFFFFFF00, "12"));
  Say(client, HislipMessage(HislipType::DataEnd, 0, 0xFFFFFF02, "B?\n"));
  Say(Instrument(),
      HislipMessage(HislipType::Interrupted, 0, 0xFFFFFF02) + HislipMessage(HislipType::DataEnd, 0, 0xFFFFFF02, "3\n"));
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> A?", "> B?", "< 12", "< 3"));
}

} // namespace
} // namespace portico::tap
