#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace portico::simulator {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using test::NumberIn;
using test::Session;

TEST(Multimeter, MeasuresEachFunctionsSource) {
  Session session;
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:VOLT:DC?")), 1.000234, 1E-4);
  EXPECT_NEAR(NumberIn(session.Ask("MEAS?")), 1.000234, 1E-4);
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:VOLT:AC?")), 0.707107, 1E-4);
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:CURR?")), 0.0123456, 1E-5);
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:CURR:AC?")), 0.00812345, 1E-5);
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:RES? AUTO")), 4702.15, 0.1);
}

TEST(Multimeter, AnswersInTheUsualFormat) {
  Session session;
  const std::string answer = session.Ask("READ?");
  EXPECT_EQ(answer.size(), std::string("+1.00023400E+00").size());
  EXPECT_EQ(answer.front(), '+');
  EXPECT_EQ(answer.substr(11), "E+00");
}

TEST(Multimeter, ConfigurationIsAString) {
  Session session;
  EXPECT_EQ(session.Ask("CONF?"), "\"VOLT +1.00000000E+01,+3.00000000E-05\"");
  EXPECT_EQ(session.Ask("CONF:RES 10 KOHM;:CONF?"), "\"RES +1.00000000E+04,+3.00000000E-02\"");
  EXPECT_EQ(session.Ask("CONF:VOLT:AC 1,0.0001;:CONF?"), "\"VOLT:AC +1.00000000E+00,+1.00000000E-04\"");
  EXPECT_EQ(session.Ask("CONF:CURR DEF,MIN;:CONF?"), "\"CURR +1.00000000E+00,+3.00000000E-07\"");
  EXPECT_EQ(session.Ask("CONF:CURR:AC MAX,MAX;:CONF?"), "\"CURR:AC +3.00000000E+00,+3.00000000E-04\"");
}

TEST(Multimeter, AResolutionAsAnsweredGivesTheSameIntegration) {
  Session session;
  for (const char* cycles : {"+2.00000000E-02", "+2.00000000E-01", "+1.00000000E+00", "+1.00000000E+01"}) {
    session.Send(std::string("CONF:VOLT 10;:VOLT:NPLC ") + cycles);
    std::string resolution = session.Ask("CONF?").substr(22);
    resolution.pop_back();
    session.Send("CONF:VOLT 10," + resolution);
    EXPECT_EQ(session.Ask("VOLT:NPLC?"), cycles);
  }
}

TEST(Multimeter, RefusesWhatItCannotBeSetTo) {
  Session session;
  session.Send("CONF:VOLT 1001");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("CONF:VOLT 10,1E-9");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("CONF:VOLT 10,1,2");
  EXPECT_EQ(session.Error(), "-108,\"Parameter not allowed\"");
  session.Send("CONF:VOLT 10 OHM");
  EXPECT_EQ(session.Error(), "-131,\"Invalid suffix\"");
  session.Send("CONF:VOLT SOME");
  EXPECT_EQ(session.Error(), "-141,\"Invalid character data\"");
}

TEST(Multimeter, RangesAreTheNextThatHolds) {
  Session session;
  session.Send("SENS:VOLT:DC:RANG 3");
  EXPECT_EQ(session.Ask("SENS:VOLT:DC:RANG?"), "+1.00000000E+01");
  EXPECT_EQ(session.Ask("VOLT:RANG:AUTO?"), "0");
  session.Send("VOLT:RANG 50 MV");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("VOLT:RANG MIN");
  EXPECT_EQ(session.Ask("VOLT:RANG?;RANG? MIN;RANG? MAX;RANG? DEF"),
            "+1.00000000E-01;+1.00000000E-01;+1.00000000E+03;+1.00000000E+01");
}

TEST(Multimeter, AutoRangeFindsTheRangeOfTheSource) {
  Session session;
  session.Send("RES:RANG 100;RANG:AUTO ON");
  session.Ask("SENS:FUNC 'RES';:READ?");
  EXPECT_EQ(session.Ask("RES:RANG:AUTO?;:RES:RANG?"), "1;+1.00000000E+04");
}

TEST(Multimeter, AnOverloadIsInfinite) {
  Session session;
  EXPECT_EQ(session.Ask("MEAS:RES? 100"), "+9.90000000E+37");
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "512");
}

TEST(Multimeter, FunctionsHaveNames) {
  Session session;
  EXPECT_EQ(session.Ask("SENS:FUNC?"), "\"VOLT\"");
  EXPECT_EQ(session.Ask("FUNC \"voltage:ac\";FUNC?"), "\"VOLT:AC\"");
  EXPECT_EQ(session.Ask("FUNC:ON 'CURR:DC';:FUNC?"), "\"CURR\"");
  EXPECT_EQ(session.Ask("FUNC 'RESISTANCE';FUNC?"), "\"RES\"");
  EXPECT_EQ(session.Ask("FUNC 'FRES';FUNC?;FUNC 'frequency';FUNC?;FUNC 'TEMP';FUNC?"), "\"FRES\";\"FREQ\";\"TEMP\"");
  session.Send("FUNC 'DIOD'");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  session.Send("FUNC RES");
  EXPECT_EQ(session.Error(), "-148,\"Character data not allowed\"");
}

