#include "simulator/hislip/HislipServer.h"

#include "simulator/hislip/HislipClients.h"

namespace portico::simulator {
namespace {

class HislipServerTest : public HislipClients {
protected:
  /// What a first message gets.
  std::string First(std::string_view bytes) {
    HislipWire wire = Connect();
    std::string answer = wire.Ask(bytes);
    EXPECT_TRUE(wire.Finished());
    return answer;
  }
};

TEST_F(HislipServerTest, TwoConnectionsMakeASession) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), Answer("FFFFFF00", "0\n"));
  EXPECT_FALSE(client.Synchronous.Finished());
  EXPECT_FALSE(client.Asynchronous.Finished());
}

TEST_F(HislipServerTest, OfAHigherVersionTheLowerOneIsSpoken) {
  HislipWire wire = Connect();
  EXPECT_EQ(wire.Ask(Bytes("4853 00 00 02005858 0000000000000007") + "hislip0"),
            Bytes("4853 01 00 01000001 0000000000000000"));
}

TEST_F(HislipServerTest, SessionsHaveTheirOwnAnswers) {
  HislipWires first = Open();
  HislipWires second = Open("0002");
  first.Synchronous.Send(Command("FFFFFF00", "SIM:ECHO? 1\n"));
  second.Synchronous.Send(Command("FFFFFF00", "SIM:ECHO? 2\n"));
  EXPECT_EQ(second.Synchronous.Collected(), Answer("FFFFFF00", "2\n"));
  EXPECT_EQ(first.Synchronous.Collected(), Answer("FFFFFF00", "1\n"));
}

TEST_F(HislipServerTest, AnotherDeviceThereIsNot) {
  EXPECT_EQ(First(Bytes("4853 00 00 01005858 0000000000000007") + "hislip1"),
            Bytes("4853 02 03 00000000 000000000000001E") + "the one device here is hislip0");
}

TEST_F(HislipServerTest, AVersionBelowTheFirstIsRefused) {
  EXPECT_EQ(First(Bytes("4853 00 00 00FF5858 0000000000000007") + "hislip0"),
            Bytes("4853 02 03 00000000 000000000000001E") + "the lowest version here is 1.0");
}

TEST_F(HislipServerTest, ASecondConnectionNeedsASessionThatWaitsForOne) {
  const std::string refusal = Bytes("4853 02 03 00000000 0000000000000024") + "no session waits for this connection";
  EXPECT_EQ(First(Bytes("4853 11 00 00000001 0000000000000000")), refusal);
  const HislipWires client = Open();
  EXPECT_EQ(First(Bytes("4853 11 00 00000001 0000000000000000")), refusal);
  EXPECT_EQ(First(Bytes("4853 11 00 00010001 0000000000000000")), refusal);
  EXPECT_FALSE(client.Synchronous.Finished());
  HislipWire waiting = Connect();
  waiting.Ask(Bytes("4853 00 00 01005858 0000000000000007") + "hislip0");
  EXPECT_EQ(First(Bytes("4853 11 00 00010002 0000000000000000")), refusal);
}

TEST_F(HislipServerTest, NothingButAnInitializationBeginsAConnection) {
  EXPECT_EQ(First(Command("FFFFFF00", "*IDN?\n")).substr(0, 8), Bytes("4853 02 02 00000000"));
}

TEST_F(HislipServerTest, BeforeTheSecondConnectionNothingIsSaid) {
  HislipWire wire = Connect();
  wire.Ask(Bytes("4853 00 00 01005858 0000000000000007") + "hislip0");
  EXPECT_EQ(wire.Ask(Command("FFFFFF00", "*IDN?\n")).substr(0, 8), Bytes("4853 02 02 00000000"));
  EXPECT_TRUE(wire.Finished());
}

TEST_F(HislipServerTest, ASessionBeginsOnce) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 00 00 01005858 0000000000000007") + "hislip0").substr(0, 8),
            Bytes("4853 02 03 00000000"));
  client = Open("0002");
  EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 11 00 00000002 0000000000000000")).substr(0, 8),
            Bytes("4853 02 03 00000000"));
}

TEST_F(HislipServerTest, AMaximumSizeWithoutRoomIsRefused) {
  for (const char* size : {"0000000000000008 0000000000000010", "0000000000000004 00010000"}) {
    HislipWires client = {Connect(), Connect()};
    const std::string response = client.Synchronous.Ask(Bytes("4853 00 00 01005858 0000000000000007") + "hislip0");
    client.Asynchronous.Ask(Bytes("4853 11 00 0000") + response.substr(6, 2) + Bytes("0000000000000000"));
    EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 0F 00 00000000") + Bytes(size)).substr(0, 8),
              Bytes("4853 02 03 00000000"));
  }
}

