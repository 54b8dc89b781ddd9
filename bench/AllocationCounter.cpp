#include "AllocationCounter.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {
thread_local uint64_t gAllocations = 0;
thread_local uint64_t gBytes = 0;
thread_local int64_t gLiveBytes = 0;

void* allocate(std::size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr)
    throw std::bad_alloc();
  ++gAllocations;
  gBytes += size;
  gLiveBytes += static_cast<int64_t>(malloc_usable_size(memory));
  return memory;
}

void release(void* memory) noexcept {
  if (memory == nullptr)
    return;
  gLiveBytes -= static_cast<int64_t>(malloc_usable_size(memory));
  std::free(memory);
}
}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  release(memory);
}
void operator delete[](void* memory) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  release(memory);
}

namespace kelmora::bench {

uint64_t AllocationCounter::allocations() {
  return gAllocations;
}
uint64_t AllocationCounter::bytes() {
  return gBytes;
}
int64_t AllocationCounter::liveBytes() {
  return gLiveBytes;
}

void AllocationScope::report() {
  const auto iterations = static_cast<double>(mState.iterations());
  if (iterations == 0)
    return;
  mState.counters["allocs/op"] =
      static_cast<double>(AllocationCounter::allocations() - mAllocations) / iterations;
  mState.counters["bytes/op"] =
      static_cast<double>(AllocationCounter::bytes() - mBytes) / iterations;
  mState.counters["procs/op"] =
      static_cast<double>(NoopTracing::procedures() - mProcedures) / iterations;
}

}  // namespace kelmora::bench
