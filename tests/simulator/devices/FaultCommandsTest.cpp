#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <set>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using test::Session;

TEST(FaultCommands, DelaysTheNextAnswerOnly) {
  Session session;
  session.Send("SIM:DEL 1.5");
  session.Send("*ESE?");
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Connection().NextEvent(), session.Now() + milliseconds(1500));
  session.Advance(milliseconds(1500));
  EXPECT_EQ(session.Read(), "0");
  session.Send("*ESE?");
  EXPECT_EQ(session.Read(), "0");
}

TEST(FaultCommands, TakesTheDelayInMilliseconds) {
  Session session;
  session.Send("SIMULATOR:DELAY 20 MS;*ESE?");
  EXPECT_EQ(session.Connection().NextEvent(), session.Now() + milliseconds(20));
}

TEST(FaultCommands, AnswersBehindADelayedOneWaitForIt) {
  Session session;
  session.Send("SIM:DEL 2;*ESE?");
  session.Send("*SRE?");
  session.Advance(seconds(1));
  EXPECT_FALSE(session.Read());
  session.Advance(seconds(1));
  EXPECT_TRUE(session.Read());
  EXPECT_TRUE(session.Read());
}

TEST(FaultCommands, SilenceDropsAnswersButCarriesOutCommands) {
  Session session;
  session.Send("SIM:SIL ON");
  EXPECT_EQ(session.Ask("*IDN?"), "(none)");
  session.Send("*ESE 7");
  session.Send("SIM:SIL OFF");
  EXPECT_EQ(session.Ask("*ESE?"), "7");
}

TEST(FaultCommands, CloseEndsTheSessionAfterTheAnswersSoFar) {
  Session session;
  session.Send("*ESE?;SIM:CLOS;*IDN?");
  EXPECT_TRUE(session.Connection().CloseRequested());
  EXPECT_EQ(session.Read(), "0");
  EXPECT_EQ(session.Ask("*IDN?"), "(none)");
}

