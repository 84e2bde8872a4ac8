#pragma once

namespace portico::test {

/// While one lives, the next allocation of the program fails, once. The one failure that even the plainest operations
/// can have.
class FailingAllocation {
public:
  FailingAllocation();
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
};

} // namespace portico::test
