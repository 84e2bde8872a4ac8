#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

TEST(PowerSupply, Identification) { EXPECT_NE(Session("psu").Ask("*IDN?").find(",SIM-PSU,"), std::string::npos); }

TEST(PowerSupply, SetsVoltageAndCurrent) {
  Session session("psu");
  EXPECT_EQ(session.Ask("VOLT 5;VOLT?"), "+5.00000000E+00");
  EXPECT_EQ(session.Ask("SOUR:CURR:LEV:IMM 250 MA;:CURR?;CURR? MAX"), "+2.50000000E-01;+5.00000000E+00");
  session.Send("VOLT 31");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(PowerSupply, ChannelsAreChosenBySuffix) {
  Session session("psu");
  session.Send("SOUR2:VOLT 7;:OUTP2 ON");
  EXPECT_EQ(session.Ask("OUTP?;OUTP1?;OUTP2:STAT?"), "0;0;1");
  EXPECT_EQ(session.Ask("SOUR1:VOLT?;:SOUR2:VOLT?"), "+0.00000000E+00;+7.00000000E+00");
  session.Send("OUTP3 ON");
  EXPECT_EQ(session.Error(), "-114,\"Header suffix out of range\"");
}

TEST(PowerSupply, ChannelsAreChosenBySelection) {
  Session session("psu");
  EXPECT_EQ(session.Ask("INST:NSEL?"), "1");
  session.Send("INST:NSEL 2;:VOLT 3");
  EXPECT_EQ(session.Ask("INST:NSEL?;:SOUR1:VOLT?;:SOUR2:VOLT?"), "2;+0.00000000E+00;+3.00000000E+00");
  session.Send("INST:NSEL 3");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(PowerSupply, MeasuresTheLoad) {
  Session session("psu");
  session.Send("VOLT 5;CURR 1;:OUTP ON");
  EXPECT_NEAR(std::stod(session.Ask("MEAS:VOLT?")), 5, 0.001);
  EXPECT_NEAR(std::stod(session.Ask("MEAS:CURR?")), 0.5, 0.001);
  EXPECT_NEAR(std::stod(session.Ask("MEAS2:VOLT?")), 0, 0.001);
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "0");
}

TEST(PowerSupply, TheCurrentLimitLowersTheVoltage) {
  Session session("psu");
  session.Send("VOLT 5;CURR 0.1;:OUTP ON");
  EXPECT_NEAR(std::stod(session.Ask("MEAS:SCAL:VOLT:DC?")), 1, 0.001);
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "1");
}

TEST(PowerSupply, SettingsTakeTimeToSettle) {
  Session session("psu");
  const TimePoint start = session.Now();
  session.Send("VOLT 5");
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "2");
  session.Ask("MEAS:VOLT?");
  EXPECT_EQ(session.Now() - start, milliseconds(10));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "0");
}

TEST(PowerSupply, ResetSwitchesOff) {
  Session session("psu");
  session.Send("VOLT 5;:OUTP ON;:INST:NSEL 2;*RST");
  EXPECT_EQ(session.Ask("INST:NSEL?;:VOLT?;CURR?;:OUTP?"), "1;+0.00000000E+00;+1.00000000E+00;0");
}

TEST(PowerSupply, OutputsAreSelectedByName) {
  Session session("psu");
  EXPECT_EQ(session.Ask("INST?"), "CH1");
  EXPECT_EQ(session.Ask("INST:SEL CH2;SEL?;NSEL?"), "CH2;2");
  EXPECT_EQ(session.Ask("INST ch1;:INST:SEL?;NSEL? MAX"), "CH1;2");
  session.Send("INST CH3");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  session.Send("INST 1");
  EXPECT_EQ(session.Error(), "-128,\"Numeric data not allowed\"");
}

TEST(PowerSupply, ApplySetsVoltageAndCurrent) {
  Session session("psu");
  EXPECT_EQ(session.Ask("APPL 5,0.5;:APPL?;:VOLT?;CURR?"),
            "\"+5.00000000E+00,+5.00000000E-01\";+5.00000000E+00;+5.00000000E-01");
  EXPECT_EQ(session.Ask("APPL 3.3 V;:APPL?"), "\"+3.30000000E+00,+5.00000000E-01\"");
  EXPECT_EQ(session.Ask("APPL MAX,MIN;:APPL?"), "\"+3.00000000E+01,+0.00000000E+00\"");
  EXPECT_EQ(session.Ask("APPL DEF,DEF;:APPL?"), "\"+0.00000000E+00,+1.00000000E+00\"");
}