TEST(Multimeter, AReadingTakesItsPowerLineCycles) {
  Session session;
  TimePoint start = session.Now();
  session.Ask("READ?");
  EXPECT_EQ(session.Now() - start, milliseconds(20));
  start = session.Now();
  session.Ask("VOLT:NPLC 0.02;:READ?");
  EXPECT_EQ(session.Now() - start, microseconds(400));
  start = session.Now();
  session.Ask("VOLT:NPLC MAX;:READ?");
  EXPECT_EQ(session.Now() - start, std::chrono::seconds(2));
}

TEST(Multimeter, SamplesAndTriggersMultiply) {
  Session session;
  const TimePoint start = session.Now();
  const std::string answer = session.Ask("SAMP:COUN 3;:TRIG:COUN 2;:READ?");
  EXPECT_EQ(std::count(answer.begin(), answer.end(), ','), 5);
  EXPECT_EQ(session.Now() - start, milliseconds(120));
  EXPECT_EQ(session.Ask("SAMP:COUN?;:TRIG:COUN?"), "3;2");
  session.Send("SAMP:COUN 0");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(Multimeter, FetchAwaitsTheMeasurementAndRepeatsIt) {
  Session session;
  const TimePoint start = session.Now();
  const std::string first = session.Ask("INIT;:FETC?");
  EXPECT_EQ(session.Now() - start, milliseconds(20));
  EXPECT_EQ(session.Ask("FETC?"), first);
  EXPECT_NE(session.Ask("READ?"), first);
}

TEST(Multimeter, FetchWithoutAMeasurementIsStale) {
  Session session;
  session.Send("FETC?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
}

TEST(Multimeter, ReadAfterInitiateMeasuresTwice) {
  Session session;
  const TimePoint start = session.Now();
  session.Ask("INIT;:READ?");
  EXPECT_EQ(session.Now() - start, milliseconds(40));
}

TEST(Multimeter, ASecondInitiateIsIgnored) {
  Session session;
  session.Send("INIT;INIT");
  EXPECT_EQ(session.Error(), "-213,\"Init ignored\"");
}

TEST(Multimeter, AbortLeavesNothingToFetch) {
  Session session;
  session.Send("INIT;:ABOR;:FETC?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
  EXPECT_FALSE(session.Connection().NextEvent());
}

TEST(Multimeter, Display) {
  Session session;
  EXPECT_EQ(session.Ask("DISP?;DISP OFF;DISP?;:DISP:STAT 1;STAT?"), "1;0;1");
  EXPECT_EQ(session.Ask("DISP:TEXT 'say \"hi\"';TEXT?"), "\"say \"\"hi\"\"\"");
  EXPECT_EQ(session.Ask("DISP:TEXT:CLE;:DISP:TEXT?"), "\"\"");
  session.Send("DISP:TEXT '" + std::string(41, 'x') + "'");
  EXPECT_EQ(session.Error(), "-223,\"Too much data\"");
}

TEST(Multimeter, TheTraceIsABlockWithLineFeeds) {
  Session session;
  session.Send("TRAC:POIN 300;DATA?");
  const std::string answer = *session.Connection().Read(session.Now());
  ASSERT_EQ(answer.size(), 5U + 300U + 1U);
  EXPECT_EQ(answer.substr(0, 5), "#3300");
  EXPECT_EQ(answer[5], '\n');
  EXPECT_GE(std::count(answer.begin() + 5, answer.end() - 1, '\n'), 5);
  EXPECT_EQ(session.Ask("TRAC:POIN?"), "300");
}

TEST(Multimeter, ATraceCanBeLoaded) {
  Session session;
  session.Send("TRAC:DATA #15a\n;\"b");
  EXPECT_EQ(session.Ask("TRAC:DATA?"), "#15a\n;\"b");
  EXPECT_EQ(session.Ask("TRAC #0xyz\nTRAC:POIN?"), "3");
  session.Send("TRAC:DATA #15a");
  session.SendRaw("bcd\n");
  EXPECT_EQ(session.Ask("TRAC?"), "#15a\nbcd");
}

TEST(Multimeter, Terminals) { EXPECT_EQ(Session().Ask("ROUT:TERM?"), "FRON"); }

TEST(Multimeter, ResetGivesTheDefaults) {
  Session session;
  session.Send("CONF:RES 100;:RES:NPLC 10;:SAMP:COUN 5;:DISP OFF;:DISP:TEXT 'x';*RST");
  EXPECT_EQ(session.Ask("FUNC?;:RES:RANG?;NPLC?;:SAMP:COUN?;:DISP?;:DISP:TEXT?"),
            "\"VOLT\";+1.00000000E+03;+1.00000000E+00;1;1;\"\"");
}

TEST(Multimeter, RangesOnce) {
  Session session;
  session.Send("RES:RANG 100;RANG:AUTO ONCE");
  EXPECT_EQ(session.Ask("RES:RANG?;RANG:AUTO?"), "+1.00000000E+04;0");
  session.Send("RES:RANG:AUTO TWICE");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(Multimeter, CountsHaveLimits) {
  Session session;
  EXPECT_EQ(session.Ask("SAMP:COUN MAX;COUN?;COUN? MIN;COUN? MAX;COUN? DEF"), "1000;1;1000;1");
  EXPECT_EQ(session.Ask("TRIG:COUN MAX;COUN?;COUN MIN;COUN?;COUN? MAX"), "10;1;10");
  session.Send("SAMP:COUN 1001");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("SAMP:COUN MANY");
  EXPECT_EQ(session.Error(), "-141,\"Invalid character data\"");
}

} // namespace
} // namespace portico::simulator
