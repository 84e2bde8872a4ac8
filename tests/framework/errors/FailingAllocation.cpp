#include "framework/errors/FailingAllocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

bool failNext = false;

} // namespace

// Replaces the allocation of the whole test program.

void* operator new(std::size_t size) {
  void* memory = std::exchange(failNext, false) ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace portico::test {

FailingAllocation::FailingAllocation() { failNext = true; }
FailingAllocation::~FailingAllocation() { failNext = false; }

} // namespace portico::test
