#include "drivers/serial/SerialTransport.h"

#include "drivers/TransportCalls.h"
#include "simulator/connection/StreamConnection.h"
#include "simulator/devices/Device.h"
#include "support/ProcessRights.h"
#include "support/doubles/SerialInstrument.h"

#include <cstdlib>
#include <fstream>

namespace portico::test {
namespace {

using namespace drivers;

using Flow = SerialLine::FlowKind;

/// All bytes there are, with those in it that a terminal would take for itself.
std::string AllBytes() {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  return all;
}

void ExpectRefused(const SerialAddress& address, const std::string& detail) {
  SerialTransport transport(address);
  const DriverResult result = transport.Open(Soon());
  EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(result.Detail, detail);
}

TEST(SerialTransport, ASimulatedInstrumentAnswersOverTheLine) {
  const auto device = simulator::Device::Make("dmm", 1);
  SerialInstrument instrument(std::make_unique<simulator::StreamConnection>(*device));
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("SYST:VERS?\r\n", Soon()).Succeeded());
  EXPECT_EQ(ReadAll(transport, 7), "1999.0\n");
}

TEST(SerialTransport, EveryByteCrossesUnchangedBothWays) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write(AllBytes(), Soon()).Succeeded());
  instrument.WaitForReceived("\xFE\xFF");
  EXPECT_EQ(instrument.Received(), AllBytes());
  instrument.Send(AllBytes());
  EXPECT_EQ(ReadAll(transport, 256), AllBytes());
  EXPECT_EQ(instrument.Received(), AllBytes()) << "nothing comes back as an echo";
}

TEST(SerialTransport, RunsAsItsNameSays) {
  SerialInstrument instrument(InstrumentScript{});
  const std::vector<SerialLine> lines = {{.Speed = 115200, .StopBits = 2},
                                         {.Speed = 300, .Flow = Flow::RtsCts},
                                         {.Speed = 9600, .Flow = Flow::XonXoff},
                                         {}};
  for (const SerialLine& line : lines) {
    SerialTransport transport({instrument.Path(), line});
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_EQ(instrument.Line(), line) << line.Speed;
  }
}

TEST(SerialTransport, ThePortDoesNotBecomeTheProgramsTerminal) {
  const SerialInstrument deaf;
  const auto openAndLook = [&deaf] {
    LeadASession();
    SerialTransport transport({deaf.Path()});
    const bool opened = transport.Open(Soon()).Succeeded();
    std::_Exit(opened && !std::ifstream("/dev/tty").is_open() ? 0 : 1);
  };
  EXPECT_EXIT(openAndLook(), testing::ExitedWithCode(0), "");
}

TEST(SerialTransport, OpensAfreshAfterClosing) {
  SerialInstrument instrument({{"Q?", Reaction::Answer("1\n")}});
  SerialTransport transport({instrument.Path()});
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
    EXPECT_EQ(ReadAll(transport, 2), "1\n");
    transport.Close();
  }
  transport.Close();
}

TEST(SerialTransport, WhatCameBeforeTheOpeningIsDropped) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Send("stale\n");
  char first = 0;
  EXPECT_EQ(transport.Read(&first, 1, Soon()).Count, 1u);
  transport.Close();
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Send("fresh\n");
  EXPECT_EQ(ReadAll(transport, 6), "fresh\n");
}

TEST(SerialTransport, ACommandBeforeTheCloseStillGoesOut) {
  SerialInstrument instrument(InstrumentScript{});
  {
    SerialTransport transport({instrument.Path()});
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("*RST\r\n", Soon()).Succeeded());
  }
  instrument.WaitForReceived("*RST\r\n");
  EXPECT_EQ(instrument.Received(), "*RST\r\n");
}

