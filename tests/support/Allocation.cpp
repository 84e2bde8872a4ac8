#include "support/Allocation.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t left = 0; // how many still succeed, counted from 1; 0 lets all succeed
std::size_t alive = 0;
std::size_t largest = 0; // in bytes, since it was last set

void* Allocate(std::size_t size) {
  largest = std::max(largest, size);
  if (left != 0 && --left == 0) return nullptr;
  ++alive;
  return std::malloc(size == 0 ? 1 : size);
}

void Free(void* memory) noexcept {
  if (memory != nullptr) --alive;
  std::free(memory);
}

} // namespace

void* operator new(std::size_t size) {
  void* memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }

namespace portico::test {

FailingAllocation::FailingAllocation(std::size_t number) { left = number; }
FailingAllocation::~FailingAllocation() { left = 0; }
bool FailingAllocation::HasFailed() const { return left == 0; }

std::size_t AllocationsAlive() { return alive; }

std::size_t LargestAllocation(const std::function<void()>& call) {
  largest = 0;
  call();
  return largest;
}

} // namespace portico::test
