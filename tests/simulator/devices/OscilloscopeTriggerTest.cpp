#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

/// The codes of a record of 500 points.
class Record {
public:
  explicit Record(const std::string& block) : m_block(block) { EXPECT_EQ(block.substr(0, 5), "#3500"); }
  int operator[](std::size_t i) const { return static_cast<unsigned char>(m_block.at(5 + i)); }

private:
  std::string m_block;
};

/// An acquisition of 500 points, 20 microseconds each.
Record Acquire(Session& session, const std::string& settings) {
  return Record(session.Ask("WAV:POIN 500;:" + settings + ";:SING;:WAV:DATA?"));
}

TEST(OscilloscopeTrigger, HasSourceLevelSlopeAndSweep) {
  Session session("scope");
  EXPECT_EQ(session.Ask("TRIG:SOUR?;LEV?;SLOP?;:TRIG:SWE?"), "CHAN1;+0.00000000E+00;POS;AUTO");
  EXPECT_EQ(session.Ask("TRIG:EDGE:SOUR CHANNEL3;LEV 500 MV;SLOP NEG;SOUR?;LEV?;SLOP?;:TRIG:SWE NORM;SWE?"),
            "CHAN3;+5.00000000E-01;NEG;NORM");
  EXPECT_EQ(session.Ask("TRIG:SOUR EXT;SOUR?;LEV? MAX;*RST;SOUR?"), "EXT;+4.00000000E+01;CHAN1");
  session.Send("TRIG:SOUR CHAN5");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  session.Send("TRIG:LEV 41");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(OscilloscopeTrigger, TheRecordBeginsAtTheTrigger) {
  Session session("scope");
  const Record rising = Acquire(session, "TRIG:LEV 0.5");
  EXPECT_NEAR(rising[0], 153, 2);
  EXPECT_GT(rising[2], rising[0] + 3);
  const Record falling = Acquire(session, "TRIG:SLOP NEG");
  EXPECT_NEAR(falling[0], 153, 2);
  EXPECT_LT(falling[2], falling[0] - 3);
}

TEST(OscilloscopeTrigger, WithoutACrossingANormalSweepWaits) {
  Session session("scope");
  session.Send("TRIG:SWE NORM;LEV 2;:SING");
  session.Advance(std::chrono::hours(1));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "32");
  const TimePoint start = session.Now();
  EXPECT_EQ(session.Ask("TRIG:LEV 0;*OPC?"), "1");
  EXPECT_EQ(session.Now() - start, milliseconds(10));
  EXPECT_EQ(session.Ask("WAV:DATA?").substr(0, 6), "#41000");
}

TEST(OscilloscopeTrigger, CanBeForced) {
  for (const char* trigger : {"*TRG", "TRIG:FORC"}) {
    Session session("scope");
    session.Send("TRIG:SWE NORM;SOUR EXT;:SING");
    EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "32");
    session.Send(trigger);
    EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "8");
    EXPECT_EQ(session.Ask("WAV:DATA?").substr(0, 6), "#41000");
    session.Send(trigger);
    EXPECT_EQ(session.Error(), "-211,\"Trigger ignored\"");
  }
}

TEST(OscilloscopeTrigger, AnAutomaticSweepNeedsNone) {
  Session session("scope");
  EXPECT_EQ(session.Ask("TRIG:SOUR EXT;:SING;*OPC?"), "1");
}

TEST(OscilloscopeRun, GoesOnUntilItIsStopped) {
  Session session("scope");
  EXPECT_EQ(session.Ask("RUN;*OPC?;:STAT:OPER:COND?"), "1;8");
  const std::string first = session.Ask("WAV:DATA?");
  EXPECT_EQ(first.substr(0, 6), "#41000");
  EXPECT_EQ(session.Ask("WAV:DATA?"), first);
  session.Advance(milliseconds(10));
  const std::string second = session.Ask("WAV:DATA?");
  EXPECT_NE(second, first);
  session.Advance(milliseconds(9));
  EXPECT_EQ(session.Ask("WAV:DATA?"), second);
  EXPECT_EQ(session.Ask("STOP;:STAT:OPER:COND?"), "0");
  session.Advance(std::chrono::hours(1));
  EXPECT_EQ(session.Ask("WAV:DATA?"), second);
}

TEST(OscilloscopeRun, TheFirstSweepIsAwaited) {
  Session session("scope");
  const TimePoint start = session.Now();
  session.Ask("RUN;:WAV:DATA?");
  EXPECT_EQ(session.Now() - start, milliseconds(10));
}

TEST(OscilloscopeRun, FollowsTheSettings) {
  Session session("scope");
  session.Ask("RUN;:WAV:DATA?");
  EXPECT_EQ(session.Ask("WAV:POIN 50;PRE?"), "50,+2.00000000E-04,+2.00000000E-02,+0.00000000E+00,+1.28000000E+02");
  EXPECT_EQ(session.Ask("WAV:DATA?").substr(0, 4), "#250");
}

