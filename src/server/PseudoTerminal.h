#pragma once

#include "system/FileDescriptor.h"

#include <string>
#include <utility>

namespace portico::server {

/// A serial line without hardware, raw from the start. Like an instrument's, its far end does not see whether a client
/// has it open: clients come and go.
class PseudoTerminal {
public:
  /// Throws std::system_error if the operating system has none.
  PseudoTerminal();

  /// The path that clients open, `/dev/pts/4`.
  const std::string& Name() const { return m_name; }
  /// The end to serve, which does not block. The line ends when that is closed.
  system::FileDescriptor TakeFarEnd() { return std::move(m_farEnd); }

private:
  system::FileDescriptor m_farEnd;
  system::FileDescriptor m_nearEnd; ///< held open: without anybody there the far end would be hung up
  std::string m_name;
};

} // namespace portico::server
