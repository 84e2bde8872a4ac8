#include "simulator/vxi11/Vxi11Client.h"

namespace portico::test {
namespace {

using namespace simulator;

/// The arguments of a lock behind the link: with a second to wait, or without.
const std::string Waiting = "\0\0\0\1\0\0\x03\xE8"s;
const std::string AtOnce = "\0\0\0\0\0\0\x03\xE8"s;

const std::string Locked = "\0\0\0\x0B"s;

class Vxi11LockTest : public Vxi11ServerTest {
protected:
  Vxi11Client other{world};
  const std::string link = client.Link();
  const std::string otherLink = other.Link();
};

TEST_F(Vxi11LockTest, ALockKeepsTheOthersOut) {
  EXPECT_EQ(client.Call(18, link + AtOnce), Done);
  EXPECT_EQ(other.Write(otherLink, "*ESE 3"), Locked + "\0\0\0\0"s);
  EXPECT_EQ(other.Read(otherLink), ReadResult(11, 0, ""));
  for (const char procedure : "\x0E\x0F\x10\x11"s) EXPECT_EQ(other.Generic(procedure, otherLink), Locked);
  EXPECT_EQ(other.Generic(13, otherLink), Locked + "\0\0\0\0"s);
  EXPECT_EQ(other.Call(18, otherLink + AtOnce), Locked);
  EXPECT_EQ(other.Call(19, otherLink), "\0\0\0\x0C"s);
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "0\n"));
}

TEST_F(Vxi11LockTest, WhoHasTheLockMayAskForItAgainAndGiveItBackOnce) {
  EXPECT_EQ(client.Call(19, link), "\0\0\0\x0C"s);
  EXPECT_EQ(client.Call(18, link + AtOnce), Done);
  EXPECT_EQ(client.Call(18, link + AtOnce), Done);
  EXPECT_EQ(client.Call(19, link), Done);
  EXPECT_EQ(client.Call(19, link), "\0\0\0\x0C"s);
}

TEST_F(Vxi11LockTest, ACallMayWaitForTheLock) {
  client.Call(18, link + AtOnce);
  EXPECT_EQ(other.Write(otherLink, "*ESE 3", 9), "(waits)");
  EXPECT_EQ(other.Connection().NextEvent(), world.now + std::chrono::seconds(1));
  client.Call(19, link);
  EXPECT_LE(other.Connection().NextEvent(), world.now);
  EXPECT_EQ(other.Results(), "\0\0\0\0\0\0\0\6"s);
}

TEST_F(Vxi11LockTest, AWaitForTheLockEndsInItsTime) {
  client.Call(18, link + AtOnce);
  EXPECT_EQ(other.Call(18, otherLink + Waiting), "(waits)");
  const TimePoint before = world.now;
  EXPECT_EQ(other.Await(), Locked);
  EXPECT_EQ(world.now - before, std::chrono::seconds(1));
}

TEST_F(Vxi11LockTest, ACallsOwnTimeBeginsWithTheLock) {
  client.Call(18, link + AtOnce);
  EXPECT_EQ(other.Read(otherLink, 16, 1), "(waits)");
  world.now += std::chrono::milliseconds(900);
  client.Call(19, link);
  const TimePoint before = world.now;
  EXPECT_EQ(other.Results(), "(waits)");
  EXPECT_EQ(other.Await(), ReadResult(15, 0, ""));
  EXPECT_EQ(world.now - before, std::chrono::seconds(1));
}

TEST_F(Vxi11LockTest, TheLockGoesWithItsLink) {
  client.Call(18, link + AtOnce);
  client.Call(23, link);
  EXPECT_EQ(other.Generic(15, otherLink), Done);
}

TEST_F(Vxi11LockTest, TheLockGoesWithItsConnection) {
  {
    Vxi11Client third(world);
    third.Call(18, third.Link() + AtOnce);
    EXPECT_EQ(other.Generic(15, otherLink), Locked);
  }
  EXPECT_EQ(other.Generic(15, otherLink), Done);
}

TEST_F(Vxi11LockTest, ALinkMayBeMadeWithTheLock) {
  const std::string arguments = "\0\0\0\0\0\0\0\1\0\0\x03\xE8\0\0\0\5inst0\0\0\0"s;
  EXPECT_EQ(client.Call(10, arguments), "\0\0\0\0\0\0\0\3\0\0\x03\x03\0\1\0\0"s);
  EXPECT_EQ(other.Generic(15, otherLink), Locked);
  EXPECT_EQ(other.Call(10, arguments), "(waits)");
  EXPECT_EQ(other.Await(), Locked + "\0\0\0\0\0\0\0\0\0\0\0\0"s);
  EXPECT_EQ(other.Call(10, arguments), "(waits)");
  client.Call(19, "\0\0\0\3"s);
  EXPECT_EQ(other.Results(), "\0\0\0\0\0\0\0\4\0\0\x03\x03\0\1\0\0"s);
}

TEST_F(Vxi11LockTest, ADeviceMayRefuseLocks) {
  client.Write(link, "SIM:REF ON");
  EXPECT_EQ(client.Call(18, link + AtOnce), Locked);
  EXPECT_EQ(client.Call(10, "\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\5inst0\0\0\0"s), Locked + "\0\0\0\0\0\0\0\0\0\0\0\0"s);
  client.Write(link, "SIM:REF OFF");
  EXPECT_EQ(client.Call(18, link + AtOnce), Done);
}

} // namespace
} // namespace portico::test
