#include "simulator/vxi11/ServedVxi11.h"
#include "tap/BridgeWire.h"
#include "tap/RelayedInstrument.h"
#include "tap/TapBench.h"
#include "tap/Vxi11Records.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using namespace BridgeWire;
namespace V = wire::Vxi11;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t Timeout = 1000; // milliseconds

/// Clients of VXI-11, and the wire to a bridge.
class RelayedVxi11Test : public TapBench {
protected:
  /// A client with a link.
  Wire& Come() {
    Wire& client = NewClient(m_factory);
    Say(client, Link(1, "inst0"));
    Say(Bridge(), Opened);
    wire::RpcRecordReader record(1000);
    record.Feed(client.Got);
    wire::XdrReader reader(record.Content());
    wire::RpcReply reply;
    V::CreateLinkResult result;
    EXPECT_TRUE(wire::ReadRpcReply(reader, reply) && reader.Get(result));
    EXPECT_EQ(result.Error, V::Error::None);
    m_link = result.Link;
    client.Got.clear();
    return client;
  }
  Wire& Bridge() { return *Instruments.back(); }
  /// What comes for a call at once.
  std::string Answer(Wire& client, const std::string& call) {
    client.Got.clear();
    Say(client, call);
    return client.Got;
  }
  std::string Write(std::string_view data, std::int32_t flags = V::Flag::End) const {
    return Call(2, V::CoreProgram, 11, V::DeviceWriteArguments{m_link, Timeout, 0, flags, data});
  }
  std::string Read() const {
    return Call(3, V::CoreProgram, 12, V::DeviceReadArguments{m_link, 100, Timeout, 0, 0, 0});
  }
  std::string ClearCall() const { return Call(4, V::CoreProgram, 15, V::GenericArguments{m_link, 0, 0, Timeout}); }
  static std::string Written(std::uint32_t size) { return Reply(2, V::DeviceWriteResult{V::Error::None, size}); }
  static std::string HasRead(std::string_view data, std::int32_t reason) {
    return Reply(3, V::DeviceReadResult{V::Error::None, reason, data});
  }
  static std::string Failed(V::Error error) { return Reply(3, V::DeviceReadResult{error, 0, ""}); }

  const server::ConnectionFactory m_factory =
      simulator::ServedVxi11::Factory(std::make_shared<RelayedInstrument>(*Place));
  std::int32_t m_link = 0;
};

TEST_F(RelayedVxi11Test, LinkIsThereOnceTheInstrumentIsOpen) {
  Wire& client = NewClient(m_factory);
  Say(client, Link(1, "inst0"));
  Pass(std::chrono::hours(1));
  EXPECT_EQ(client.Got, "");
  EXPECT_THAT(Logged(), IsEmpty());
  Say(Bridge(), Opened);
  EXPECT_NE(client.Got, "");
  EXPECT_TRUE(client.Open());
}

TEST_F(RelayedVxi11Test, InstrumentThatIsNotThereIsNotAccessible) {
  Wire& client = NewClient(m_factory);
  Say(client, Link(1, "inst0"));
  Break(Bridge());
  EXPECT_EQ(client.Got, Reply(1, V::CreateLinkResult{V::Error::DeviceNotAccessible, 0, 0, 0}));
  EXPECT_TRUE(client.Open());
  Reachable = false;
  EXPECT_EQ(Answer(client, Link(1, "inst0")), Reply(1, V::CreateLinkResult{V::Error::DeviceNotAccessible, 0, 0, 0}));
}

TEST_F(RelayedVxi11Test, WhatIsWrittenGoesOnWithTheEndsOfItsMessages) {
  Wire& client = Come();
  EXPECT_EQ(Answer(client, Write("A #1", 0)), Written(4));
  EXPECT_EQ(Answer(client, Write("3\n?\nB")), Written(5));
  EXPECT_EQ(Bridge().Got, Piece("A #1") + Piece("3\n?\nB") + Last(""));
  EndRecording();
  EXPECT_THAT(Logged(), ElementsAre("-", "> A #13\n?\nB"));
}

TEST_F(RelayedVxi11Test, AnswerComesInPiecesWhoseEndIsMarkedAndNothingElseEndsIt) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  EXPECT_EQ(Answer(client, Read()), "");
  Say(Bridge(), Piece("#14a\n"));
  EXPECT_EQ(client.Got, HasRead("#14a\n", 0));
  EXPECT_EQ(Answer(client, Read()), "");
  Say(Bridge(), Piece("bc") + Last("\n") + Done + Done);
  EXPECT_EQ(client.Got, HasRead("bc", 0));
  EXPECT_EQ(Answer(client, Read()), HasRead("\n", V::Reason::End));
  EndRecording();
  EXPECT_THAT(Logged(), ElementsAre("-", "> A?", "< #14a\nbc"));
}

