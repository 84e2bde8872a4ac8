#include "tap/RawCrossing.h"

#include "tap/TapBench.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;
using namespace std::string_literals;

class RawCrossingTest : public TapBench {
protected:
  Wire& Come() { return NewClient(RawCrossing::Factory(*Place)); }
  Wire& Instrument() { return *Instruments.back(); }
};

TEST_F(RawCrossingTest, BytesGoOnAsTheyComeAndUnchanged) {
  Wire& client = Come();
  Say(client, "*I");
  EXPECT_EQ(Instrument().Got, "*I");
  Say(client, "DN?\r\nDATA #13a\n\0\n"s);
  EXPECT_EQ(Instrument().Got, "*IDN?\r\nDATA #13a\n\0\n"s);
  Say(Instrument(), "#1");
  EXPECT_EQ(client.Got, "#1");
  Say(Instrument(), "3\n\xFF\n\n");
  EXPECT_EQ(client.Got, "#13\n\xFF\n\n");
}

TEST_F(RawCrossingTest, EachMessageIsLoggedBehindTheForwarding) {
  Wire& client = Come();
  client.Send("*IDN?\r\n*RST\n*OP", Now);
  EXPECT_THAT(Logged(), ElementsAre()); // the instrument has nothing of it yet
  Settle();
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "> *RST"));
  Say(Instrument(), "TOLVANE,1\n#12");
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "> *RST", "< TOLVANE,1"));
  Say(Instrument(), "\n\xFF\r\n");
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "> *RST", "< TOLVANE,1", "< #12\n\xFF"));
  EXPECT_EQ(Shown.str(), "> *IDN?\n> *RST\n< TOLVANE,1\n< #12\n< \xC3\xBF\n");
}

TEST_F(RawCrossingTest, EachClientHasASession) {
  for (const std::string message : {"*RST", "*CLS"}) {
    Wire& client = Come();
    Say(client, message + "\n");
    EndInput(client);
    EndInput(Instrument());
    EXPECT_FALSE(client.Open());
  }
  EXPECT_THAT(Logged(), ElementsAre("-", "> *RST", "-", "> *CLS"));
}

TEST_F(RawCrossingTest, AnotherClientIsClosedAtOnceAndDisturbsNothing) {
  Wire& client = Come();
  Wire& other = Come();
  EXPECT_FALSE(other.Open());
  EXPECT_EQ(Instruments.size(), 1U);
  Say(client, "*IDN?\n");
  Say(Instrument(), "1\n");
  EXPECT_EQ(client.Got, "1\n");
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?", "< 1"));
}

TEST_F(RawCrossingTest, ClientThatHasEndedItsSideStillGetsAnswers) {
  Wire& client = Come();
  Say(client, "*IDN?\n");
  EndInput(client);
  EXPECT_TRUE(Instrument().OutputEnded);
  Say(Instrument(), "1\n");
  EXPECT_EQ(client.Got, "1\n");
  EXPECT_TRUE(client.Open());
}

TEST_F(RawCrossingTest, ClientThatHasEndedItsSideGivesWayToTheNext) {
  Wire& client = Come();
  Say(client, "*RST\n");
  EndInput(client);
  Wire& first = Instrument();
  Wire& next = Come();
  EXPECT_FALSE(client.Open());
  EXPECT_FALSE(first.Open());
  Say(next, "*CLS\n");
  EXPECT_EQ(Instrument().Got, "*CLS\n");
  EXPECT_THAT(Logged(), ElementsAre("-", "> *RST", "unclosed", "> *CLS"));
}

TEST_F(RawCrossingTest, WhatWasSaidBeforeGivingWayStillCrosses) {
  Wire& client = Come();
  Wire& first = Instrument();
  client.Send("*RST\n", Now); // and nobody is served in between
  client.EndInput(Now);
  Come();
  EXPECT_EQ(first.Got, "*RST\n");
  EXPECT_FALSE(first.Open());
}

TEST_F(RawCrossingTest, ClientOfAnInstrumentThatIsNotThereIsClosed) {
  Reachable = false;
  EXPECT_FALSE(Come().Open());
  Reachable = true;
  EXPECT_TRUE(Come().Open());
}

TEST_F(RawCrossingTest, InstrumentThatKeepsItsConnectionIsNotWaitedForWithoutEnd) {
  Break(Come());
  EXPECT_TRUE(Instrument().OutputEnded);
  Pass(1999ms);
  EXPECT_TRUE(Instrument().Open());
  Pass(1ms);
  EXPECT_FALSE(Instrument().Open());
}

TEST_F(RawCrossingTest, WhoSendsWithoutEndIsNotListenedToWhileTheOtherTakesNothing) {
  Wire& client = Come();
  const std::string much(64 << 10U, 'x');
  for (int i = 0; i < 4; ++i) Instrument().Send(much, Now);
  EXPECT_FALSE(Instrument().Listens());
  EXPECT_TRUE(client.Listens());
  Settle();
  EXPECT_TRUE(Instrument().Listens());
}

/// What each side says in a conversation, in its order.
struct Turn {
  bool ByClient;
  std::string Bytes;
};
const std::vector<Turn> Conversation = {
    {true, "*IDN?\n"}, {false, "A,1\n"}, {true, "D #12\n\n\nW?\n"}, {false, "#13\n\n\n\n"}};

class RawCrossingFaultTest : public RawCrossingTest, public testing::WithParamInterface<std::tuple<bool, bool>> {};

INSTANTIATE_TEST_SUITE_P(SidesAndFaults, RawCrossingFaultTest, testing::Combine(testing::Bool(), testing::Bool()));

TEST_P(RawCrossingFaultTest, NothingIsLostWhereverASideDrops) {
  const auto [clientDrops, breaks] = GetParam();
  std::size_t sessions = 0;
  for (std::size_t cut = 0; cut <= 28; ++cut) {
    Wire& client = Come();
    Wire& instrument = Instrument();
    std::string fromClient;
    std::string fromInstrument;
    std::size_t left = cut;
    for (const Turn& turn : Conversation) {
      const std::string bytes = turn.Bytes.substr(0, left);
      left -= bytes.size();
      (turn.ByClient ? fromClient : fromInstrument) += bytes;
      for (const char byte : bytes) (turn.ByClient ? client : instrument).Send({&byte, 1}, Now);
      Wire& dropping = clientDrops ? client : instrument;
      if (left == 0 && breaks) dropping.Break(); // before the other has got the last bytes
      if (left == 0) {
        dropping.EndInput(Now);
        break;
      }
      Settle();
    }
    Settle();
    Wire& staying = clientDrops ? instrument : client;
    EXPECT_EQ(instrument.Got, clientDrops || !breaks ? fromClient : instrument.Got) << cut;
    EXPECT_EQ(client.Got, !clientDrops || !breaks ? fromInstrument : client.Got) << cut;
    EXPECT_TRUE(staying.OutputEnded) << cut;
    EndInput(staying);
    EXPECT_FALSE(client.Open()) << cut;
    EXPECT_FALSE(instrument.Open()) << cut;
    ++sessions;
    const auto logged = Logged();
    EXPECT_EQ(std::count(logged.begin(), logged.end(), "-"), static_cast<std::ptrdiff_t>(sessions)) << cut;
  }
  EXPECT_THAT(Told, IsEmpty());
}

} // namespace
} // namespace portico::tap
