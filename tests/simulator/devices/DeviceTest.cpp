#include "simulator/connection/DeviceRack.h"

#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

TEST(Device, IsMadeOfEveryKindInAnyCase) {
  for (const char* kind : {"dmm", "DMM", "psu", "Psu", "scope", "SCOPE"}) {
    EXPECT_NE(Device::Make(kind, 1), nullptr) << kind;
  }
  for (const char* kind : {"", "dm", "toaster"}) EXPECT_EQ(Device::Make(kind, 1), nullptr) << kind;
}

TEST(Device, KeepsTheErrorOfALostConnection) {
  Session one;
  {
    Session lost = one.Another();
    EXPECT_EQ(lost.Ask("FOO:BAR?"), "(none)");
  }
  EXPECT_EQ(one.Error(), "-113,\"Undefined header\"");
  EXPECT_EQ(one.Error(), "0,\"No error\"");
}

TEST(Device, KeepsItsSettingsAndStoredData) {
  Session psu("psu");
  psu.Send("VOLT 5;:OUTP ON");
  EXPECT_EQ(psu.Another().Ask("VOLT?;:OUTP?"), "+5.00000000E+00;1");
  Session dmm;
  dmm.Send("TRAC #13abc");
  EXPECT_EQ(dmm.Another().Ask("TRAC?"), "#13abc");
}

TEST(Device, SharesItsStatusRegisters) {
  Session one;
  Session two = one.Another();
  one.Send("*CLS;*ESE 32;*SRE 32");
  EXPECT_EQ(two.Ask("*ESE?;*SRE?"), "32;32");
  two.Send("BAD");
  EXPECT_EQ(one.Ask("*STB?"), "100");
  EXPECT_EQ(two.Ask("*ESR?"), "32");
  EXPECT_EQ(one.Ask("*ESR?"), "0");
}

TEST(Device, PowersOnOnce) {
  Session one;
  EXPECT_EQ(one.Ask("*ESR?"), "128");
  EXPECT_EQ(one.Another().Ask("*ESR?"), "0");
}

TEST(Device, TellsEachConnectionOfItsOwnAnswersOnly) {
  Session one;
  Session two = one.Another();
  one.Send("*CLS;*SRE 16");
  one.Send("*IDN?");
  EXPECT_EQ(two.Ask("*STB?"), "0");
  one.Send("*STB?");
  EXPECT_TRUE(one.Read()->starts_with("TOLVANE"));
  EXPECT_EQ(one.Read(), "80");
}

TEST(Device, ReadsEachConnectionsMessagesApart) {
  Session one;
  Session two = one.Another();
  one.SendRaw("DISP:TE");
  two.SendRaw("*ES");
  one.SendRaw("XT \"a\nb\";TEXT?\n");
  two.SendRaw("E?\n");
  EXPECT_EQ(two.Read(), "0");
  EXPECT_EQ(one.Error(), "-151,\"Invalid string data\"");
  EXPECT_EQ(two.Ask("SYST:VERS?;VERS?"), "1999.0;1999.0");
}

TEST(Device, GoesOnWithWhatALostConnectionHadSent) {
  Session one("psu");
  {
    Session lost = one.Another();
    lost.Send("VOLT 5;*OPC?;:VOLT 6");
    lost.Send("SOUR2:VOLT?;:SOUR2:VOLT 7");
  }
  EXPECT_EQ(one.Ask("VOLT?"), "+5.00000000E+00");
  one.Advance(milliseconds(10));
  EXPECT_EQ(one.Ask("VOLT?;:SOUR2:VOLT?"), "+6.00000000E+00;+7.00000000E+00");
  EXPECT_FALSE(one.Read());
  EXPECT_EQ(one.Error(), "0,\"No error\"");
}

TEST(Device, GoesOnWithWhatUnreadAnswersHadHeld) {
  Session one;
  {
    Session lost = one.Another();
    for (std::size_t i = 0; i < ResponseQueue::MostMessages; ++i) lost.Send("*ESE?");
    lost.Send("*ESE 9");
    EXPECT_EQ(one.Ask("*ESE?"), "0");
  }
  EXPECT_EQ(one.Ask("*ESE?"), "9");
}

TEST(Device, HoldsTheConnectionThatWaitsOnly) {
  Session one;
  Session two = one.Another();
  one.Send("INIT;*OPC?");
  EXPECT_EQ(two.Ask("*ESE?"), "0");
  EXPECT_FALSE(one.Read());
  EXPECT_EQ(one.Await(), "1");
}

TEST(Device, WaitsForAnOperationWhoeverBeganIt) {
  Session one;
  Session two = one.Another();
  const TimePoint start = one.Now();
  one.Send("INIT");
  EXPECT_EQ(two.Ask("*OPC?"), "1");
  EXPECT_EQ(two.Now() - start, milliseconds(20));
}

