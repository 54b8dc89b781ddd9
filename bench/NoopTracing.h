#pragma once

#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "diagnostics/BridgeToVB.h"
#include "diagnostics/TracingService.h"

namespace kelmora::bench {

// A tracing service that does nothing, so that a benchmark measures the
// library's own work on the traced path. A failure is counted and answered
// "go on", so that a benchmark can tell it measured a path that failed.
class NoopTracing : public TracingService {
 public:
  static int& failures();
  // Traced procedures entered on this thread.
  static int64_t& procedures();

  void vbwProcIn(const std::string&, const std::string&) override { ++procedures(); }
  void vbwProcOut() override {}
  std::string vbwReportParameter(const std::string& name, const Variant&) override { return name; }
  void vbwReportVariable(const std::string&, const Variant&, int32_t) override {}
  void vbwReportObject(const std::string&, const std::shared_ptr<Object>&, int32_t) override {}
  void vbwReportToFile(const std::string&) override {}
  void vbwBeforeDump(std::string, const std::string&, const std::string&, int16_t, int16_t,
                     const std::string&, int16_t) override {
    ++failures();
  }
  void vbwOpenDumpFile() override {}
  void vbwCloseDumpFile() override {}
  Variant vbwAfterDump() override { return Variant(5); }
  void vbwExitThread(bool) override {}
};

// Registers a no-op tracing bridge for the life of the scope, with
// procedure tracing on and parameter tracing as given.
class ScopedNoopTracing {
 public:
  // A benchmark whose path failed is reported as an error, not as a time.
  static void checkNoFailures(benchmark::State& state);

  explicit ScopedNoopTracing(bool traceParameters = false);
  ~ScopedNoopTracing();
  ScopedNoopTracing(const ScopedNoopTracing&) = delete;
  ScopedNoopTracing& operator=(const ScopedNoopTracing&) = delete;
};

}  // namespace kelmora::bench
