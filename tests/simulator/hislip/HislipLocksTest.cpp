#include "simulator/hislip/HislipLocks.h"

#include "simulator/hislip/HislipClients.h"

namespace portico::simulator {
namespace {

class HislipLocksTest : public HislipClients {
protected:
  static std::string Request(std::string_view timeout, std::string_view key = "") {
    return Bytes("4853 04 01") + Bytes(timeout) + Bytes("00000000000000") + static_cast<char>(key.size()) +
           std::string(key);
  }
  static std::string Release(std::string_view id) {
    return Bytes("4853 04 00") + Bytes(id) + Bytes("0000000000000000");
  }
  static std::string Response(std::string_view control) {
    return Bytes("4853 05") + Bytes(control) + Bytes("00000000 0000000000000000");
  }
  static std::string Info() { return Bytes("4853 18 00 00000000 0000000000000000"); }
  static std::string InfoResponse(std::string_view exclusive, std::string_view holders) {
    return Bytes("4853 19") + Bytes(exclusive) + Bytes(holders) + Bytes("0000000000000000");
  }

  HislipWires m_first = Open();
  HislipWires m_second = Open("0002");
};

TEST_F(HislipLocksTest, AnExclusiveLockKeepsOthersOut) {
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000000")), Response("00"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000000", "key")), Response("00"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Info()), InfoResponse("01", "00000001"));
  EXPECT_EQ(m_second.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), "");
  EXPECT_FALSE(m_second.Synchronous.Due());
  EXPECT_EQ(m_first.Synchronous.Ask(Command("FFFFFF00", "*ESE 3\n")), "");
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFF00")), Response("01"));
  EXPECT_TRUE(m_second.Synchronous.Due());
  EXPECT_EQ(m_second.Synchronous.Collected(), Answer("FFFFFF00", "3\n"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Info()), InfoResponse("00", "00000000"));
}

TEST_F(HislipLocksTest, ALockMayBeWaitedFor) {
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000064")), "");
  EXPECT_EQ(m_second.Asynchronous.NextEvent(), m_now + milliseconds(100));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000000")), Response("03"));
  m_now += milliseconds(99);
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("01"));
  EXPECT_TRUE(m_second.Asynchronous.Due());
  EXPECT_EQ(m_second.Asynchronous.Collected(), Response("01"));
}

TEST_F(HislipLocksTest, ALockThatDoesNotComeInTimeIsNone) {
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000064")), "");
  m_now += milliseconds(100);
  EXPECT_EQ(m_second.Asynchronous.Collected(), Response("00"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Collected(), "");
}

TEST_F(HislipLocksTest, ALockIsSharedByThoseWhoKnowTheKey) {
  HislipWires third = Open("0003");
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000", "key")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("00000000", "key")), Response("01"));
  EXPECT_EQ(third.Asynchronous.Ask(Request("00000000", "other")), Response("00"));
  EXPECT_EQ(third.Asynchronous.Ask(Request("00000000")), Response("00"));
  EXPECT_EQ(third.Asynchronous.Ask(Info()), InfoResponse("00", "00000002"));
  EXPECT_EQ(m_second.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), Answer("FFFFFF00", "0\n"));
  EXPECT_EQ(third.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), "");
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("02"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Release("FFFFFF00")), Response("02"));
  EXPECT_EQ(third.Asynchronous.Ask(Request("00000000", "other")), Response("01"));
}

TEST_F(HislipLocksTest, WhoSharesALockMayHaveTheDeviceForItself) {
  m_first.Asynchronous.Ask(Request("00000000", "key"));
  m_second.Asynchronous.Ask(Request("00000000", "key"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("01"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Info()), InfoResponse("01", "00000002"));
  EXPECT_EQ(m_second.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n")), "");
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("01"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("02"));
}

TEST_F(HislipLocksTest, ALockIsTakenAndGivenBackOnce) {
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("01"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("00000000")), Response("03"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("01"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFEFE")), Response("03"));
}

TEST_F(HislipLocksTest, AReleaseWaitsForTheMessageThatItNames) {
  m_first.Asynchronous.Ask(Request("00000000"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Release("FFFFFF00")), "");
  m_first.Synchronous.Ask(Command("FFFFFF00", "*ESE 3\n"));
  EXPECT_EQ(m_first.Asynchronous.Collected(), Response("01"));
}

TEST_F(HislipLocksTest, ARequestDoesNotTellThatAnAnswerWasTaken) {
  m_first.Synchronous.Ask(Command("FFFFFF00", "*ESE?\n"));
  m_first.Asynchronous.Ask(Request("00000000"));
  EXPECT_EQ(m_first.Synchronous.Ask(Command("FFFFFF02", "SYST:ERR?\n", "01")), Answer("FFFFFF02", "0,\"No error\"\n"));
}

TEST_F(HislipLocksTest, WhoGoesLeavesNoLockBehind) {
  m_first.Asynchronous.Ask(Request("00000000", "key"));
  m_first.Asynchronous.Ask(Request("00000000"));
  EXPECT_EQ(m_second.Asynchronous.Ask(Request("000003E8")), "");
  m_first.Synchronous.Close();
  EXPECT_EQ(m_second.Asynchronous.Collected(), Response("01"));
}

TEST_F(HislipLocksTest, LocksMayBeRefusedToAll) {
  m_first.Synchronous.Ask(Command("FFFFFF00", "SIM:REF ON\n"));
  EXPECT_EQ(m_first.Asynchronous.Ask(Request("000003E8")), Response("00"));
}

} // namespace
} // namespace portico::simulator
