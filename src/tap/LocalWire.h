#pragma once

#include "system/Cancellation.h"
#include "system/FileDescriptor.h"

#include <string>
#include <string_view>
#include <utility>

namespace portico::tap {

/// One end of a stream of bytes inside the program, for who may wait.
class LocalWire {
public:
  /// A stream: this end, and the other, which does not block. Throws std::system_error.
  static std::pair<LocalWire, system::FileDescriptor> Make();

  /// Waits for bytes, which replace what is in `bytes`. False once the other end is closed, or the wait is cancelled.
  bool Receive(std::string& bytes, const system::Cancellation& cancellation);
  /// Sends all, in the same way.
  bool Send(std::string_view bytes, const system::Cancellation& cancellation);

private:
  explicit LocalWire(system::FileDescriptor end) : m_end(std::move(end)) {}
  bool Await(short events, const system::Cancellation& cancellation) const;

  system::FileDescriptor m_end;
};

} // namespace portico::tap