TEST(OscilloscopeRun, ASingleSweepAndAResetEndIt) {
  for (const char* end : {"SING", "*RST"}) {
    Session session("scope");
    session.Send(std::string("RUN;") + end + ";*WAI");
    EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "0") << end;
  }
}

TEST(OscilloscopeRun, WithoutATriggerThereIsOneSweepWhenForced) {
  Session session("scope");
  session.Send("TRIG:SWE NORM;SOUR EXT;:RUN;:WAV:DATA?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
  EXPECT_EQ(session.Ask("*TRG;:WAV:DATA?").substr(0, 6), "#41000");
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "8");
}

TEST(Oscilloscope, CouplingTakesTheBiasOrAll) {
  Session session("scope");
  EXPECT_EQ(session.Ask("CHAN2:COUP?;COUP AC;COUP?;COUP GND;COUP?"), "DC;AC;GND");
  // 0.5 V at 2 kHz on 0.25 V; the trigger's 1 kHz begins both at zero.
  EXPECT_NEAR(Acquire(session, "CHAN2:DISP ON;COUP DC;:WAV:SOUR CHAN2")[0], 140, 2);
  EXPECT_NEAR(Acquire(session, "CHAN2:COUP AC")[0], 128, 2);
  EXPECT_EQ(session.Ask("MEAS:VPP? CHAN2;FREQ? CHAN2"), "+1.00000000E+00;+2.00000000E+03");
  const Record ground = Acquire(session, "CHAN2:COUP GND");
  for (std::size_t i = 0; i < 500; ++i) EXPECT_NEAR(ground[i], 128, 1);
  EXPECT_EQ(session.Ask("MEAS:VPP? CHAN2;FREQ? CHAN2"), "+0.00000000E+00;+9.91000000E+37");
  session.Send("CHAN2:COUP HF");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(OscilloscopeRun, BegunAnewItKeepsTheRecordOfTheLastSweepThatIsOver) {
  for (const std::string anew : {"RUN", "AUT", "*RCL 0"}) {
    Session session("scope");
    session.Send("*SAV 0;:RUN");
    session.Advance(milliseconds(100));
    EXPECT_EQ(session.Ask(anew + ";:STOP;:WAV:DATA?").substr(0, 6), "#41000") << anew;
  }
}

TEST(Oscilloscope, AutoScaleShowsAllSignals) {
  Session session("scope");
  session.Send("TIM:SCAL 1;:TRIG:SWE NORM;SOUR EXT;:CHAN2:OFFS 5;COUP GND;:AUT");
  EXPECT_EQ(session.Ask("TIM:SCAL?;:TRIG:SOUR?;:TRIG:SWE?;:STAT:OPER:COND?"), "+2.00000000E-04;CHAN1;AUTO;8");
  EXPECT_EQ(session.Ask("CHAN1:SCAL?;DISP?;:CHAN2:SCAL?;OFFS?;COUP?;DISP?"),
            "+5.00000000E-01;1;+5.00000000E-01;+0.00000000E+00;DC;1");
  EXPECT_EQ(session.Ask("CHAN3:SCAL?;:CHAN4:SCAL?;DISP?"), "+1.00000000E+00;+1.00000000E-01;1");
  EXPECT_EQ(session.Ask("WAV:SOUR CHAN4;DATA?").substr(0, 6), "#41000");
}

TEST(Oscilloscope, RecordsAreHandedOutAsBytesWordsOrVolts) {
  Session session("scope");
  const std::string bytes = session.Ask("CHAN1:COUP GND;OFFS 1;:WAV:POIN 10;:SING;:WAV:FORM?;DATA?");
  ASSERT_EQ(bytes.substr(0, 9), "BYTE;#210");
  const std::string words = session.Ask("WAV:FORM WORD;FORM?;DATA?;PRE?");
  ASSERT_EQ(words.substr(0, 9), "WORD;#220");
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_EQ(words[9 + 2 * i], bytes[9 + i]);
    EXPECT_EQ(words[10 + 2 * i], '\0');
  }
  EXPECT_EQ(words.substr(29), ";10,+1.00000000E-03,+7.81250000E-05,+1.00000000E+00,+3.27680000E+04");
  const std::string volts = session.Ask("WAV:FORM ASCII;FORM?;DATA?");
  ASSERT_EQ(volts.substr(0, 4), "ASC;");
  EXPECT_EQ(volts.size(), 4U + 10 * 16 - 1);
  EXPECT_NEAR(std::stod(volts.substr(4)), 0, 0.021);
}

} // namespace
} // namespace portico::simulator
