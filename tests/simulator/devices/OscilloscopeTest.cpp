#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

TEST(Oscilloscope, Identification) { EXPECT_NE(Session("scope").Ask("*IDN?").find(",SIM-SCOPE,"), std::string::npos); }

TEST(Oscilloscope, ChannelsHaveTheirOwnSettings) {
  Session session("scope");
  session.Send("CHAN2:SCAL 100 MV;OFFS 1;DISP ON");
  EXPECT_EQ(session.Ask("CHAN2:SCAL?;OFFS?;DISP?"), "+1.00000000E-01;+1.00000000E+00;1");
  EXPECT_EQ(session.Ask("CHANNEL1:SCALE?;OFFSET?;DISPLAY?"), "+5.00000000E-01;+0.00000000E+00;1");
  EXPECT_EQ(session.Ask("CHAN4:SCAL? MAX;OFFS? MIN;DISP?"), "+1.00000000E+01;-4.00000000E+01;0");
  session.Send("CHAN5:SCAL 1");
  EXPECT_EQ(session.Error(), "-114,\"Header suffix out of range\"");
}

TEST(Oscilloscope, ShowsItsScreenAsAPicture) {
  Session session("scope");
  session.Send("*RST;:CHAN1:DISP OFF");
  const std::string empty = session.Ask("HCOP:SDUM:DATA?");
  EXPECT_EQ(empty.substr(0, 9), "#532118BM") << "14 + 40 + 64 bytes in front of 160 a row";
  EXPECT_EQ(empty.size(), 7U + 32118U);
  EXPECT_EQ(empty.substr(7 + 2, 4), std::string("\x76\x7D\0\0", 4)) << "the size of the file";
  EXPECT_EQ(empty.substr(7 + 10, 4), std::string("\x76\0\0\0", 4)) << "where its pixels begin";
  EXPECT_EQ(empty.substr(7 + 14, 16), std::string("\x28\0\0\0\x40\x01\0\0\xC8\0\0\0\x01\0\x04\0", 16));
  const auto traced = [](const std::string& answer, int color) {
    return std::any_of(answer.begin() + 7 + 118, answer.end(), [color](char pixels) {
      return (pixels & 0x0F) == color || (static_cast<unsigned char>(pixels) >> 4) == color;
    });
  };
  EXPECT_TRUE(traced(empty, 1)) << "the graticule";
  EXPECT_FALSE(traced(empty, 2));
  const std::string two = session.Ask("CHAN1:DISP ON;:CHAN3:DISP ON;:SING;:HCOP:SDUM:DATA?");
  EXPECT_TRUE(traced(two, 2));
  EXPECT_FALSE(traced(two, 3));
  EXPECT_TRUE(traced(two, 4));
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(Oscilloscope, TimeBase) {
  Session session("scope");
  EXPECT_EQ(session.Ask("TIM:SCAL?"), "+1.00000000E-03");
  EXPECT_EQ(session.Ask("TIM:SCAL 20 US;SCAL?;SCAL? MIN"), "+2.00000000E-05;+1.00000000E-09");
}

TEST(Oscilloscope, Acquisition) {
  Session session("scope");
  EXPECT_EQ(session.Ask("ACQ:TYPE?;COUN?"), "NORM;8");
  EXPECT_EQ(session.Ask("ACQ:TYPE AVERAGE;COUN 16;TYPE?;COUN?"), "AVER;16");
  session.Send("ACQ:TYPE PEAK");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(Oscilloscope, AnAcquisitionLastsAsLongAsItsSweeps) {
  Session session("scope");
  TimePoint start = session.Now();
  session.Send("SING");
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "8");
  EXPECT_EQ(session.Ask("*OPC?"), "1");
  EXPECT_EQ(session.Now() - start, milliseconds(10));
  start = session.Now();
  session.Ask("ACQ:TYPE AVER;COUN 4;:SING;*OPC?");
  EXPECT_EQ(session.Now() - start, milliseconds(40));
}

TEST(Oscilloscope, DataIsABlockOfTheSine) {
  Session session("scope");
  session.Send("WAV:POIN 500;:SING;:WAV:DATA?");
  session.Advance(milliseconds(10));
  const std::string answer = *session.Connection().Read(session.Now());
  ASSERT_EQ(answer.size(), 5U + 500U + 1U);
  EXPECT_EQ(answer.substr(0, 5), "#3500");
  const auto code = [&](std::size_t i) { return static_cast<int>(static_cast<unsigned char>(answer[5 + i])); };
  EXPECT_NEAR(code(0), 128, 2);
  EXPECT_NEAR(code(12), 178, 3);
  EXPECT_NEAR(code(37), 78, 3);
}

TEST(Oscilloscope, WithoutAnAcquisitionThereIsNoData) {
  Session session("scope");
  session.Send("WAV:DATA?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
  session.Send("SING;STOP;:WAV:DATA?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
}

TEST(Oscilloscope, AHiddenChannelHasNoData) {
  Session session("scope");
  EXPECT_EQ(session.Ask("WAV:SOUR CHANNEL3;SOUR?"), "CHAN3");
  EXPECT_EQ(session.Ask("SING;:WAV:DATA?;*OPC?"), "1");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
}

TEST(Oscilloscope, Preamble) {
  Session session("scope");
  EXPECT_EQ(session.Ask("WAV:POIN?;PRE?"), "1000;1000,+1.00000000E-05,+2.00000000E-02,+0.00000000E+00,+1.28000000E+02");
}

TEST(Oscilloscope, Measurements) {
  Session session("scope");
  EXPECT_EQ(session.Ask("MEAS:VPP? CHAN1;FREQ? CHAN4"), "+2.00000000E+00;+1.00000000E+04");
  session.Send("MEAS:VPP? CHAN5");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
}

TEST(Oscilloscope, ResetGivesTheDefaults) {
  Session session("scope");
  session.Send("CHAN1:SCAL 1;:TIM:SCAL 1;:ACQ:TYPE AVER;:WAV:POIN 10;SOUR CHAN2;*RST");
  EXPECT_EQ(session.Ask("CHAN1:SCAL?;:TIM:SCAL?;:ACQ:TYPE?;:WAV:POIN?;SOUR?"),
            "+5.00000000E-01;+1.00000000E-03;NORM;1000;CHAN1");
}

TEST(Oscilloscope, ThePreambleIsTheRecordsOwn) {
  Session session("scope");
  session.Ask("CHAN1:SCAL 1;:SING;*OPC?");
  session.Send("TIM:SCAL 1;:WAV:POIN 50;:CHAN1:SCAL 2;OFFS 3");
  EXPECT_EQ(session.Ask("WAV:PRE?"), "1000,+1.00000000E-05,+4.00000000E-02,+0.00000000E+00,+1.28000000E+02");
  EXPECT_EQ(session.Ask("WAV:DATA?").substr(0, 6), "#41000");
}

TEST(Oscilloscope, ThePreambleWaitsForItsRecord) {
  Session session("scope");
  session.Ask("SING;*OPC?");
  EXPECT_EQ(session.Ask("WAV:POIN 50;:SING;:WAV:PRE?"),
            "50,+2.00000000E-04,+2.00000000E-02,+0.00000000E+00,+1.28000000E+02");
}

TEST(Oscilloscope, ARecordIsOfTheSettingsAtItsStart) {
  Session session("scope");
  session.Send("SING;:WAV:POIN 50;:TIM:SCAL 1");
  EXPECT_EQ(session.Ask("WAV:PRE?"), "1000,+1.00000000E-05,+2.00000000E-02,+0.00000000E+00,+1.28000000E+02");
  EXPECT_EQ(session.Ask("WAV:DATA?").substr(0, 6), "#41000");
}

TEST(Oscilloscope, CountsHaveLimits) {
  Session session("scope");
  EXPECT_EQ(session.Ask("WAV:POIN MIN;POIN?;POIN? MAX;:ACQ:COUN MAX;COUN?;COUN? DEF"), "10;1000000;1024;8");
}

} // namespace
} // namespace portico::simulator
