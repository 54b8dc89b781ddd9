#include "AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {
thread_local uint64_t gAllocations = 0;
thread_local uint64_t gBytes = 0;

void* allocate(std::size_t size) {
  ++gAllocations;
  gBytes += size;
  if (void* memory = std::malloc(size == 0 ? 1 : size))
    return memory;
  throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace kelmora::bench {

uint64_t AllocationCounter::allocations() {
  return gAllocations;
}
uint64_t AllocationCounter::bytes() {
  return gBytes;
}

void AllocationScope::report() {
  const auto iterations = static_cast<double>(mState.iterations());
  if (iterations == 0)
    return;
  mState.counters["allocs/op"] =
      static_cast<double>(AllocationCounter::allocations() - mAllocations) / iterations;
  mState.counters["bytes/op"] =
      static_cast<double>(AllocationCounter::bytes() - mBytes) / iterations;
}

}  // namespace kelmora::bench
