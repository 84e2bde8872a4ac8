#include "Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

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

} // namespace
} // namespace portico::simulator
