#pragma once

#include "framework/errors/HuntERR.h"
#include "support/Raised.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

// Replaces the allocation of the whole test program: to be included in one of its sources only.

namespace portico::test::allocation {
inline std::size_t left = 0;    // how many still succeed, counted from 1; 0 lets all succeed
inline std::size_t alive = 0;   // how many have not been given back
inline std::size_t largest = 0; // in bytes, since it was last set

inline void* Allocate(std::size_t size) {
  largest = std::max(largest, size);
  if (left != 0 && --left == 0) return nullptr;
  ++alive;
  return std::malloc(size == 0 ? 1 : size);
}

inline void Free(void* memory) noexcept {
  if (memory != nullptr) --alive;
  std::free(memory);
}
} // namespace portico::test::allocation

void* operator new(std::size_t size) {
  void* memory = portico::test::allocation::Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return portico::test::allocation::Allocate(size);
}
void operator delete(void* memory) noexcept { portico::test::allocation::Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { portico::test::allocation::Free(memory); }

namespace portico::test {

/// Makes the allocation of that number, from 1, fail once while the call runs. True if the call came to it.
template <class Call>
bool FailsAllocation(std::size_t number, Call&& call) {
  const struct Reset {
    ~Reset() { allocation::left = 0; }
  } reset;
  allocation::left = number;
  call();
  return allocation::left == 0;
}

/// The error of a call whose allocation of that number, from 1, fails once.
template <class Call>
ErrorRecord OutOfMemory(std::size_t number, Call&& call) {
  return Raised([&] { FailsAllocation(number, call); });
}

/// The size of the largest piece of memory that a call asks for, in bytes.
template <class Call>
std::size_t LargestAllocation(Call&& call) {
  allocation::largest = 0;
  call();
  return allocation::largest;
}

} // namespace portico::test
