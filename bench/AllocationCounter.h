#pragma once

#include <cstdint>

#include <benchmark/benchmark.h>

#include "NoopTracing.h"

namespace kelmora::bench {

// Heap allocations and bytes made on this thread, counted by the benchmark
// binary's replacement of the global operator new, and the bytes still
// held (as the allocator sizes the blocks).
struct AllocationCounter {
  static uint64_t allocations();
  static uint64_t bytes();
  static int64_t liveBytes();
};

// Adds "allocs/op", "bytes/op" and "procs/op" (traced procedures entered)
// to a benchmark's report for what happened between construction and
// report().
class AllocationScope {
 public:
  explicit AllocationScope(benchmark::State& state)
      : mState(state),
        mAllocations(AllocationCounter::allocations()),
        mBytes(AllocationCounter::bytes()),
        mProcedures(NoopTracing::procedures()) {}
  void report();

 private:
  benchmark::State& mState;
  uint64_t mAllocations;
  uint64_t mBytes;
  int64_t mProcedures;
};

}  // namespace kelmora::bench
