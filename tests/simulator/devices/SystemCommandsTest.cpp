#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

TEST(SystemCommands, ErrorsAreReadOneByOne) {
  Session session;
  EXPECT_EQ(session.Ask("SYST:ERR?"), "0,\"No error\"");
  session.Send("BAD");
  session.Send("VOLT:RANG 1E9");
  EXPECT_EQ(session.Ask("SYST:ERR:COUN?"), "2");
  EXPECT_EQ(session.Ask("SYSTem:ERRor:NEXT?"), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Ask("SYST:ERR?"), "-222,\"Data out of range\"");
  EXPECT_EQ(session.Ask("SYST:ERR:COUN?"), "0");
}

TEST(SystemCommands, ErrorsAreReadTogether) {
  Session session;
  session.Send("BAD");
  session.Send("*ESE");
  EXPECT_EQ(session.Ask("SYST:ERR:ALL?"), "-113,\"Undefined header\",-109,\"Missing parameter\"");
  EXPECT_EQ(session.Ask("SYST:ERR:ALL?"), "0,\"No error\"");
}

TEST(SystemCommands, TheQueueOverflows) {
  Session session;
  for (int i = 0; i < 30; ++i) session.Send("BAD");
  EXPECT_EQ(session.Ask("SYST:ERR:COUN?"), "20");
  EXPECT_TRUE(session.Ask("SYST:ERR:ALL?").ends_with(",-350,\"Queue overflow\""));
}

TEST(SystemCommands, Version) {
  Session session;
  EXPECT_EQ(session.Ask("SYST:VERS?"), "1999.0");
}

TEST(SystemCommands, EachDeviceTellsItsCommands) {
  const std::pair<const char*, std::vector<std::string>> expected[] = {
      {"dmm", {"[:SENSe]:VOLTage[:DC]:RANGe[:UPPer]", ":ABORt/nquery/", ":CONFigure?/qonly/", ":READ?/qonly/"}},
      {"psu", {"[:SOURce<1-2>]:VOLTage[:LEVel][:IMMediate]", ":OUTPut<1-2>[:STATe]", ":APPLy"}},
      {"scope", {":CHANnel<1-4>:SCALe", ":WAVeform:DATA?/qonly/", ":AUToscale/nquery/"}}};
  for (const auto& [device, own] : expected) {
    Session session(device);
    const std::string answer = session.Ask("SYST:HELP:HEAD?");
    const std::size_t first = answer.find('\n');
    const auto digits = static_cast<std::size_t>(answer.at(1) - '0');
    ASSERT_EQ(answer.substr(0, 1), "#") << device;
    EXPECT_EQ(std::stoul(answer.substr(2, digits)), answer.size() - 2 - digits) << device;
    EXPECT_EQ(answer.substr(2 + digits, first - 2 - digits), "*CLS/nquery/") << device;
    EXPECT_TRUE(answer.ends_with('\n')) << device;
    std::vector<std::string> headers = own;
    for (const char* common : {"*ESE", "*IDN?/qonly/", ":SYSTem:ERRor[:NEXT]?/qonly/", ":SYSTem:HELP:HEADers?/qonly/",
                               ":STATus:PRESet/nquery/", ":SIMulator:ECHO?/qonly/"}) {
      headers.emplace_back(common);
    }
    for (const std::string& header : headers) {
      EXPECT_NE(answer.find('\n' + header + '\n'), std::string::npos) << device << ' ' << header;
    }
    EXPECT_EQ(session.Ask("SYST:HELP:HEAD?;:SYST:VERS?"), answer + ";1999.0") << device;
  }
}

TEST(SystemCommands, OperationStatusFollowsAMeasurement) {
  Session session;
  session.Send("INIT");
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "16");
  EXPECT_EQ(session.Ask("STAT:OPER?"), "16");
  EXPECT_EQ(session.Ask("STAT:OPER:EVEN?"), "0");
  session.Advance(milliseconds(20));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "0");
}

TEST(SystemCommands, OperationSummaryInTheStatusByte) {
  Session session;
  session.Send("STAT:OPER:ENAB 16;:INIT");
  EXPECT_EQ(session.Ask("*STB?"), "128");
  EXPECT_EQ(session.Ask("STAT:OPER:ENAB?"), "16");
}

TEST(SystemCommands, QuestionableStatusTellsOfAnOverload) {
  Session session;
  session.Send("STAT:QUES:ENAB 1");
  EXPECT_EQ(session.Ask("MEAS:VOLT:DC? 0.1"), "+9.90000000E+37");
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "1");
  EXPECT_EQ(session.Ask("*STB?"), "8");
  session.Ask("MEAS:VOLT:DC? 10");
  EXPECT_EQ(session.Ask("STAT:QUES:COND?"), "0");
  EXPECT_EQ(session.Ask("STAT:QUES?"), "1");
  EXPECT_EQ(session.Ask("STAT:QUES?"), "0");
}

TEST(SystemCommands, Preset) {
  Session session;
  session.Send("STAT:OPER:ENAB 65535;:STAT:QUES:ENAB 3");
  EXPECT_EQ(session.Ask("STAT:OPER:ENAB?;:STAT:QUES:ENAB?"), "32767;3");
  session.Send("STAT:PRES");
  EXPECT_EQ(session.Ask("STAT:OPER:ENAB?;:STAT:QUES:ENAB?"), "0;0");
}

TEST(SystemCommands, Beeps) {
  for (const char* kind : {"dmm", "psu", "scope"}) {
    Session session(kind);
    session.Send("SYST:BEEP;:SYSTEM:BEEPER:IMMEDIATE 440 HZ,100 MS,MAX;:SYST:BEEP 2 KHZ");
    EXPECT_EQ(session.Error(), "0,\"No error\"") << kind;
  }
  Session session;
  session.Send("SYST:BEEP 10");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("SYST:BEEP 440,1,1.5");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(SystemCommands, TheBeeperCanBeSwitchedOff) {
  Session session;
  EXPECT_EQ(session.Ask("SYST:BEEP:STAT?;STAT OFF;STAT?;*RST;STAT?"), "1;0;0");
}

} // namespace
} // namespace portico::simulator
