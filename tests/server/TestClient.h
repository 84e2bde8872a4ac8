#pragma once

#include "system/FileDescriptor.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace portico::test {

/// A client that connects over loopback and blocks, for no longer than ten seconds a call.
class TestClient {
public:
  explicit TestClient(std::uint16_t port, bool ipv6 = false);

  bool Connected() const { return m_connected; }
  void Send(std::string_view bytes);
  /// Sends as much as the peer takes until it takes no more; returns the number of bytes.
  std::size_t SendUntilBlocked(std::string_view bytes, std::size_t most);
  /// The next line with its line feed; what there is when the peer closes or the time is over.
  std::string ReadLine();
  /// So many bytes, or fewer if the peer closes.
  std::string ReadBytes(std::size_t count);
  /// Ends the own side only.
  void EndInput();
  bool ClosedByPeer();

private:
  bool Fill();

  system::FileDescriptor m_socket;
  bool m_connected = false;
  std::string m_received;
};

} // namespace portico::test
