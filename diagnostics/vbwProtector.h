#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>

#include "diagnostics/TracingService.h"
#include "diagnostics/VarRef.h"
#include "platform/Variant.h"

namespace kelmora {

class Dumpable;
class RuntimeError;

// Answers of the tracing service to a failure, with the message-box meaning.
enum TracingAnswer : int32_t {
  kAnswerAbort = 3,
  kAnswerRetry = 4,
  kAnswerIgnore = 5,
};

// Procedure tracing and the common failure path. All state is per thread:
// the trace flags, the tracing object looked up from the running-object
// table, and the answer latch. The wrappers differ in how they treat a
// failure of the host's service: some pass it to the caller, the others go
// on as if nothing had been reported.
class vbwProtector {
 public:
  // Where a failure happened, as the failure path reports it.
  struct FailureSite {
    const std::string& module;
    const std::string& procedure;
    int32_t line;
    std::span<const VarRef> locals;
    const Dumpable* owner;
  };

  static bool& vbwTraceProc() { return state().traceProc; }
  static bool& vbwTraceParameters() { return state().traceParameters; }
  // Set together with vbwTraceParameters by the start-up routine; nothing
  // reads it.
  static bool& vbwTraceLines() { return state().traceLines; }
  static bool answerLatch() { return state().answerLatch; }
  static bool hasTracingObject() { return state().tracingObject != nullptr; }

  // The wrappers of the tracing object's members.
  // Entry and exit run on every traced call: inline, with the look-up of
  // the tracing object out of line.
  static void vbwProcIn(const std::string& qualifiedName, const std::string& parameterText) {
    tracingObject().vbwProcIn(qualifiedName, parameterText);
  }
  static void vbwProcOut() { tracingObject().vbwProcOut(); }
  static std::string vbwReportParameter(const std::string& name, const Variant& value);
  static void vbwReportVariable(const std::string& name, const Variant& value);
  static void vbwReportObject(const std::string& name, const std::shared_ptr<Object>& object);
  static void vbwReportToFile(const std::string& text);
  static void vbwBeforeDump(const std::string& module, const std::string& procedure, int16_t line,
                            int16_t number, const std::string& description, int16_t lastDllError);
  static void vbwOpenDumpFile();
  static void vbwCloseDumpFile();
  static int32_t vbwAfterDump();
  static void vbwExitThread(bool flag);
  // The thread's last library object has gone: the cached tracing object
  // goes too, without being told.
  static void lastObjectEnded();

  // The parameter text of the prologue: "(" then each reported parameter,
  // separated by ", ", then ") "; "()" when there are none.
  static std::string parameterText(std::span<const VarRef> parameters);

  // A class's dump procedure: the module header, then each field.
  static void dumpModule(std::initializer_list<VarRef> fields);

  // Steps 1 to 9 of the failure path: narrows the numbers, dumps, and
  // returns the answer. Any failure in here leaves to the caller.
  static int32_t handleFailure(const RuntimeError& error, const FailureSite& site);

  static const std::string& localHeader();
  static const std::string& moduleHeader();
  static const std::string& globalHeader();

 private:
  // Plain data, all zero at the start of a thread, so that the thread's copy
  // needs no run-time initialisation and every traced call reaches it
  // directly. The tracing object is owned
  // by tracingOwner(); this holds a plain pointer to it.
  struct ThreadState {
    bool traceProc;
    bool traceParameters;
    bool traceLines;
    bool answerLatch;
    TracingService* tracingObject;
  };
  static inline constinit thread_local ThreadState tState{};

  static ThreadState& state() { return tState; }
  static std::shared_ptr<TracingService>& tracingOwner();
  static TracingService& tracingObject() {
    if (TracingService* cached = tState.tracingObject)
      return *cached;
    return lookUpTracingObject();
  }
  static TracingService& lookUpTracingObject();
  static void globalDump();
};

}  // namespace kelmora
