#pragma once

#include "system/Cancellation.h"

#include <chrono>
#include <span>

namespace portico::system {

/// A descriptor, what of poll() is waited for there, and what it was ready for.
struct Awaited {
  int Descriptor = -1;
  short Events = 0;
  short Ready = 0;
};

/// Waits until one of the descriptors is ready, or has failed, which its next use then tells. Signals do not end the
/// wait. Answers 0, ETIMEDOUT, ECANCELED, or the system's error number. `cancellation` may be null.
int WaitForAny(std::span<Awaited> awaited, std::chrono::steady_clock::time_point deadline,
               const Cancellation* cancellation);

/// The same for one descriptor.
int WaitFor(int descriptor, short events, std::chrono::steady_clock::time_point deadline,
            const Cancellation* cancellation);

} // namespace portico::system
