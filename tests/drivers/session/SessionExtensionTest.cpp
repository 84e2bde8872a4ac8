#include "drivers/session/SessionFixture.h"

namespace portico::test {
namespace {

using namespace drivers;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What a session can do beyond the nine functions.
class SessionExtensionTest : public SessionFixture {
protected:
  static constexpr auto Name = "TCPIP0::bench::5025::SOCKET";
  static constexpr auto Longer = std::chrono::milliseconds(9000);
};

TEST_F(SessionExtensionTest, AClearDropsWhatHasComeAndKeepsTheConnection) {
  transport.clears = true;
  transport.Piece("1\n2\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_CALL(observer, Cleared(Name)).Times(1);
  EXPECT_TRUE(session.Clear().Succeeded());
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout));
  EXPECT_EQ(Read().Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(transport.opened, 1);
}

TEST_F(SessionExtensionTest, AClearMakesAFreshConnectionWhereThereIsNoOtherWay) {
  transport.Piece("1\n2\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Clear().Succeeded());
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(transport.opened, 2);
  EXPECT_EQ(Read().Status, DriverStatus::ReadTimeout);
}

TEST_F(SessionExtensionTest, AClearMakesTheConnectionThatIsMissing) {
  transport.Fails(DriverStatus::ConnectionLost);
  EXPECT_EQ(Read().Status, DriverStatus::ConnectionLost);
  transport.clears = true;
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Clear().Succeeded());
  EXPECT_EQ(transport.opened, 2);
  EXPECT_THAT(transport.clearings, SizeIs(1));
}

TEST_F(SessionExtensionTest, AClearThatCannotConnectTellsWhyAndSoDoesTheNextRead) {
  transport.openResult = {DriverStatus::ConnectionRefused, "bench, port 5025"};
  EXPECT_EQ(session.Clear().Status, DriverStatus::ConnectionRefused);
  const DriverResult result = Read();
  EXPECT_EQ(result.Status, DriverStatus::NotConnected);
  EXPECT_EQ(result.Detail, "bench, port 5025, refused it");
}

TEST_F(SessionExtensionTest, GoingToLocalKeepsWhatHasCome) {
  transport.Piece("1\n2\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_TRUE(session.GoToLocal().Succeeded());
  EXPECT_THAT(transport.returns, ElementsAre(clock.Now() + Timeout));
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.front(), '2');
  EXPECT_EQ(transport.opened, 1);
}

TEST_F(SessionExtensionTest, GoingToLocalMakesTheConnectionThatIsMissing) {
  transport.Fails(DriverStatus::ConnectionLost);
  EXPECT_EQ(Read().Status, DriverStatus::ConnectionLost);
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.GoToLocal().Succeeded());
  EXPECT_THAT(transport.returns, SizeIs(1));
}

TEST_F(SessionExtensionTest, AConnectionWithoutAWayToLocalIsNamedAndKept) {
  transport.returnResult = {DriverStatus::NotPossible};
  const DriverResult result = session.GoToLocal();
  EXPECT_EQ(result.Status, DriverStatus::NotPossible);
  EXPECT_EQ(result.Detail, "TCPIP0::bench::5025::SOCKET has no means for it");
  EXPECT_EQ(transport.closed, 0);
}

TEST_F(SessionExtensionTest, AFailureToGoToLocalCostsTheConnection) {
  transport.returnResult = {DriverStatus::ConnectionLost, "bench"};
  EXPECT_EQ(session.GoToLocal().Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(Read().Status, DriverStatus::NotConnected);
}

TEST_F(SessionExtensionTest, ATimeoutHoldsFromTheNextCallOn) {
  session.SetTimeout(Longer);
  transport.Fails(DriverStatus::ReadTimeout);
  EXPECT_EQ(Read().Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Longer);
  transport.clears = true;
  EXPECT_CALL(observer, Cleared(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Longer);
  EXPECT_THAT(transport.clearings, ElementsAre(Longer));
}

} // namespace
} // namespace portico::test
