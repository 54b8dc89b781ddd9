#include <benchmark/benchmark.h>

#include "AllocationCounter.h"
#include "diagnostics/BridgeToVB.h"
#include "diagnostics/Procedure.h"
#include "platform/RunningObjectTable.h"

namespace kelmora {
namespace {

class NoopTracing : public TracingService {
 public:
  void vbwProcIn(const std::string&, const std::string&) override {}
  void vbwProcOut() override {}
  std::string vbwReportParameter(const std::string& name, const Variant&) override { return name; }
};

class Bridge : public BridgeToVB {
 public:
  std::shared_ptr<Object> ErrorParams() override { return std::make_shared<NoopTracing>(); }
};

class Traced : public Dumpable {
 public:
  void vbwDump() const override { vbwProtector::dumpModule({}); }

  void Empty(int16_t whichType) {
    Procedure proc{this, procedureName<"Traced.Empty">(), {arg("whichType", whichType)}};
    proc.run([&] { proc.step([] {}); });
  }
};

void tracedProcedure(benchmark::State& state, bool withParameters) {
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<Bridge>());
  vbwProtector::vbwTraceProc() = true;
  vbwProtector::vbwTraceParameters() = withParameters;
  Traced traced;
  traced.Empty(1);  // warm: look-up of the tracing object and the names
  bench::AllocationScope allocations(state);
  for (auto _ : state) traced.Empty(1);
  allocations.report();
  vbwProtector::vbwExitThread(false);
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
}

void BM_EmptyTracedProcedure(benchmark::State& state) {
  tracedProcedure(state, false);
}
void BM_EmptyTracedProcedureWithParameters(benchmark::State& state) {
  tracedProcedure(state, true);
}

BENCHMARK(BM_EmptyTracedProcedure);
BENCHMARK(BM_EmptyTracedProcedureWithParameters);

}  // namespace
}  // namespace kelmora