TEST(SerialTransport, AnInstrumentHoldsUpWhatIsWrittenIfTheLineLetsIt) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path(), {.Flow = Flow::XonXoff}});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Send("\x13held\n");
  EXPECT_EQ(ReadAll(transport, 5), "held\n");
  const DriverResult held = transport.Write("A\n", VerySoon());
  EXPECT_EQ(held.Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(held.Detail, instrument.Path());
  instrument.Send("\x11on\n");
  EXPECT_EQ(ReadAll(transport, 3), "on\n");
  EXPECT_TRUE(transport.Write("B\n", Soon()).Succeeded());
  instrument.WaitForReceived("B\n");
  EXPECT_EQ(instrument.Received(), "B\n");
}

TEST(SerialTransport, AReadThatNothingComesForTimesOut) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  char byte = '~';
  const Received received = transport.Read(&byte, 1, VerySoon());
  EXPECT_EQ(received.Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(received.Result.Detail, instrument.Path());
  EXPECT_EQ(received.Count, 0u);
}

TEST(SerialTransport, NothingIsReadBehindTheDeadline) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Send("12");
  char byte = '~';
  EXPECT_EQ(transport.Read(&byte, 1, Soon()).Count, 1u);
  EXPECT_EQ(transport.Read(&byte, 1, TimePoint()).Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(transport.Read(&byte, 1, Soon()).Count, 1u);
  EXPECT_EQ(byte, '2');
}

TEST(SerialTransport, AWriteThatNobodyTakesTimesOutAndTellsBeforeItWaits) {
  const SerialInstrument deaf;
  SerialTransport transport({deaf.Path()});
  int waits = 0;
  transport.OnWait([&] { ++waits; });
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_EQ(waits, 0);
  EXPECT_EQ(transport.Write(std::string(1'000'000, 'x'), VerySoon()).Status, DriverStatus::WriteTimeout);
  EXPECT_GE(waits, 1);
}

TEST(SerialTransport, TellsBeforeARead) {
  SerialInstrument instrument({{"Q?", Reaction::Answer("1\n")}});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
  int waits = 0;
  transport.OnWait([&] { ++waits; });
  EXPECT_EQ(ReadAll(transport, 2), "1\n");
  EXPECT_GE(waits, 1);
}

TEST(SerialTransport, ALongTextGoesOutWhole) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  const std::string text = std::string(500'000, 'x') + "end\n";
  EXPECT_TRUE(transport.Write(text, Soon()).Succeeded());
  instrument.WaitForReceived("end\n");
  EXPECT_TRUE(instrument.Received() == text);
}

TEST(SerialTransport, APortInUseIsSaidToBe) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport first({instrument.Path()});
  ASSERT_TRUE(first.Open(Soon()).Succeeded());
  const std::string inUse = instrument.Path() + ", it is in use; close it in the program or session that has it open";
  ExpectRefused({instrument.Path()}, inUse);
  ExpectRefused({instrument.Path()}, inUse);
  first.Close();
  EXPECT_TRUE(SerialTransport({instrument.Path()}).Open(Soon()).Succeeded());
}

TEST(SerialTransport, APortInUseIsClosedToProgramsThatAskForNoLock) {
  SerialInstrument instrument(InstrumentScript{});
  instrument.Permit(true);
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  const std::string inUse = instrument.Path() + ", it is in use; close it in the program or session that has it open";
  ExpectRefused({instrument.Path()}, inUse);
  const OrdinaryUser user;
  EXPECT_FALSE(std::ifstream(instrument.Path()).is_open()) << "the one that was refused has let others in";
  ExpectRefused({instrument.Path()}, inUse);
  transport.Close();
  EXPECT_TRUE(std::ifstream(instrument.Path()).is_open());
}

TEST(SerialTransport, PermissionDeniedNamesTheGroup) {
  SerialInstrument instrument(InstrumentScript{});
  instrument.Permit(false);
  const OrdinaryUser user;
  ExpectRefused({instrument.Path()},
                instrument.Path() + ", permission denied; have your user added to the group dialout, and log in again");
}

