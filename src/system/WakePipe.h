#pragma once

#include "system/FileDescriptor.h"

namespace portico::system {

/// A pipe to oneself, by which a signal handler or another thread gets through to whoever waits.
class WakePipe {
public:
  /// Fails with `std::system_error`.
  WakePipe();

  /// Becomes readable by `Wake`.
  int Descriptor() const { return m_reader.Get(); }
  /// Safe in a signal handler, and keeps `errno`.
  void Wake() noexcept;
  void Drain() noexcept;

private:
  FileDescriptor m_reader;
  FileDescriptor m_writer;
};

} // namespace portico::system
