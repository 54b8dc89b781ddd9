#pragma once

#include <memory>
#include <string>

#include "diagnostics/BridgeToVB.h"
#include "diagnostics/TracingService.h"

namespace kelmora::bench {

// A tracing service that does nothing, so that a benchmark measures the
// library's own work on the traced path.
class NoopTracing : public TracingService {
 public:
  void vbwProcIn(const std::string&, const std::string&) override {}
  void vbwProcOut() override {}
  std::string vbwReportParameter(const std::string& name, const Variant&) override { return name; }
};

// Registers a no-op tracing bridge for the life of the scope, with
// procedure tracing on and parameter tracing as given.
class ScopedNoopTracing {
 public:
  explicit ScopedNoopTracing(bool traceParameters = false);
  ~ScopedNoopTracing();
  ScopedNoopTracing(const ScopedNoopTracing&) = delete;
  ScopedNoopTracing& operator=(const ScopedNoopTracing&) = delete;
};

}  // namespace kelmora::bench