TEST(SerialTransport, WhatIsNoSerialPortIsRefused) {
  ExpectRefused({"/dev/no-such-port"},
                "/dev/no-such-port, there is no such serial port; check its name and that it is plugged in");
  ExpectRefused({"/dev/null/1"}, "/dev/null/1, there is no such serial port; check its name and that it is plugged in");
  ExpectRefused({"300"}, "/dev/ttyS299, there is no such serial port; check its name and that it is plugged in");
  ExpectRefused({"/dev/null"}, "/dev/null, it is no serial port; name one, as in ASRL/dev/ttyUSB0::INSTR");
}

TEST(SerialTransport, ASpeedThatNoPortHasIsRefusedAndThePortLetGo) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport refused({instrument.Path(), {.Speed = 9601}});
  const DriverResult result = refused.Open(Soon());
  EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(result.Detail, instrument.Path() + ", no serial port runs at 9601 bits per second; give the instrument's "
                                               "speed, as in 9600 or 115200");
  EXPECT_TRUE(SerialTransport({instrument.Path()}).Open(Soon()).Succeeded());
}

TEST(SerialTransport, SettingsThatThePortDoesNotTakeAreRefused) {
  SerialInstrument instrument(InstrumentScript{});
  // A pseudo-terminal knows eight bits without parity only.
  ExpectRefused({instrument.Path(), {.DataBits = 7, .Parity = SerialLine::ParityKind::Even}},
                instrument.Path() + ", the port does not take these line settings; choose others, as in 9600,8N1");
}

TEST(SerialTransport, APortThatWasPulledOutIsLost) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Unplug();
  char byte = '~';
  const Received gone = transport.Read(&byte, 1, Soon());
  EXPECT_EQ(gone.Result.Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(gone.Result.Detail, instrument.Path() + ", the port is gone; plug it in again");
  EXPECT_EQ(transport.Write("Q?\n", Soon()).Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(transport.Open(Soon()).Detail,
            instrument.Path() + ", there is no such serial port; check its name and that it is plugged in");
}

TEST(SerialTransport, TheOrderToGiveUpEndsAReadAWriteAndClearing) {
  const SerialInstrument deaf;
  system::Cancellation cancellation;
  SerialTransport transport({deaf.Path()}, &cancellation);
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.OnWait([&] { cancellation.Request(); });
  char byte = '~';
  const Received received = transport.Read(&byte, 1, In(std::chrono::hours(1)));
  EXPECT_EQ(received.Result.Status, DriverStatus::Cancelled);
  EXPECT_EQ(received.Result.Detail, deaf.Path());
  EXPECT_EQ(transport.Write(std::string(1'000'000, 'x'), In(std::chrono::hours(1))).Status, DriverStatus::Cancelled);
  EXPECT_FALSE(transport.Clear(std::chrono::hours(1)));
}

TEST(SerialTransport, ClearingDropsWhatComesUntilTheLineIsSilent) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  int pieces = 0;
  transport.OnWait([&] {
    if (++pieces <= 3) instrument.Send("late\n");
  });
  EXPECT_TRUE(transport.Clear(std::chrono::milliseconds(200)));
  EXPECT_EQ(pieces, 4) << "it has listened once more behind each";
  instrument.Send("fresh\n");
  EXPECT_EQ(ReadAll(transport, 6), "fresh\n");
}

TEST(SerialTransport, ClearingEndsThoughTheLineIsNeverSilent) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.OnWait([&] { instrument.Send("noise\n"); });
  EXPECT_TRUE(transport.Clear(std::chrono::milliseconds(50)));
}

TEST(SerialTransport, APortThatIsGoneCannotBeCleared) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  instrument.Unplug();
  EXPECT_FALSE(transport.Clear(std::chrono::milliseconds(50)));
}

TEST(SerialTransport, APortPulledOutEndsAReadThatIsUnderWay) {
  SerialInstrument instrument(InstrumentScript{});
  SerialTransport transport({instrument.Path()});
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.OnWait([&] { instrument.Unplug(); });
  char byte = '~';
  EXPECT_EQ(transport.Read(&byte, 1, Soon()).Result.Status, DriverStatus::ConnectionLost);
}

} // namespace
} // namespace portico::test
