#include "simulator/vxi11/Vxi11Client.h"

namespace portico::test {
namespace {

using namespace simulator;

TEST_F(Vxi11ServerTest, ALinkIsMadeToTheOnlyDevice) {
  EXPECT_EQ(client.Call(10, "\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\5inst0\0\0\0"s),
            "\0\0\0\0\0\0\0\1\0\0\x03\x03\0\1\0\0"s); // number 1, the abort channel at port 771, 65536 bytes
  EXPECT_EQ(client.Call(10, "\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\5INST0\0\0\0"s), "\0\0\0\0\0\0\0\2\0\0\x03\x03\0\1\0\0"s);
  EXPECT_EQ(client.Call(10, "\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\5inst1\0\0\0"s), "\0\0\0\3\0\0\0\0\0\0\0\0\0\0\0\0"s);
  EXPECT_EQ(client.Call(10, "\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\0"s), "\0\0\0\3\0\0\0\0\0\0\0\0\0\0\0\0"s);
}

TEST_F(Vxi11ServerTest, MoreLinksThanThereIsRoomForAreRefused) {
  for (std::size_t i = 0; i < 256; ++i) client.Link();
  EXPECT_EQ(client.Call(10, "\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\5inst0\0\0\0"s), "\0\0\0\x9\0\0\0\0\0\0\0\0\0\0\0\0"s);
  EXPECT_EQ(client.Call(23, "\0\0\0\7"s), Done);
  EXPECT_EQ(client.Link(), "\0\0\1\1"s);
}

TEST_F(Vxi11ServerTest, ACommandEndsAtItsMarkAndItsAnswerHasOne) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Write(link, "*ESE 3;*ES", 0), "\0\0\0\0\0\0\0\x0A"s);
  EXPECT_EQ(client.Write(link, "E?"), "\0\0\0\0\0\0\0\2"s);
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "3\n"));
}

TEST_F(Vxi11ServerTest, APieceBeyondTheLongestIsNotTaken) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Write(link, std::string(65537, ' ')), "\0\0\0\5\0\0\0\0"s);
  EXPECT_EQ(client.Write(link, std::string(65536, ' ')), "\0\0\0\0\0\1\0\0"s);
}

TEST_F(Vxi11ServerTest, AReadGetsWhatItAsksFor) {
  const std::string link = client.Link();
  client.Write(link, "SYST:VERS?");
  EXPECT_EQ(client.Read(link, 3), ReadResult(0, 1, "199"));
  EXPECT_EQ(client.Read(link, 0), ReadResult(0, 1, ""));
  EXPECT_EQ(client.Read(link, 4), ReadResult(0, 5, "9.0\n"));
  client.Write(link, "SYST:VERS?");
  EXPECT_EQ(client.Read(link, 5, '\x80', '9'), ReadResult(0, 2, "19"));
  EXPECT_EQ(client.Read(link, 1, '\x80', '9'), ReadResult(0, 3, "9"));
  EXPECT_EQ(client.Read(link, 5, '\x80', '\n'), ReadResult(0, 6, "9.0\n"));
}

TEST_F(Vxi11ServerTest, AReadWaitsForASlowAnswer) {
  const std::string link = client.Link();
  client.Write(link, "INIT;*OPC?");
  EXPECT_EQ(client.Read(link), "(waits)");
  const TimePoint before = world.now;
  EXPECT_EQ(client.Await(), ReadResult(0, 4, "1\n"));
  EXPECT_EQ(world.now - before, std::chrono::milliseconds(20));
}

TEST_F(Vxi11ServerTest, AReadWithNothingAskedEndsInItsTimeAndIsAnError) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Read(link), "(waits)");
  const TimePoint before = world.now;
  EXPECT_EQ(client.Await(), ReadResult(15, 0, ""));
  EXPECT_EQ(world.now - before, std::chrono::seconds(1));
  EXPECT_EQ(Error(), "-420,\"Query UNTERMINATED\"");
}

TEST_F(Vxi11ServerTest, AReadOfAnAnswerThatIsBeingMadeIsNoError) {
  const std::string link = client.Link();
  client.Write(link, "SENS:VOLT:NPLC 100;:INIT;*OPC?");
  EXPECT_EQ(client.Read(link), "(waits)");
  EXPECT_EQ(client.Await(), ReadResult(15, 0, ""));
  EXPECT_EQ(client.Read(link), "(waits)");
  EXPECT_EQ(client.Await(), ReadResult(0, 4, "1\n"));
  EXPECT_EQ(Error(), "0,\"No error\"");
}

