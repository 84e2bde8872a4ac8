#include "tap/Vxi11Crossing.h"

#include "tap/TapBench.h"
#include "tap/Vxi11Records.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using namespace wire;
namespace V = wire::Vxi11;
using testing::ElementsAre;

class Vxi11CrossingTest : public TapBench {
protected:
  /// A client with link 3.
  Wire& Come() {
    Wire& client = NewClient(m_factory);
    Say(client, Link(1, "inst0"));
    Say(Instrument(), Reply(1, V::CreateLinkResult{V::Error::None, 3, 777, 1024}));
    return client;
  }
  Wire& Instrument() { return *Instruments.front(); }
  /// Both sides say something, and nothing of it is changed.
  void ExpectUnchanged(Wire& client, const std::string& call, const std::string& reply) {
    Instrument().Got.clear();
    client.Got.clear();
    for (const char byte : call) Say(client, {&byte, 1});
    EXPECT_EQ(Instrument().Got, call);
    for (const char byte : reply) Say(Instrument(), {&byte, 1});
    EXPECT_EQ(client.Got, reply);
  }

  const server::ConnectionFactory m_factory = Vxi11Crossing::Factory(*Place, "gpib0,5");
};

TEST_F(Vxi11CrossingTest, DeviceIsTheInstrumentsAndTheAbortChannelIsHere) {
  Wire& client = Come();
  EXPECT_EQ(Instrument().Got, Link(1, "gpib0,5"));
  EXPECT_EQ(client.Got, Reply(1, V::CreateLinkResult{V::Error::None, 3, 1234, 1024})); // 1234 is the port of the bench
}

TEST_F(Vxi11CrossingTest, CallsGoOnWithTheSameDataAndEndMarks) {
  Wire& client = Come();
  ExpectUnchanged(client, Call(2, V::CoreProgram, 11, V::DeviceWriteArguments{3, 10, 20, 0, "*ID"}),
                  Reply(2, V::DeviceWriteResult{V::Error::None, 3}));
  ExpectUnchanged(client, Call(3, V::CoreProgram, 11, V::DeviceWriteArguments{3, 10, 20, V::Flag::End, "N?xyz"}),
                  Reply(3, V::DeviceWriteResult{V::Error::None, 2}));
  ExpectUnchanged(client, Call(4, V::CoreProgram, 11, V::DeviceWriteArguments{3, 10, 20, V::Flag::End, ""}),
                  Reply(4, V::DeviceWriteResult{V::Error::None, 0}));
  ExpectUnchanged(client, Call(5, V::CoreProgram, 12, V::DeviceReadArguments{3, 2, 10, 20, 0x80, 10}),
                  Reply(5, V::DeviceReadResult{V::Error::None, 1, "1\n"}));
  ExpectUnchanged(client, Call(6, V::CoreProgram, 12, V::DeviceReadArguments{3, 100, 10, 20, 0x80, 10}),
                  Reply(6, V::DeviceReadResult{V::Error::None, V::Reason::End, "2\n"}));
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "< 1\n2"));
  ExpectUnchanged(client, Call(7, V::CoreProgram, 13, V::GenericArguments{3, 0, 1, 1}),
                  Reply(7, V::DeviceReadStbResult{V::Error::None, 64}));
}

TEST_F(Vxi11CrossingTest, WhatTheInstrumentDidNotTakeIsNoInstruction) {
  Wire& client = Come();
  ExpectUnchanged(client, Call(2, V::CoreProgram, 11, V::DeviceWriteArguments{3, 10, 20, V::Flag::End, "*RST\n"}),
                  Reply(2, V::DeviceWriteResult{V::Error::IoTimeout, 0}));
  EXPECT_THAT(Logged(), ElementsAre("unclosed"));
  ExpectUnchanged(client, Call(3, V::CoreProgram, 11, V::DeviceWriteArguments{3, 10, 20, V::Flag::End, "*CLS\n"}),
                  Reply(3, V::DeviceWriteResult{V::Error::None, 5}));
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *CLS"));
}

TEST_F(Vxi11CrossingTest, AnotherClientGetsNoLink) {
  Come();
  Wire& other = NewClient(m_factory);
  Say(other, Link(9, "inst0"));
  EXPECT_EQ(other.Got, Reply(9, V::CreateLinkResult{V::Error::OutOfResources, 0, 0, 0}));
  EXPECT_EQ(Instruments.size(), 1U);
}

TEST_F(Vxi11CrossingTest, InstrumentThatIsNotThereIsNotAccessible) {
  Reachable = false;
  Wire& client = NewClient(m_factory);
  Say(client, Link(1, "inst0"));
  EXPECT_EQ(client.Got, Reply(1, V::CreateLinkResult{V::Error::DeviceNotAccessible, 0, 0, 0}));
}

TEST_F(Vxi11CrossingTest, AbortChannelLeadsToTheInstruments) {
  Come();
  Wire& second = NewClient(m_factory);
  const std::string abort = Call(1, V::AbortProgram, 1, V::LinkArguments{3});
  Say(second, abort);
  EXPECT_THAT(FurtherPorts, ElementsAre(777));
  EXPECT_EQ(Instruments.back()->Got, abort);
  Say(*Instruments.back(), Reply(1, V::ErrorResult{}));
  EXPECT_EQ(second.Got, Reply(1, V::ErrorResult{}));
}

TEST_F(Vxi11CrossingTest, PortMapperTellsItsOwnPort) {
  Wire& asking = NewClient(m_factory);
  Say(asking, Call(1, PortMapper::Program, 3, PortMapper::Mapping{V::CoreProgram, 1, PortMapper::Protocol::Tcp, 0}));
  Say(asking, Call(2, PortMapper::Program, 3, PortMapper::Mapping{12345, 1, PortMapper::Protocol::Tcp, 0}));
  EXPECT_EQ(asking.Got, Reply(1, PortMapper::PortResult{1234}) + Reply(2, PortMapper::PortResult{0}));
  EXPECT_TRUE(Instruments.empty());
}

TEST_F(Vxi11CrossingTest, WhatIsNoCallEndsTheConnection) {
  Wire& stranger = NewClient(m_factory);
  Say(stranger, "GET / HTTP/1.1\r\n\r\n");
  EXPECT_FALSE(stranger.Open());
}

} // namespace
} // namespace portico::tap
