#include "NoopTracing.h"

#include "diagnostics/vbwProtector.h"
#include "platform/RunningObjectTable.h"

namespace kelmora::bench {

namespace {
class Bridge : public BridgeToVB {
 public:
  std::shared_ptr<Object> ErrorParams() override { return std::make_shared<NoopTracing>(); }
};
}  // namespace

int& NoopTracing::failures() {
  thread_local int count = 0;
  return count;
}

int64_t& NoopTracing::procedures() {
  thread_local int64_t count = 0;
  return count;
}

void ScopedNoopTracing::checkNoFailures(benchmark::State& state) {
  if (NoopTracing::failures() != 0) {
    state.SkipWithError("the measured path failed");
    NoopTracing::failures() = 0;
  }
}

ScopedNoopTracing::ScopedNoopTracing(bool traceParameters) {
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<Bridge>());
  vbwProtector::vbwTraceProc() = true;
  vbwProtector::vbwTraceParameters() = traceParameters;
}

ScopedNoopTracing::~ScopedNoopTracing() {
  vbwProtector::vbwExitThread(false);
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
}

}  // namespace kelmora::bench
