#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using test::Session;

std::string Echo(int number) { return "SIM:ECHO? " + std::to_string(number); }

TEST(AnswerFault, TheEchoTellsItsNumber) {
  Session session;
  EXPECT_EQ(session.Ask("SIM:ECHO? 4294967295"), "4294967295");
  session.Send("SIM:ECHO? -1");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(AnswerFault, ALateAnswerComesATenthOfASecondLateOrAsIsAsked) {
  Session session;
  session.Send("SIM:NEXT LATE");
  session.Send(Echo(1));
  EXPECT_EQ(session.Connection().NextEvent(), session.Now() + milliseconds(100));
  EXPECT_EQ(session.Await(), "1");
  session.Send("SIM:LAT 2 S;NEXT LATE");
  session.Send(Echo(2));
  EXPECT_EQ(session.Connection().NextEvent(), session.Now() + seconds(2));
  EXPECT_EQ(session.Await(), "2");
  session.Send(Echo(3));
  EXPECT_EQ(session.Read(), "3");
}

TEST(AnswerFault, ALostAnswerNeverComes) {
  Session session;
  session.Send("SIM:NEXT LOST");
  EXPECT_EQ(session.Ask(Echo(1)), "(none)");
  EXPECT_EQ(session.Ask(Echo(2)), "2");
}

TEST(AnswerFault, AnAnswerWithoutEndGoesOn) {
  Session session;
  session.Send("SIM:NEXT ENDLESS");
  EXPECT_EQ(session.Ask(Echo(1)), "1");
  EXPECT_EQ(session.Await(), std::string(16384, '7'));
  session.Advance(seconds(1));
  EXPECT_EQ(session.Await(), std::string(16384, '7'));
}

TEST(AnswerFault, BelongsToTheNextAnswerOnWhicheverConnection) {
  Session session;
  session.Send("SIM:NEXT LOST");
  EXPECT_EQ(session.Another().Ask(Echo(1)), "(none)");
  EXPECT_EQ(session.Ask(Echo(2)), "2");
}

TEST(AnswerFault, TheRateIsThatOfTheFaults) {
  Session session;
  session.Send("SIM:RATE 0.1,LOST");
  int lost = 0;
  for (int i = 0; i < 1000; ++i) lost += session.Ask(Echo(i)) == "(none)" ? 1 : 0;
  EXPECT_GT(lost, 70);
  EXPECT_LT(lost, 130);
  session.Send("SIM:RATE 0");
  EXPECT_EQ(session.Ask("SIM:COUN?"), std::to_string(lost));
}

TEST(AnswerFault, OneSeedGivesTheSameFaultsAgain) {
  Session session;
  const auto lost = [&session] {
    std::string which;
    for (int i = 0; i < 200; ++i) which += session.Ask(Echo(i)) == "(none)" ? '1' : '0';
    return which;
  };
  session.Send("SIM:RATE 0.2,LOST;SEED 3");
  const std::string first = lost();
  EXPECT_NE(lost(), first);
  session.Send("SIM:SEED 3");
  EXPECT_EQ(lost(), first);
}

TEST(AnswerFault, TheRateChoosesAmongItsFaults) {
  Session session;
  session.Send("SIM:RATE 1,LOST,LATE");
  int lost = 0;
  int late = 0;
  for (int i = 0; i < 100; ++i) {
    const auto asked = session.Now();
    lost += session.Ask(Echo(i)) == "(none)" ? 1 : 0;
    late += session.Now() - asked == milliseconds(100) ? 1 : 0;
  }
  EXPECT_EQ(lost + late, 100);
  EXPECT_GT(lost, 20);
  EXPECT_GT(late, 20);
}

TEST(AnswerFault, ARateWithoutFaultsIsThatOfAll) {
  int lost = 0;
  int late = 0;
  for (int i = 0; i < 100; ++i) {
    Session session;
    session.Send("SIM:SEED " + std::to_string(i) + ";RATE 1");
    const auto asked = session.Now();
    lost += session.Ask(Echo(i)) == "(none)" ? 1 : 0;
    late += session.Now() - asked == milliseconds(100) ? 1 : 0;
  }
  EXPECT_GT(lost, 0);
  EXPECT_GT(late, 0);
  EXPECT_LT(lost + late, 60);
}

TEST(AnswerFault, AResetLeavesTheRateAlone) {
  Session session;
  session.Send("SIM:RATE 1,LOST;*RST");
  EXPECT_EQ(session.Ask(Echo(1)), "(none)");
}

TEST(AnswerFault, RefusesWhatIsNone) {
  Session session;
  session.Send("SIM:NEXT WHIM");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  session.Send("SIM:RATE 1.5");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  EXPECT_EQ(session.Ask(Echo(1)), "1");
}

TEST(AnswerFault, AServerIsToldOfAWrongNumberOnce) {
  Session session;
  Misbehaviour& faults = session.TheDevice().Faults();
  session.Send("SIM:NEXT NUMB");
  session.Send(Echo(1));
  EXPECT_FALSE(faults.Take(AnswerFault::Number));
  EXPECT_EQ(session.Read(), "1");
  EXPECT_FALSE(faults.Take(AnswerFault::Stray));
  EXPECT_TRUE(faults.Take(AnswerFault::Number));
  EXPECT_FALSE(faults.Take(AnswerFault::Number));
}

TEST(AnswerFault, AServerIsToldToRefuseLocks) {
  Session session;
  EXPECT_FALSE(session.TheDevice().Faults().LocksRefused);
  session.Send("SIM:REF ON");
  EXPECT_TRUE(session.TheDevice().Faults().LocksRefused);
  session.Send("SIM:REF OFF");
  EXPECT_FALSE(session.TheDevice().Faults().LocksRefused);
}

} // namespace
} // namespace portico::simulator