TEST_F(RelayedVxi11Test, AnswerThatDoesNotComeIsATimeOutAndALateOneIsReadThen) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  EXPECT_EQ(Answer(client, Read()), "");
  Pass(std::chrono::milliseconds(Timeout - 1));
  EXPECT_EQ(client.Got, "");
  Pass(std::chrono::milliseconds(1));
  EXPECT_EQ(client.Got, Failed(V::Error::IoTimeout));
  Say(Bridge(), Piece("1") + Last("\n") + Done + Done);
  EXPECT_EQ(Answer(client, Read()), HasRead("1", 0));
}

TEST_F(RelayedVxi11Test, AnswerThatBreaksOffIsNotTheNextOnesBeginning) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  Say(Bridge(), Piece("12") + Done + Done);
  Answer(client, Write("B?"));
  Say(Bridge(), Piece("3") + Last("\n") + Done + Done);
  EXPECT_EQ(Answer(client, Read()), HasRead("3", 0));
  EndRecording();
  EXPECT_THAT(Logged(), ElementsAre("-", "> A?", "< 12", "> B?", "< 3"));
}

TEST_F(RelayedVxi11Test, LostInstrumentIsAnErrorOfTheInterfaceForWhoWaitsAndFromThenOn) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  EXPECT_EQ(Answer(client, Read()), "");
  Break(Bridge());
  EXPECT_EQ(client.Got, Failed(V::Error::Io));
  EXPECT_EQ(Answer(client, Read()), Failed(V::Error::Io));
  EXPECT_EQ(Answer(client, Write("B?")), Reply(2, V::DeviceWriteResult{V::Error::Io, 0}));
  EXPECT_THAT(Logged(), ElementsAre("-", "> A?")); // the session is over
}

TEST_F(RelayedVxi11Test, WhatTheInstrumentHadAnsweredBeforeItWasLostIsRead) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  Say(Bridge(), Piece("1") + Last("\n"));
  Break(Bridge());
  EXPECT_EQ(Answer(client, Read()), HasRead("1", 0));
  EXPECT_EQ(Answer(client, Read()), HasRead("\n", V::Reason::End));
  EXPECT_EQ(Answer(client, Read()), Failed(V::Error::Io));
}

TEST_F(RelayedVxi11Test, DeviceClearReachesTheInstrumentAndNothingBeforeItIsAnswered) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  Say(Bridge(), Piece("1"));
  Bridge().Got.clear();
  EXPECT_EQ(Answer(client, ClearCall()), Reply(4, V::ErrorResult{V::Error::None}));
  EXPECT_EQ(Bridge().Got, Clear);
  Say(Bridge(), Piece("2") + Last("\n") + Done + Done + Done);
  Answer(client, Write("B?"));
  Say(Bridge(), Piece("3") + Last("\n") + Done + Done);
  EXPECT_EQ(Answer(client, Read()), HasRead("3", 0));
}

TEST_F(RelayedVxi11Test, StatusByteTellsWhetherAMessageIsAvailable) {
  Wire& client = Come();
  const std::string poll = Call(5, V::CoreProgram, 13, V::GenericArguments{m_link, 0, 0, Timeout});
  Answer(client, Write("A?"));
  EXPECT_EQ(Answer(client, poll), Reply(5, V::DeviceReadStbResult{V::Error::None, 0}));
  Say(Bridge(), Piece("1") + Last("\n") + Done + Done);
  EXPECT_EQ(Answer(client, poll), Reply(5, V::DeviceReadStbResult{V::Error::None, 16}));
}

TEST_F(RelayedVxi11Test, AnotherLinkIsOutOfResourcesUntilTheFirstIsGone) {
  Wire& client = Come();
  const std::string refusal = Reply(9, V::CreateLinkResult{V::Error::OutOfResources, 0, 0, 0});
  Wire& other = NewClient(m_factory);
  EXPECT_EQ(Answer(other, Link(9, "inst0")), refusal);
  EXPECT_EQ(Answer(client, Link(9, "inst0")), refusal);
  EXPECT_EQ(Instruments.size(), 1U);
  Break(client);
  Say(other, Link(1, "inst0"));
  EXPECT_EQ(Instruments.size(), 2U);
}

TEST_F(RelayedVxi11Test, WhatAClientSaidBeforeItHungUpIsDone) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  Answer(client, Write("B"));
  Break(client);
  EXPECT_EQ(Bridge().Got, Piece("A?") + Last("") + Piece("B") + Last(""));
  Say(Bridge(), Piece(std::string(1000000, '1')) + Last("\n") + Done + Done + Done);
  EXPECT_TRUE(Bridge().Open());
  Say(Bridge(), Done);
  EXPECT_FALSE(Bridge().Open());
}

TEST_F(RelayedVxi11Test, NoMoreIsTakenThanTheOtherSideTakes) {
  Wire& client = Come();
  Answer(client, Write("A?"));
  Say(Bridge(), Piece(std::string(262144, '1')));
  EXPECT_FALSE(Bridge().Listens());
  Answer(client, Read());
  EXPECT_TRUE(Bridge().Listens());
}

} // namespace
} // namespace portico::tap