TEST_F(Vxi11ServerTest, AnAnswerWithoutEndHasNoMark) {
  const std::string link = client.Link();
  client.Write(link, "SIM:ENDL?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 0, "7"));
  EXPECT_EQ(client.Read(link, 3), ReadResult(0, 1, "777"));
  EXPECT_EQ(client.Read(link, 16381), ReadResult(0, 1, std::string(16381, '7')));
  EXPECT_EQ(client.Read(link), "(waits)");
  EXPECT_EQ(client.Await(), ReadResult(0, 1, std::string(1024, '7')));
}

TEST_F(Vxi11ServerTest, ClearingDropsInputAndOutput) {
  const std::string link = client.Link();
  client.Write(link, "SYST:VERS?");
  client.Read(link, 3);
  client.Write(link, "*ESE?");
  client.Write(link, "*ESE 3;*ES", 0);
  EXPECT_EQ(client.Generic(15, link), Done);
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "0\n"));
}

TEST_F(Vxi11ServerTest, TheStatusByteTellsOfAnAnswerAndOfAReasonForService) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\0"s);
  client.Write(link, "*SRE 16;*ESE?");
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\x50"s);
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\x10"s);
  client.Read(link, 1);
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\x10"s);
  client.Read(link, 1);
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\0"s);
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\0\0\0\0\x50"s);
}

TEST_F(Vxi11ServerTest, ATriggerIsOne) {
  const std::string link = client.Link();
  client.Write(link, "TRIG:SOUR BUS;:INIT");
  EXPECT_EQ(client.Generic(14, link), Done);
  client.Write(link, "*OPC?");
  client.Read(link);
  EXPECT_EQ(client.Await(), ReadResult(0, 4, "1\n"));
  EXPECT_EQ(client.Generic(14, link), Done);
  EXPECT_EQ(Error(), "-211,\"Trigger ignored\"");
}

TEST_F(Vxi11ServerTest, ATriggerEndsTheMessageBeforeIt) {
  const std::string link = client.Link();
  client.Write(link, "*ESE 3", 0);
  EXPECT_EQ(client.Generic(14, link), Done);
  EXPECT_EQ(Error(), "-211,\"Trigger ignored\"");
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "3\n"));
}

TEST_F(Vxi11ServerTest, RemoteAndLocalAreTaken) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Generic(16, link), Done);
  EXPECT_EQ(client.Generic(17, link), Done);
}

TEST_F(Vxi11ServerTest, WhatThereIsNotIsNotSupported) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Call(20, link + "\0\0\0\1\0\0\0\1x\0\0\0"s), "\0\0\0\x8"s);
  EXPECT_EQ(client.Call(22, link + "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\1\0\0\0\1\0\0\0\0"s), "\0\0\0\x8\0\0\0\0"s);
}

TEST_F(Vxi11ServerTest, ALinkThatIsDestroyedIsInvalid) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Call(23, link), Done);
  EXPECT_EQ(client.Call(23, link), "\0\0\0\4"s);
  EXPECT_EQ(client.Write(link, "*ESE?"), "\0\0\0\4\0\0\0\0"s);
  EXPECT_EQ(client.Read(link), ReadResult(4, 0, ""));
  EXPECT_EQ(client.Generic(13, link), "\0\0\0\4\0\0\0\0"s);
}

TEST_F(Vxi11ServerTest, ALinkIsItsConnectionsOwn) {
  const std::string link = client.Link();
  Vxi11Client other(world);
  EXPECT_EQ(other.Write(link, "*ESE?"), "\0\0\0\4\0\0\0\0"s);
}

TEST_F(Vxi11ServerTest, LinksHaveTheirOwnAnswersAndOneDevice) {
  const std::string first = client.Link();
  const std::string second = client.Link();
  client.Write(first, "*ESE 3;*ESE?");
  client.Write(second, "*SRE?;*ESE?");
  EXPECT_EQ(client.Read(second), ReadResult(0, 4, "0;3\n"));
  EXPECT_EQ(client.Read(first), ReadResult(0, 4, "3\n"));
}

} // namespace
} // namespace portico::test
