#pragma once

#include "system/WakePipe.h"

#include <atomic>

namespace portico::system {

/// The order to give up every wait, because the program comes to its end. Given once and never taken back.
class Cancellation {
public:
  /// Fails with `std::system_error`.
  Cancellation() = default;

  /// Safe in a signal handler, and keeps `errno`.
  void Request() noexcept {
    m_requested = true;
    m_pipe.Wake();
  }
  bool Requested() const noexcept { return m_requested; }
  /// Readable once Requested().
  int Descriptor() const { return m_pipe.Descriptor(); }

private:
  std::atomic<bool> m_requested = false;
  WakePipe m_pipe; // never drained
};

/// Whether the order was given; not if there is nobody to give it.
inline bool Requested(const Cancellation* cancellation) noexcept {
  return cancellation != nullptr && cancellation->Requested();
}

} // namespace portico::system
