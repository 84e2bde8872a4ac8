#pragma once

#include "drivers/vxi11/RpcClient.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace portico::drivers {

/// Makes the stream to a port of a host; it is not open yet.
using StreamConnector = std::function<std::unique_ptr<ITransport>(const std::string& host, std::uint16_t port)>;

/// A connection to an RPC program at a port of a host.
class RpcChannel {
public:
  /// `stream` leads to `peer`. The rest is as in RpcClient.
  RpcChannel(std::unique_ptr<ITransport> stream, std::string peer, std::uint32_t program, std::uint32_t version,
             std::size_t resultLimit)
      : m_stream(std::move(stream)),
        m_peer(std::move(peer)),
        m_client(*m_stream, m_peer, program, version, resultLimit) {}

  ITransport& Stream() { return *m_stream; }
  RpcClient& Client() { return m_client; }
  const std::string& Peer() const { return m_peer; }

private:
  const std::unique_ptr<ITransport> m_stream;
  const std::string m_peer;
  RpcClient m_client;
};

} // namespace portico::drivers
