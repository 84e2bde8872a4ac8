#include "simulator/hislip/HislipConnection.h"
#include "tap/BridgeWire.h"
#include "tap/RelayedInstrument.h"
#include "tap/TapBench.h"
#include "wire/HislipMessage.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using namespace BridgeWire;
using namespace wire;
using testing::ElementsAre;

constexpr std::uint32_t FirstId = 0xFFFFFF00;
constexpr std::uint32_t SecondId = 0xFFFFFF02;

/// Clients of HiSLIP, and the wire to a bridge.
class RelayedHislipTest : public TapBench {
protected:
  Wire& Initialize() {
    Wire& client = NewClient(m_factory);
    Say(client, HislipMessage(HislipType::Initialize, 0, 0x01005859, "hislip0"));
    return client;
  }
  /// A client with a session.
  void Come() {
    m_synchronous = &Initialize();
    Say(Bridge(), Opened);
    EXPECT_EQ(m_synchronous->Got, HislipMessage(HislipType::InitializeResponse, 0, 0x01000001));
    m_asynchronous = &NewClient(m_factory);
    Say(*m_asynchronous, HislipMessage(HislipType::AsyncInitialize, 0, 1));
    m_synchronous->Got.clear();
    m_asynchronous->Got.clear();
  }
  void Ask(std::uint32_t id, std::string_view text, std::uint8_t control = 0) {
    Say(*m_synchronous, HislipMessage(HislipType::DataEnd, control, id, text));
  }
  Wire& Bridge() { return *Instruments.back(); }

  const server::ConnectionFactory m_factory =
      simulator::HislipConnection::Factory(std::make_shared<RelayedInstrument>(*Place));
  Wire* m_synchronous = nullptr;
  Wire* m_asynchronous = nullptr;
};

TEST_F(RelayedHislipTest, SessionBeginsOnceTheInstrumentIsOpen) {
  Wire& client = Initialize();
  Pass(std::chrono::hours(1));
  EXPECT_EQ(client.Got, "");
  Say(Bridge(), Opened);
  EXPECT_EQ(client.Got, HislipMessage(HislipType::InitializeResponse, 0, 0x01000001));
}

TEST_F(RelayedHislipTest, InstrumentThatIsNotThereIsAFatalError) {
  Wire& client = Initialize();
  Break(Bridge());
  EXPECT_EQ(client.Got, HislipMessage(HislipType::FatalError, 0, 0, "the instrument cannot be reached"));
  EXPECT_FALSE(client.Open());
}

TEST_F(RelayedHislipTest, AnotherClientIsOneTooMany) {
  Come();
  Wire& other = Initialize();
  EXPECT_EQ(other.Got, HislipMessage(HislipType::FatalError, 4, 0));
  EXPECT_EQ(Instruments.size(), 1U);
}

TEST_F(RelayedHislipTest, AnswerHasTheIdOfItsMessageAndEndsAtItsMark) {
  Come();
  Ask(FirstId, "A?");
  EXPECT_EQ(Bridge().Got, Piece("A?") + Last(""));
  Say(Bridge(), Piece("#12a\n") + Last("\n") + Done + Done);
  EXPECT_EQ(m_synchronous->Got, HislipMessage(HislipType::Data, 0, FirstId, "#12a\n") +
                                    HislipMessage(HislipType::DataEnd, 0, FirstId, "\n"));
  EndRecording();
  EXPECT_THAT(Logged(), ElementsAre("-", "> A?", "< #12a\n"));
}

TEST_F(RelayedHislipTest, MessageWaitsForTheAnswerToTheOneBefore) {
  Come();
  Ask(FirstId, "A");
  Ask(SecondId, "B?");
  EXPECT_EQ(Bridge().Got, Piece("A") + Last(""));
  Say(Bridge(), Done + Done);
  EXPECT_EQ(Bridge().Got, Piece("A") + Last("") + Piece("B?") + Last(""));
}

TEST_F(RelayedHislipTest, AnswerThatIsNotWaitedForIsDroppedAndTheInstrumentNotCleared) {
  Come();
  Ask(FirstId, "A?");
  Ask(SecondId, "B?");
  Bridge().Got.clear();
  Say(Bridge(), Piece("1"));
  EXPECT_EQ(m_synchronous->Got, HislipMessage(HislipType::Interrupted, 0, SecondId));
  EXPECT_EQ(m_asynchronous->Got, HislipMessage(HislipType::AsyncInterrupted, 0, SecondId));
  EXPECT_EQ(Bridge().Got, Piece("B?") + Last(""));
  m_synchronous->Got.clear();
  Say(Bridge(), Last("\n") + Done + Done + Piece("2") + Last("\n") + Done + Done);
  EXPECT_EQ(m_synchronous->Got,
            HislipMessage(HislipType::Data, 0, SecondId, "2") + HislipMessage(HislipType::DataEnd, 0, SecondId, "\n"));
}

TEST_F(RelayedHislipTest, DeviceClearReachesTheInstrument) {
  Come();
  Ask(FirstId, "A?");
  Bridge().Got.clear();
  Say(*m_asynchronous, HislipMessage(HislipType::AsyncDeviceClear));
  EXPECT_EQ(Bridge().Got, Clear);
  Say(*m_synchronous, HislipMessage(HislipType::DeviceClearComplete));
  m_synchronous->Got.clear();
  Say(Bridge(), Piece("1") + Last("\n") + Done + Done + Done);
  EXPECT_EQ(m_synchronous->Got, "");
}

TEST_F(RelayedHislipTest, LostInstrumentEndsBothConnections) {
  Come();
  Ask(FirstId, "A?");
  Break(Bridge());
  EXPECT_FALSE(m_synchronous->Open());
  EXPECT_FALSE(m_asynchronous->Open());
}

TEST_F(RelayedHislipTest, LostInstrumentEndsTheSessionAmidAMessage) {
  Come();
  Say(*m_synchronous, HislipMessage(HislipType::Data, 0, FirstId, "A"));
  Break(Bridge());
  EXPECT_FALSE(m_synchronous->Open());
}

} // namespace
} // namespace portico::tap