TEST(FaultCommands, AnEndlessAnswerComesInPiecesWithoutAnEnd) {
  Session session;
  session.Send("SIM:ENDL?");
  std::string answer;
  for (int i = 0; i < 10; ++i) answer += session.Await();
  EXPECT_GT(answer.size(), 100'000U);
  EXPECT_EQ(answer.find('\n'), std::string::npos);
  EXPECT_TRUE(session.Connection().NextEvent());
}

TEST(FaultCommands, AnEndlessAnswerIsBoundedAtAnyOneTime) {
  Session session;
  session.Send("SIM:ENDL?");
  session.Advance(std::chrono::hours(1));
  EXPECT_TRUE(session.Read());
  EXPECT_TRUE(session.Read());
  EXPECT_FALSE(session.Read());
}

TEST(FaultCommands, NothingIsReadBehindAnEndlessAnswer) {
  Session session;
  session.Send("SIM:ENDL?");
  session.Send("*IDN?");
  EXPECT_EQ(session.Await(), "7");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(session.Await().find_first_not_of('7'), std::string::npos);
}

TEST(FaultCommands, GarbageHasEveryKindOfByte) {
  Session session;
  session.Send("SIM:GARB?");
  EXPECT_EQ(session.Connection().Read(session.Now())->size(), 257U);
  session.Send("SIM:GARB? 10000");
  const std::string garbage = *session.Connection().Read(session.Now());
  EXPECT_EQ(garbage.size(), 10001U);
  EXPECT_EQ(std::set<char>(garbage.begin(), garbage.end()).size(), 256U);
}

TEST(FaultCommands, AnAnswerHasTheLengthAskedFor) {
  Session session;
  EXPECT_EQ(session.Ask("SIM:LENG? 5"), "55555");
  EXPECT_EQ(session.Ask("SIM:LENG? 0"), "");
  EXPECT_EQ(session.Ask("SIM:LENG? 1000000").size(), 1'000'000U);
  session.Send("SIM:LENG? 1E9");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(FaultCommands, ABlockHasTheLengthAskedForAndComesInPieces) {
  Session session;
  session.Send("SIM:BLOC? 300000");
  std::string answer;
  std::size_t longest = 0;
  while (const auto piece = session.Connection().Read(session.Now())) {
    EXPECT_EQ(piece->ends_with('\n'), answer.size() + piece->size() == 300'009) << "only the last";
    longest = std::max(longest, piece->size());
    answer += *piece;
  }
  ASSERT_EQ(answer.size(), 300'009U);
  EXPECT_EQ(answer.substr(0, 8), "#6300000");
  for (std::size_t i = 0; i < 300'000; ++i) ASSERT_EQ(answer[8 + i], static_cast<char>(i % 251)) << i;
  EXPECT_LE(longest, 65'537U);
  EXPECT_EQ(session.Ask("*ESE?"), "0") << "what comes behind it";
}

TEST(FaultCommands, BlocksHaveTheirBounds) {
  Session session;
  EXPECT_EQ(session.Ask("SIM:BLOC? 0"), "#10");
  session.Send("SIM:BLOC? 1E9");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("SIM:BLOC? 3;*ESE?");
  EXPECT_EQ(session.Error(), "-430,\"Query DEADLOCKED\"");
  session.Send("*ESE?;:SIM:BLOC? 2");
  EXPECT_EQ(*session.Read(), "0;#12");
  EXPECT_EQ(*session.Read(), std::string("\0\1", 2));
}

TEST(FaultCommands, OfABlockThatIsHalvedTheEndIsMissing) {
  Session session;
  session.Send("SIM:NEXT HALF;BLOC? 100");
  EXPECT_EQ(*session.Connection().Read(session.Now()), "#3100");
  EXPECT_EQ(session.Connection().Read(session.Now())->size(), 50U);
  EXPECT_FALSE(session.Connection().Read(session.Now()));
}

TEST(FaultCommands, ErrorsCanBeAskedFor) {
  Session session;
  session.Send("*CLS;SIM:ERR -410;ERR 17");
  EXPECT_EQ(session.Error(), "-410,\"Query INTERRUPTED\"");
  EXPECT_EQ(session.Error(), "17,\"Simulated device error\"");
  EXPECT_EQ(session.Ask("*ESR?"), "12");
  session.Send("SIM:ERR -199");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  session.Send("SIM:ERR 0");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(FaultCommands, SilenceAndDelayAreTheDevicesOwn) {
  Session one;
  Session two = one.Another();
  one.Send("SIM:SIL ON");
  EXPECT_EQ(two.Ask("*IDN?"), "(none)");
  two.Send("SIM:SIL OFF;DEL 2");
  one.Send("*ESE?");
  EXPECT_EQ(one.Connection().NextEvent(), one.Now() + seconds(2));
  EXPECT_EQ(two.Ask("*ESE?"), "0");
}

TEST(FaultCommands, CloseEndsItsOwnConnectionOnly) {
  Session one;
  Session two = one.Another();
  one.Send("SIM:CLOS");
  EXPECT_TRUE(one.Connection().CloseRequested());
  EXPECT_FALSE(two.Connection().CloseRequested());
  EXPECT_EQ(two.Ask("*ESE?"), "0");
  EXPECT_EQ(two.Another().Ask("*ESE?"), "0");
}

TEST(FaultCommands, AnEndlessAnswerEndsWithItsConnection) {
  Session one;
  {
    Session two = one.Another();
    two.Send("SIM:ENDL?");
    EXPECT_EQ(two.Await(), "7");
  }
  EXPECT_EQ(one.Ask("*ESE?"), "0");
}

TEST(FaultCommands, AnEndlessAnswerThatIsDroppedLeavesTheNextAlone) {
  Session session;
  session.Send("SIM:SIL ON;ENDL?");
  session.Send("SIM:SIL OFF");
  EXPECT_EQ(session.Ask("*ESE?"), "0");
  EXPECT_FALSE(session.Read());
}

TEST(FaultCommands, EveryDeviceHasThem) {
  for (const char* device : {"dmm", "psu", "scope"}) EXPECT_EQ(Session(device).Ask("SIM:LENG? 2"), "55") << device;
}

} // namespace
} // namespace portico::simulator