TEST_F(HislipServerTest, MoreThanSixtyFourClientsAreTooMany) {
  std::vector<HislipWire> wires;
  const std::string initialize = Bytes("4853 00 00 01005858 0000000000000007") + "hislip0";
  for (int i = 0; i < 64; ++i) {
    wires.push_back(Connect());
    EXPECT_EQ(wires.back().Ask(initialize).substr(0, 3), Bytes("4853 01"));
  }
  EXPECT_EQ(First(initialize), Bytes("4853 02 04 00000000 0000000000000000"));
  wires.front().Close();
  EXPECT_EQ(Connect().Ask(initialize).substr(0, 3), Bytes("4853 01"));
}

TEST_F(HislipServerTest, AWrongHeaderIsFatalForBothConnections) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask("stray bytes of whatever kind").substr(0, 8), Bytes("4853 02 01 00000000"));
  EXPECT_TRUE(client.Synchronous.Finished());
  EXPECT_TRUE(client.Asynchronous.Due());
  EXPECT_TRUE(client.Asynchronous.Finished());
}

TEST_F(HislipServerTest, ASessionIsOverWhenEitherConnectionIs) {
  HislipWires client = Open();
  client.Asynchronous.Close();
  EXPECT_TRUE(client.Synchronous.Due());
  EXPECT_TRUE(client.Synchronous.Finished());
  client = Open("0002");
  client.Synchronous.Close();
  EXPECT_TRUE(client.Asynchronous.Finished());
}

TEST_F(HislipServerTest, AClientsFatalErrorEndsTheSession) {
  HislipWires client = Open();
  EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 02 00 00000000 0000000000000000")), "");
  EXPECT_TRUE(client.Synchronous.Finished());
}

TEST_F(HislipServerTest, WhatIsNotKnownIsComplainedOfAndPassedOver) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 0D 00 00000000 0000000000000000")).substr(0, 8),
            Bytes("4853 03 01 00000000"));
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 80 00 00000000 0000000000000002 4142")).substr(0, 8),
            Bytes("4853 03 03 00000000"));
  EXPECT_EQ(client.Asynchronous.Ask(Command("FFFFFF00", "*ESE?\n")).substr(0, 8), Bytes("4853 03 01 00000000"));
  EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 04 02 00000000 0000000000000000")).substr(0, 8),
            Bytes("4853 03 02 00000000"));
  EXPECT_EQ(client.Asynchronous.Ask(Bytes("4853 0A 07 FFFFFEFE 0000000000000000")).substr(0, 8),
            Bytes("4853 03 02 00000000"));
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF00", "*ESE 7\n", "02")).substr(0, 8), Bytes("4853 03 02 00000000"));
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 08 00 00000000 0000000000000000")).substr(0, 8),
            Bytes("4853 03 00 00000000"));
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 03 00 00000000 0000000000000000")), "");
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), Answer("FFFFFF00", "0\n"));
}

TEST_F(HislipServerTest, WhatIsComplainedOfIsPassedOverToItsEnd) {
  HislipWires client = Open();
  const std::string refused = Command("FFFFFF00", "*ESE 7\n", "02");
  EXPECT_EQ(client.Synchronous.Ask(refused.substr(0, 18)).substr(0, 8), Bytes("4853 03 02 00000000"));
  EXPECT_EQ(client.Synchronous.Ask(refused.substr(18, 2)), "");
  EXPECT_EQ(client.Synchronous.Ask(refused.substr(20)), "");
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), Answer("FFFFFF00", "0\n"));
}

TEST_F(HislipServerTest, AMessageThatIsTooLargeIsComplainedOfAndPassedOver) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask(Bytes("4853 07 00 FFFFFF00 0000000000100001")).substr(0, 4), Bytes("4853 03 04"));
  const std::string piece(65536, '\n');
  for (int i = 0; i < 16; ++i) EXPECT_EQ(client.Synchronous.Ask(piece), "");
  client.Synchronous.Send("\n");
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF02", "*ESE?\n")), Answer("FFFFFF02", "0\n"));
}

TEST_F(HislipServerTest, TheCommandThatClosesClosesBothConnections) {
  HislipWires client = Open();
  EXPECT_EQ(client.Synchronous.Ask(Command("FFFFFF00", "SIM:CLOS\n")), "");
  EXPECT_TRUE(client.Synchronous.Finished());
  client.Synchronous.Close();
  EXPECT_TRUE(client.Asynchronous.Finished());
}

TEST_F(HislipServerTest, WhoHasEndedItsSideStillGetsItsAnswers) {
  HislipWires client = Open();
  client.Synchronous.Send(Command("FFFFFF00", "*ESE?\n"));
  EXPECT_FALSE(client.Synchronous.Finished(true));
  EXPECT_EQ(client.Synchronous.Collected(), Answer("FFFFFF00", "0\n"));
  EXPECT_TRUE(client.Synchronous.Finished(true));
}

} // namespace
} // namespace portico::simulator
