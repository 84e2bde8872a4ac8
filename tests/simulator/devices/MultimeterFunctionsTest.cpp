#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::NumberIn;
using test::Session;

TEST(MultimeterFunctions, FourWiresMeasureWithoutTheirLeads) {
  Session session;
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:FRES?")), 4701.95, 0.1);
  EXPECT_EQ(session.Ask("CONF:FRES 10 KOHM;:CONF?"), "\"FRES +1.00000000E+04,+3.00000000E-02\"");
  EXPECT_EQ(session.Ask("FRES:NPLC 10;NPLC?;RANG?;RANG:AUTO?"), "+1.00000000E+01;+1.00000000E+04;0");
  EXPECT_EQ(session.Ask("MEAS:FRES? 100"), "+9.90000000E+37");
}

TEST(MultimeterFunctions, FrequencyTakesItsAperture) {
  Session session;
  TimePoint start = session.Now();
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:FREQ?")), 1000.25, 0.02);
  EXPECT_EQ(session.Now() - start, milliseconds(100));
  EXPECT_EQ(session.Ask("FREQ:APER?;APER? MIN;APER? MAX"), "+1.00000000E-01;+1.00000000E-02;+1.00000000E+00");
  start = session.Now();
  session.Ask("CONF:FREQ 1 KHZ;:FREQ:APER 1;:READ?");
  EXPECT_EQ(session.Now() - start, milliseconds(1000));
  session.Send("FREQ:APER 2");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("MEAS:FREQ? 1 MHZ");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(MultimeterFunctions, TemperatureIsInTheUnitAskedFor) {
  Session session;
  EXPECT_NEAR(NumberIn(session.Ask("MEAS:TEMP?")), 23.45, 0.01);
  EXPECT_EQ(session.Ask("UNIT?"), "C");
  EXPECT_NEAR(NumberIn(session.Ask("UNIT:TEMP F;:READ?")), 74.21, 0.02);
  EXPECT_NEAR(NumberIn(session.Ask("UNIT K;:READ?")), 296.6, 0.01);
  EXPECT_EQ(session.Ask("UNIT:TEMP?;*RST;:UNIT?"), "K;C");
}

TEST(MultimeterFunctions, TemperatureHasATransducer) {
  Session session;
  EXPECT_EQ(session.Ask("TEMP:TRAN:TYPE?"), "FRTD");
  EXPECT_EQ(session.Ask("CONF:TEMP THER;:CONF?;:TEMP:TRAN:TYPE?"), "\"TEMP THER,+3.00000000E-03\";THER");
  EXPECT_EQ(session.Ask("TEMP:TRAN:TYPE RTD;TYPE?"), "RTD");
  EXPECT_EQ(session.Ask("CONF:TEMP DEF;:TEMP:TRAN:TYPE?"), "FRTD");
  session.Send("MEAS:TEMP? TC");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(MultimeterTrigger, HasASource) {
  Session session;
  EXPECT_EQ(session.Ask("TRIG:SOUR?;SOUR BUS;SOUR?;SOUR EXTERNAL;SOUR?;SOUR IMM;SOUR?"), "IMM;BUS;EXT;IMM");
  session.Send("TRIG:SOUR LINE");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(MultimeterTrigger, TheBusBeginsWhatInitiatePrepared) {
  Session session;
  session.Send("TRIG:SOUR BUS;:SAMP:COUN 2;:INIT");
  session.Advance(std::chrono::hours(1));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "32");
  const TimePoint start = session.Now();
  EXPECT_EQ(session.Ask("*TRG;:STAT:OPER:COND?"), "16");
  EXPECT_EQ(session.Ask("FETC?").size(), 31U);
  EXPECT_EQ(session.Now() - start, milliseconds(40));
  session.Send("*TRG");
  EXPECT_EQ(session.Error(), "-211,\"Trigger ignored\"");
}

TEST(MultimeterTrigger, EachTriggerTakesItsSamples) {
  Session session;
  session.Send("TRIG:SOUR BUS;COUN 2;:SAMP:COUN 3;:INIT;*OPC;*TRG");
  session.Advance(milliseconds(60));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "32");
  EXPECT_EQ(session.Ask("*ESR?"), "128");
  session.Send("*TRG");
  EXPECT_EQ(session.Ask("FETC?").size(), 6 * 16U - 1);
  EXPECT_EQ(session.Ask("*ESR?"), "1");
}

TEST(MultimeterTrigger, ATriggerWhileMeasuringIsIgnored) {
  Session session;
  session.Send("TRIG:SOUR BUS;COUN 2;:INIT;*TRG;*TRG");
  EXPECT_EQ(session.Error(), "-211,\"Trigger ignored\"");
}

TEST(MultimeterTrigger, AReadingThatWaitsForTheBusIsADeadlock) {
  Session session;
  session.Send("TRIG:SOUR BUS;:READ?");
  EXPECT_EQ(session.Error(), "-214,\"Trigger deadlock\"");
  EXPECT_EQ(session.Ask("MEAS:VOLT?").substr(0, 5), "+1.00");
  EXPECT_EQ(session.Ask("TRIG:SOUR?"), "IMM");
}

TEST(MultimeterTrigger, NothingComesFromOutside) {
  Session session;
  session.Send("TRIG:SOUR EXT;:READ?");
  EXPECT_FALSE(session.Connection().NextEvent());
  Session other = session.Another();
  other.Send("*TRG");
  EXPECT_EQ(other.Error(), "-211,\"Trigger ignored\"");
  other.Send("ABOR");
  EXPECT_EQ(other.Error(), "-230,\"Data corrupt or stale\"");
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

TEST(MultimeterTrigger, TheDelayComesBeforeEachReading) {
  Session session;
  EXPECT_EQ(session.Ask("TRIG:DEL?;DEL:AUTO?"), "+0.00000000E+00;1");
  const TimePoint start = session.Now();
  session.Ask("TRIG:DEL 30 MS;:SAMP:COUN 2;:READ?");
  EXPECT_EQ(session.Now() - start, milliseconds(100));
  EXPECT_EQ(session.Ask("TRIG:DEL?;DEL:AUTO?;:TRIG:DEL? MAX"), "+3.00000000E-02;0;+3.60000000E+03");
  EXPECT_EQ(session.Ask("TRIG:DEL:AUTO ON;:TRIG:DEL?"), "+0.00000000E+00");
  session.Send("TRIG:DEL 3601");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(MultimeterTrigger, ConfigureGivesTheDefaults) {
  Session session;
  session.Send("TRIG:SOUR BUS;COUN 3;DEL 1;:SAMP:COUN 4;:CONF:VOLT");
  EXPECT_EQ(session.Ask("TRIG:SOUR?;COUN?;DEL?;DEL:AUTO?;:SAMP:COUN?"), "IMM;1;+0.00000000E+00;1;1");
}

} // namespace
} // namespace portico::simulator
