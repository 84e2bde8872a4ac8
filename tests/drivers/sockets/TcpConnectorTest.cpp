#include "drivers/sockets/TcpConnector.h"

#include "drivers/TransportCalls.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

using namespace drivers;

TEST(TcpConnector, AFurtherConnectionGoesWhereTheFirstWent) {
  const ScriptedServer server({});
  TcpConnector connector("localhost", server.Port(), nullptr);
  const TcpConnection first = connector.Connect(Soon());
  ASSERT_TRUE(first.Result.Succeeded()) << first.Result.Detail;
  const TcpConnection second = connector.ConnectAgain(Soon());
  ASSERT_TRUE(second.Result.Succeeded()) << second.Result.Detail;
  EXPECT_NE(first.Socket.Get(), second.Socket.Get());
  server.WaitForConnections(2);
}

TEST(TcpConnector, AFurtherConnectionMayBeRefused) {
  ScriptedServer server({});
  TcpConnector connector("127.0.0.1", server.Port(), nullptr);
  ASSERT_TRUE(connector.Connect(Soon()).Result.Succeeded());
  server.StopListening();
  const TcpConnection second = connector.ConnectAgain(Soon());
  EXPECT_EQ(second.Result.Status, DriverStatus::ConnectionRefused);
  EXPECT_EQ(second.Result.Detail, "127.0.0.1, port " + std::to_string(server.Port()));
  EXPECT_FALSE(second.Socket.IsOpen());
}

} // namespace
} // namespace portico::test