TEST(PowerSupply, ApplySelectsTheOutputThatItNames) {
  Session session("psu");
  EXPECT_EQ(session.Ask("APPL CH2,7,250 MA;:INST?;:APPL?;:APPL? CH1"),
            "CH2;\"+7.00000000E+00,+2.50000000E-01\";\"+0.00000000E+00,+1.00000000E+00\"");
}

TEST(PowerSupply, ApplySetsAllOrNothing) {
  Session session("psu");
  session.Send("APPL CH2,5,6");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  EXPECT_EQ(session.Ask("INST?;:APPL? CH2"), "CH1;\"+0.00000000E+00,+1.00000000E+00\"");
  session.Send("APPL CH2");
  EXPECT_EQ(session.Error(), "-109,\"Missing parameter\"");
  session.Send("APPL 1,1,1");
  EXPECT_EQ(session.Error(), "-108,\"Parameter not allowed\"");
}

TEST(PowerSupply, OvervoltageProtectionSwitchesOff) {
  Session session("psu");
  EXPECT_EQ(session.Ask("VOLT:PROT?;PROT:STAT?;TRIP?"), "+3.30000000E+01;1;0");
  session.Send("VOLT:PROT 6;:VOLT 5;:OUTP ON");
  EXPECT_EQ(session.Ask("OUTP?;:VOLT:PROT?;PROT:TRIP?"), "1;+6.00000000E+00;0");
  session.Send("VOLT 8");
  EXPECT_EQ(session.Ask("OUTP?;:VOLT?;:VOLT:PROT:TRIP?"), "0;+8.00000000E+00;1");
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "512");
  EXPECT_NEAR(std::stod(session.Ask("MEAS:VOLT?")), 0, 0.001);
  session.Send("OUTP ON");
  EXPECT_EQ(session.Error(), "-221,\"Settings conflict\"");
  EXPECT_EQ(session.Ask("VOLT 5;:VOLT:PROT:CLE;TRIP?;:STAT:QUES:COND?;:OUTP?;OUTP ON;OUTP?"), "0;0;0;1");
}

TEST(PowerSupply, OvercurrentProtectionSwitchesOff) {
  Session session("psu");
  EXPECT_EQ(session.Ask("CURR:PROT?;PROT? MIN;PROT? MAX"), "+5.50000000E+00;+0.00000000E+00;+5.50000000E+00");
  session.Send("CURR:PROT 200 MA;:VOLT 5;:OUTP ON");
  EXPECT_EQ(session.Ask("OUTP?;:CURR:PROT:TRIP?;:VOLT:PROT:TRIP?;:STAT:QUES:COND?"), "0;1;0;1024");
  session.Send("CURR:PROT:CLE;STAT OFF;:OUTP ON");
  EXPECT_EQ(session.Ask("OUTP?;:CURR:PROT:TRIP?;STAT?"), "1;0;0");
  session.Send("CURR:PROT 6");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(PowerSupply, EachOutputHasItsOwnProtection) {
  Session session("psu");
  session.Send("OUTP1 ON;:SOUR2:VOLT:PROT 1;:SOUR2:VOLT 2;:OUTP2 ON");
  EXPECT_EQ(session.Ask("OUTP1?;:OUTP2?;:SOUR1:VOLT:PROT:TRIP?;:SOUR2:VOLT:PROT:TRIP?"), "1;0;0;1");
  EXPECT_EQ(session.Ask("STAT:QUES?;:SOUR1:VOLT:PROT:CLE;:STAT:QUES:COND?"), "512;512");
  session.Send("SOUR1:VOLT 3");
  EXPECT_EQ(session.Ask("STAT:QUES?"), "0");
}

TEST(PowerSupply, ResetForgetsThatProtectionTripped) {
  Session session("psu");
  session.Send("VOLT:PROT 1;:VOLT 2;:OUTP ON;*RST");
  EXPECT_EQ(session.Ask("VOLT:PROT?;PROT:TRIP?;:STAT:QUES:COND?"), "+3.30000000E+01;0;0");
}

} // namespace
} // namespace portico::simulator
