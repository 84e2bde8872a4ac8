#pragma once

#include "support/ErrorReports.h"

#include <cstddef>
#include <functional>

// Replaces the allocation of the whole test program: programs that use it link portico_test_allocation.

namespace portico::test {

/// Makes the allocation of that number, from 1, fail once while it lives. The one failure that even the plainest
/// operations can have.
class FailingAllocation {
public:
  explicit FailingAllocation(std::size_t number = 1);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  /// Whether it has come to that allocation.
  bool HasFailed() const;
};

/// True if the call came to the allocation of that number, which failed.
template <class Call>
bool FailsAllocation(std::size_t number, Call&& call) {
  const FailingAllocation failing(number);
  call();
  return failing.HasFailed();
}

/// The error of a call whose allocation of that number fails once.
template <class Call>
ErrorRecord OutOfMemory(std::size_t number, Call&& call) {
  return Raised([&] { FailsAllocation(number, call); });
}

/// How many pieces of memory have not been given back.
std::size_t AllocationsAlive();

/// The size of the largest piece of memory that a call asks for, in bytes.
std::size_t LargestAllocation(const std::function<void()>& call);

} // namespace portico::test
