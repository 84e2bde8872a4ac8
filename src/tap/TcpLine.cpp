#include "tap/TcpLine.h"

#include "drivers/DriverStatus.h"

#include <utility>

namespace portico::tap {

using drivers::TcpConnection;
using drivers::TcpConnector;
using server::IServedConnection;

TcpLine::TcpLine(std::string host, PortFinder findPort, Needs needs)
    : m_host(std::move(host)), m_needs(std::move(needs)), m_findPort(std::move(findPort)) {}

bool TcpLine::Connect(std::unique_ptr<IServedConnection> end) {
  const auto deadline = Deadline();
  std::uint16_t port = 0;
  TcpConnection connection = {m_findPort(port, deadline)};
  if (connection.Result.Succeeded()) {
    connection = m_connector.emplace(m_host, port, m_needs.Cancellation).Connect(deadline);
  }
  return Serve(std::move(connection), std::move(end));
}

bool TcpLine::ConnectFurther(std::unique_ptr<IServedConnection> end, std::uint16_t port) {
  if (port == 0) return Serve(m_connector->ConnectAgain(Deadline()), std::move(end));
  return Serve(TcpConnector(m_host, port, m_needs.Cancellation).Connect(Deadline()), std::move(end));
}

bool TcpLine::Serve(TcpConnection connection, std::unique_ptr<IServedConnection> end) {
  if (connection.Result.Succeeded()) {
    m_needs.Server.Add(std::move(connection.Socket), std::move(end));
  } else if (connection.Result.Status != drivers::DriverStatus::Cancelled) {
    m_needs.Tell("no connection to the instrument: " + ReasonFor(connection.Result));
  }
  return connection.Result.Succeeded();
}

} // namespace portico::tap
