#include "wire/HislipClient.h"

#include "wire/HislipPeer.h"

namespace portico::wire {
namespace {

class HislipOpenTest : public HislipPeer {
protected:
  /// Opens as far as the response to Initialize, which is `response`.
  void Begin(std::string_view response) {
    Client.Open();
    SentSynchronous();
    Receive(Bytes(response));
  }

  /// Opens an instrument that prefers overlapped mode, as far as the device clear.
  void BeginOverlapped() {
    Begin("4853 01 01 01000007 0000000000000000");
    Client.SecondConnectionMade();
    SentAsynchronous();
    Client.ReceiveAsynchronous(Bytes("4853 12 00 00005858 0000000000000000"));
    SentAsynchronous();
    Client.ReceiveAsynchronous(Bytes("4853 10 00 00000000 0000000000000008 0000000000001000"));
  }
};

TEST_F(HislipOpenTest, OpensOnTwoConnections) {
  Client.Open();
  EXPECT_EQ(SentSynchronous(), Bytes("4853 00 00 01005456 0000000000000007") + "hislip0");
  EXPECT_EQ(SentAsynchronous(), "");
  EXPECT_FALSE(Client.AwaitsSecondConnection());
  Receive(Bytes("4853 01 00 01001234 0000000000000000"));
  EXPECT_TRUE(Client.AwaitsSecondConnection());
  Client.SecondConnectionMade();
  EXPECT_FALSE(Client.AwaitsSecondConnection());
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 11 00 00001234 0000000000000000"));
  Client.ReceiveAsynchronous(Bytes("4853 12 00 00005858 0000000000000000"));
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 0F 00 00000000 0000000000000008 0000000000100000"));
  EXPECT_FALSE(Client.Ready());
  Client.ReceiveAsynchronous(Bytes("4853 10 00 00000000 0000000000000008 0000000000001000"));
  EXPECT_TRUE(Client.Ready());
  EXPECT_EQ(SentSynchronous(), "");
  EXPECT_EQ(SentAsynchronous(), "");
  EXPECT_EQ(Client.Failure(), "");
}

TEST_F(HislipOpenTest, AServerOfVersion2WithoutEncryptionOpens) {
  Begin("4853 01 00 02000007 0000000000000000");
  EXPECT_TRUE(Client.AwaitsSecondConnection());
}

TEST_F(HislipOpenTest, AServerThatDemandsEncryptionIsRefused) {
  for (const char* response : {"4853 01 02 02000007 0000000000000000", "4853 01 04 02000007 0000000000000000",
                               "4853 01 07 02000007 0000000000000000"}) {
    SCOPED_TRACE(response);
    Begin(response);
    EXPECT_EQ(Client.Failure(), "encrypted connection required, not supported; switch encryption off in its settings");
    EXPECT_FALSE(Client.AwaitsSecondConnection());
  }
}

TEST_F(HislipOpenTest, OverlappedModeIsLeftByADeviceClear) {
  BeginOverlapped();
  EXPECT_FALSE(Client.Ready());
  EXPECT_EQ(SentAsynchronous(), Bytes("4853 13 00 00000000 0000000000000000"));
  EXPECT_EQ(SentSynchronous(), "");
  Client.ReceiveAsynchronous(Bytes("4853 17 01 00000000 0000000000000000"));
  EXPECT_EQ(SentSynchronous(), Bytes("4853 08 00 00000000 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  Receive(Bytes("4853 09 00 00000000 0000000000000000"));
  EXPECT_TRUE(Client.Ready());
}

TEST_F(HislipOpenTest, WhoStaysInOverlappedModeIsRefused) {
  BeginOverlapped();
  Client.ReceiveAsynchronous(Bytes("4853 17 01 00000000 0000000000000000"));
  Receive(Bytes("4853 09 01 00000000 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  EXPECT_EQ(Client.Failure(), "it stays in overlapped mode, which is not supported; set it to synchronized mode");
}

TEST_F(HislipOpenTest, AFatalErrorIsToldInItsWords) {
  Begin("4853 02 04 00000000 0000000000000009 74727920 6C61746572");
  EXPECT_EQ(Client.Failure(), "fatal error 4, too many clients (try later); close it in another program");
  Begin("4853 02 03 00000000 0000000000000000");
  EXPECT_EQ(Client.Failure(), "fatal error 3, bad initialization sequence; check the device name hislip0");
  Begin("4853 02 00 00000000 0000000000000000");
  EXPECT_EQ(Client.Failure(), "fatal error 0, unidentified error; check the device name hislip0");
  Begin("4853 02 05 00000000 0000000000000000");
  EXPECT_EQ(Client.Failure(), "fatal error 5, secure connection failed; switch encryption off in its settings");
}

TEST_F(HislipOpenTest, AnOlderVersionIsRefused) {
  Begin("4853 01 00 00FF0007 0000000000000000");
  EXPECT_EQ(Client.Failure(),
            "it speaks HiSLIP 0.255, which is not supported; try its raw socket, as in TCPIP::HOST::5025::SOCKET");
  EXPECT_FALSE(Client.AwaitsSecondConnection());
}

TEST_F(HislipOpenTest, ADeviceNameThatIsTooLongIsRefused) {
  Client = HislipClient(std::string(256, 'x'));
  Client.Open();
  EXPECT_EQ(Client.Failure(), "");
  EXPECT_EQ(SentSynchronous().size(), 272u);
  Client = HislipClient(std::string(257, 'x'));
  Client.Open();
  EXPECT_EQ(Client.Failure(), "the device name has 257 bytes; HiSLIP takes 256 at most");
  EXPECT_EQ(SentSynchronous(), "");
}

TEST_F(HislipOpenTest, AnErrorEndsTheOpening) {
  Begin("4853 03 05 00000000 0000000000000000");
  EXPECT_EQ(Client.Failure(), "error 5, authentication failed; try again, or switch the instrument off and on");
}

TEST_F(HislipOpenTest, AFatalErrorOnTheSecondConnectionEndsTheOpening) {
  Begin("4853 01 00 01000007 0000000000000000");
  Client.SecondConnectionMade();
  Client.ReceiveAsynchronous(Bytes("4853 02 01 00000000 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "fatal error 1, bad message header; try again, or switch the instrument off and on");
}

TEST_F(HislipOpenTest, AnotherMessageInPlaceOfTheResponseEndsTheOpening) {
  Begin("4853 07 00 FFFFFF00 0000000000000000");
  EXPECT_EQ(Client.Failure(),
            "message type 7 came instead of the response; try again, or switch the instrument off and on");
}

TEST_F(HislipOpenTest, WhatIsNotHislipEndsTheOpening) {
  Begin("5353482D322E302D 4F70656E5353485F 0D0A");
  EXPECT_EQ(Client.Failure(), "the message header is none of HiSLIP; check that the port is that of HiSLIP");
  EXPECT_EQ(SentSynchronous(), "");
}

TEST_F(HislipOpenTest, AMaximumSizeWithoutRoomIsRefused) {
  for (const char* response :
       {"4853 10 00 00000000 0000000000000008 0000000000000010",
        "4853 10 00 00000000 0000000000000008 0000000000000000", "4853 10 00 00000000 0000000000000004 00001000"}) {
    SCOPED_TRACE(response);
    Begin("4853 01 00 01000007 0000000000000000");
    Client.SecondConnectionMade();
    Client.ReceiveAsynchronous(Bytes("4853 12 00 00005858 0000000000000000"));
    Client.ReceiveAsynchronous(Bytes(response));
    EXPECT_EQ(Client.Failure(),
              "the maximum message size leaves no room for a command; try again, or switch the instrument off and on");
  }
}

TEST_F(HislipOpenTest, ResponsesThatWereNotAskedForChangeNothing) {
  Begin("4853 01 00 01000007 0000000000000000");
  Client.SecondConnectionMade();
  SentAsynchronous();
  Client.ReceiveAsynchronous(Bytes("4853 10 00 00000000 0000000000000008 0000000000001000"));
  Client.ReceiveAsynchronous(Bytes("4853 17 00 00000000 0000000000000000"));
  Client.ReceiveAsynchronous(Bytes("4853 0B 00 00000000 0000000000000000"));
  EXPECT_FALSE(Client.Ready());
  EXPECT_EQ(SentSynchronous(), "");
  EXPECT_EQ(SentAsynchronous(), "");
}

TEST_F(HislipOpenTest, OpensAgainAfterAFailure) {
  Open();
  Ask("*IDN?\n");
  Receive(Bytes("4853 02 00 00000000 0000000000000000"));
  EXPECT_EQ(Client.Failure(), "fatal error 0, unidentified error");
  Open();
  EXPECT_EQ(Client.Failure(), "");
  Client.Write("A");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF00 0000000000000001 41"));
}

TEST_F(HislipOpenTest, OfWhatWasBeforeNothingIsLeft) {
  Open();
  Ask("A?");
  Client.AskForLocks();
  Receive(Answer("FFFFFF00") + Bytes("4853 0D 00 FFFFFF00 0000000000000000"));
  Open();
  Receive(Answer("FFFFFF00"));
  EXPECT_EQ(Answers, Strings({"12"}));
  Client.ReceiveAsynchronous(Bytes("4853 19 01 00000001 0000000000000000"));
  EXPECT_FALSE(Client.LockedByOthers());
  Client.Write("A");
  EXPECT_EQ(SentSynchronous(), Bytes("4853 07 00 FFFFFF00 0000000000000001 41"));
  Client.Write("B");
  Client.Open();
  EXPECT_FALSE(Client.Writing());
  EXPECT_EQ(SentSynchronous(), Bytes("4853 00 00 01005456 0000000000000007") + "hislip0");
}

} // namespace
} // namespace portico::wire
