#include "diagnostics/Procedure.h"

namespace kelmora {

namespace {
// The parameter text while parameters are not traced.
const std::string& noText() {
  static const std::string text;
  return text;
}
}  // namespace

Procedure::Procedure(const Dumpable* owner, const ProcedureName& name,
                     std::initializer_list<VarRef> parameters)
    : mLifeline(owner != nullptr && !ReleasePool::busy() ? owner->lifeline() : nullptr),
      mOwner(owner),
      mName(name) {
  for (const auto& parameter : parameters) addVariable(parameter);
  mParameterCount = mVariableCount;
}

void Procedure::addVariable(const VarRef& variable) {
  // A procedure's variables are fixed by its source; more than the capacity
  // is a programming error, not a run-time condition.
  if (mVariableCount == kMaxVariables)
    std::terminate();
  mVariables[mVariableCount++] = variable;
}

void Procedure::prologue() {
  // The prologue and the epilogue report line 0: they belong to no
  // statement of the body.
  auto traceIn = [&] {
    if (!vbwProtector::vbwTraceProc())
      return;
    if (vbwProtector::vbwTraceParameters()) {
      vbwProtector::vbwProcIn(mName.qualified(), vbwProtector::parameterText(std::span(
                                                     mVariables.data(), mParameterCount)));
    } else {
      vbwProtector::vbwProcIn(mName.qualified(), noText());
    }
  };
  stepAt(0, traceIn);
}

void Procedure::epilogue() {
  // The exit report runs however the body was left.
  mExited = false;
  try {
    auto traceOut = [] {
      if (vbwProtector::vbwTraceProc())
        vbwProtector::vbwProcOut();
    };
    stepAt(0, traceOut);
  } catch (const Leave&) {
    // Leaving during the epilogue is leaving: nothing is left to run.
  }
}

bool Procedure::shouldRetry(const RuntimeError& error, int32_t line) {
  if (mGoOnPastFailures)
    return false;
  const vbwProtector::FailureSite site{mName.module(), mName.procedure(), line,
                                       std::span(mVariables.data(), mVariableCount), mOwner};
  switch (vbwProtector::handleFailure(error, site)) {
    case kAnswerRetry:
      return true;
    case kAnswerIgnore:
      return false;
    case kAnswerAbort:
      vbwProtector::vbwExitThread(true);
      throw Leave{};
    default:
      throw Leave{};
  }
}

}  // namespace kelmora
