#include <benchmark/benchmark.h>

#include "AllocationCounter.h"
#include "NoopTracing.h"
#include "diagnostics/Procedure.h"

namespace kelmora {
namespace {

class Traced : public Dumpable {
 public:
  void vbwDump() const override { vbwProtector::dumpModule({}); }

  void Empty(int16_t whichType) {
    Procedure proc{this, procedureName<"Traced.Empty">(), {arg("whichType", whichType)}};
    proc.run([&] { proc.step([] {}); });
  }
};

void tracedProcedure(benchmark::State& state, bool withParameters) {
  bench::ScopedNoopTracing tracing(withParameters);
  Traced traced;
  traced.Empty(1);  // warm: look-up of the tracing object and the names
  bench::AllocationScope allocations(state);
  for (auto _ : state) traced.Empty(1);
  allocations.report();
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