TEST(Device, MeasuresForEachConnectionInItsTurn) {
  Session one;
  Session two = one.Another();
  Session three = one.Another();
  const TimePoint start = one.Now();
  one.Send("MEAS:VOLT?");
  two.Send("MEAS:RES?");
  three.Send("READ?");
  EXPECT_EQ(one.Await().substr(0, 5), "+1.00");
  EXPECT_EQ(one.Now() - start, milliseconds(20));
  EXPECT_EQ(two.Await().substr(0, 5), "+4.70");
  EXPECT_EQ(one.Now() - start, milliseconds(40));
  EXPECT_EQ(three.Await().substr(0, 5), "+4.70");
  EXPECT_EQ(one.Now() - start, milliseconds(60));
  EXPECT_EQ(one.Error(), "0,\"No error\"");
}

TEST(Device, LetsNobodyMeasureForEver) {
  Session one;
  Session two = one.Another();
  const TimePoint start = one.Now();
  one.Send("READ?");
  one.Send("READ?");
  one.Send("READ?");
  two.Send("READ?");
  two.Await();
  EXPECT_LE(two.Now() - start, milliseconds(40));
}

TEST(Device, AMeasurementThatAnotherConnectionAbortsHasNoReading) {
  Session one;
  Session two = one.Another();
  one.Send("READ?");
  two.Send("ABOR;*CLS");
  EXPECT_EQ(one.Await(), "(none)");
  EXPECT_EQ(one.Error(), "-230,\"Data corrupt or stale\"");
}

TEST(Device, ResetByAnotherConnectionLeavesAnswersAndInput) {
  Session one;
  Session two = one.Another();
  one.Send("*ESE 4;*ESE?");
  one.SendRaw("*ES");
  two.Send("VOLT:NPLC 10;*RST");
  one.SendRaw("E?;:VOLT:NPLC?\n");
  EXPECT_EQ(one.Await(), "4");
  EXPECT_EQ(one.Await(), "4;+1.00000000E+00");
}

TEST(Device, ClearingTheStatusLeavesOtherConnectionsAnswers) {
  Session one;
  Session two = one.Another();
  one.Send("*ESE?");
  two.Send("*CLS");
  EXPECT_EQ(one.Read(), "0");
}

TEST(Device, ADeadlockDropsTheAnswersOfItsConnectionOnly) {
  Session one;
  Session two = one.Another();
  two.Send("*SRE?");
  for (std::size_t i = 0; i < ResponseQueue::MostMessages; ++i) one.Send("*ESE?");
  const std::string filler(Connection::LongestMessage - 1, ' ');
  for (std::size_t i = 0; i < Connection::MostInputBytes / Connection::LongestMessage + 1; ++i) one.Send(filler);
  EXPECT_FALSE(one.Read());
  EXPECT_EQ(two.Read(), "0");
  EXPECT_EQ(two.Error(), "-430,\"Query DEADLOCKED\"");
}

TEST(Device, AnAnswerThatAnotherConnectionReleasesIsAnEvent) {
  Session one;
  Session two = one.Another();
  one.Send("VOLT:NPLC 100;:INIT;*OPC?");
  EXPECT_EQ(one.Connection().NextEvent(), one.Now() + std::chrono::seconds(2));
  two.Send("ABOR");
  ASSERT_TRUE(one.Connection().NextEvent());
  EXPECT_LE(*one.Connection().NextEvent(), one.Now());
  EXPECT_EQ(one.Read(), "1");
  EXPECT_FALSE(one.Connection().NextEvent());
}

TEST(Device, CarriesOutAMessageThatComesByNoConnection) {
  Session session;
  EXPECT_EQ(session.TheDevice().CarryOut("*ESE 5;*ESE?"), "0,\"No error\"");
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Ask("*ESE?"), "5");
  EXPECT_EQ(session.TheDevice().CarryOut("*ESE X"), "-148,\"Character data not allowed\"");
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(DeviceRack, KeepsOneDeviceOfEachKind) {
  const TimePoint now{std::chrono::hours(1)};
  DeviceRack rack(1);
  rack.Connect("psu")->Write("VOLT 5\n", now);
  rack.Connect("dmm")->Write("*ESE 1\n", now);
  const auto psu = rack.Connect("PSU");
  psu->Write("VOLT?;*ESE?\n", now);
  EXPECT_EQ(psu->Read(now), "+5.00000000E+00;0\n");
  EXPECT_EQ(rack.Connect("toaster"), nullptr);
}

TEST(DeviceRack, AnotherRackHasOthers) {
  const TimePoint now{std::chrono::hours(1)};
  DeviceRack one(1);
  DeviceRack two(1);
  one.Connect("dmm")->Write("*ESE 1\n", now);
  const auto dmm = two.Connect("dmm");
  dmm->Write("*ESE?\n", now);
  EXPECT_EQ(dmm->Read(now), "0\n");
}

} // namespace
} // namespace portico::simulator
