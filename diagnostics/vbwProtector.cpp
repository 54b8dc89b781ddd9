#include "diagnostics/vbwProtector.h"

#include <limits>

#include "diagnostics/BridgeToVB.h"
#include "diagnostics/Dumpable.h"
#include "platform/App.h"
#include "platform/ErrObject.h"
#include "platform/OpenForms.h"
#include "platform/Printer.h"
#include "platform/ProcessExit.h"
#include "platform/ReleasePool.h"
#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"
#include "platform/Screen.h"

namespace kelmora {

namespace {

// Set once this thread's owner of the tracing object has been destroyed:
// objects that end after it, as the thread ends, find nothing to release.
constinit thread_local bool tOwnerGone = false;

std::string dumpHeader(const char* title) {
  const std::string stars(26, '*');
  return "\r\n" + stars + "\r\n" + title + "\r\n" + stars + "\r\n";
}

// Checked narrowing to 16 bits: a value outside the range is an overflow,
// raised inside the failure path.
int16_t narrowChecked(int32_t value) {
  if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max()) {
    throw RuntimeError(kOverflow);
  }
  return static_cast<int16_t>(value);
}

}  // namespace

const std::string& vbwProtector::localHeader() {
  static const std::string header = dumpHeader("* LOCAL LEVEL VARIABLES  *");
  return header;
}

const std::string& vbwProtector::moduleHeader() {
  static const std::string header = dumpHeader("* MODULE LEVEL VARIABLES *");
  return header;
}

const std::string& vbwProtector::globalHeader() {
  static const std::string header = dumpHeader("* GLOBAL LEVEL VARIABLES *");
  return header;
}

std::shared_ptr<TracingService>& vbwProtector::tracingOwner() {
  // A thread's end releases the host's service; the end of the process
  // keeps it instead, since the host may be gone by then.
  struct Owner {
    std::shared_ptr<TracingService> service;
    ~Owner() {
      tOwnerGone = true;
      if (service && ProcessExit::threadEndsWithProcess())
        ProcessExit::keep(std::move(service));
    }
  };
  thread_local Owner owner;
  return owner.service;
}

TracingService& vbwProtector::lookUpTracingObject() {
  auto& cached = state().tracingObject;
  if (cached == nullptr) {
    // Attach to the host's running bridge; none is ever created here.
    auto bridge = std::dynamic_pointer_cast<BridgeToVB>(
        RunningObjectTable::GetObject(BridgeToVB::kClassName));
    if (!bridge)
      throw RuntimeError(kMemberNotSupported);
    auto service = std::dynamic_pointer_cast<TracingService>(bridge->ErrorParams());
    if (!service)
      throw RuntimeError(kMemberNotSupported);
    tracingOwner() = std::move(service);
    cached = tracingOwner().get();
  }
  return *cached;
}

std::string vbwProtector::vbwReportParameter(const std::string& name, const Variant& value) {
  // A parameter the service cannot report is left out of the text.
  try {
    return tracingObject().vbwReportParameter(name, value);
  } catch (const RuntimeError&) {
    return {};
  }
}

void vbwProtector::vbwReportVariable(const std::string& name, const Variant& value) {
  // A variable the service cannot report must not stop the rest of the dump.
  try {
    tracingObject().vbwReportVariable(name, value, 0);
  } catch (const RuntimeError&) {
  }
}

void vbwProtector::vbwReportObject(const std::string& name, const std::shared_ptr<Object>& object) {
  tracingObject().vbwReportObject(name, object, 0);
}

void vbwProtector::vbwReportToFile(const std::string& text) {
  tracingObject().vbwReportToFile(text);
}

void vbwProtector::vbwBeforeDump(const std::string& module, const std::string& procedure,
                                 int16_t line, int16_t number, const std::string& description,
                                 int16_t lastDllError) {
  tracingObject().vbwBeforeDump("Kelmora", module, procedure, line, number, description,
                                lastDllError);
}

void vbwProtector::vbwOpenDumpFile() {
  tracingObject().vbwOpenDumpFile();
}

void vbwProtector::vbwCloseDumpFile() {
  tracingObject().vbwCloseDumpFile();
}

int32_t vbwProtector::vbwAfterDump() {
  // No answer, or one that is not a number, means "leave".
  try {
    return tracingObject().vbwAfterDump().toLong();
  } catch (const RuntimeError&) {
    return 0;
  }
}

void vbwProtector::vbwExitThread(bool flag) {
  auto& cached = state().tracingObject;
  if (cached == nullptr)
    return;
  // The thread's tracing ends whether or not the service takes the call.
  try {
    cached->vbwExitThread(flag);
  } catch (const RuntimeError&) {
  }
  cached = nullptr;
  // The service may be the very object whose member brought us here.
  ReleasePool::release(tracingOwner());
}

void vbwProtector::lastObjectEnded() {
  // Nothing of the library is left on this thread to report: let go of the
  // host's service, so that a host that released everything may unload us.
  // Its exit member is not called; there is nobody left to end tracing for.
  state().tracingObject = nullptr;
  if (!tOwnerGone)
    ReleasePool::release(tracingOwner());
}

std::string vbwProtector::parameterText(std::span<const VarRef> parameters) {
  if (parameters.empty())
    return "()";
  std::string text = "(";
  bool first = true;
  for (const auto& parameter : parameters) {
    if (!first)
      text += ", ";
    first = false;
    text += vbwReportParameter(parameter.name, parameter.value());
  }
  text += ") ";
  return text;
}

void vbwProtector::dumpModule(std::initializer_list<VarRef> fields) {
  vbwReportToFile(moduleHeader());
  for (const auto& field : fields) vbwReportVariable(field.name, field.value());
}

void vbwProtector::globalDump() {
  vbwReportToFile(globalHeader());
  vbwReportVariable("vbwProtector.vbwTraceProc", Variant(state().traceProc));
  vbwReportVariable("vbwProtector.vbwTraceParameters", Variant(state().traceParameters));
  for (const auto& [name, form] : OpenForms::List()) vbwReportObject(name, form);
  vbwReportObject("VB.App", App::instance());
  vbwReportObject("Err", ErrObject::current());
  vbwReportObject("VB.Screen", Screen::instance());
  vbwReportObject("VB.Printer", Printer::instance());
}

int32_t vbwProtector::handleFailure(const RuntimeError& error, const FailureSite& site) {
  ErrObject::current()->Raise(error);
  const int16_t lastDllError = narrowChecked(error.LastDllError());
  const int16_t number = narrowChecked(error.Number());
  const int16_t line = narrowChecked(site.line);

  vbwBeforeDump(site.module, site.procedure, line, number, error.Description(), lastDllError);
  vbwOpenDumpFile();
  vbwReportToFile(localHeader());
  for (const auto& local : site.locals) vbwReportVariable(local.name, local.value());
  if (site.owner != nullptr) {
    site.owner->vbwDump();
  } else {
    dumpModule({});
  }
  globalDump();
  vbwCloseDumpFile();

  auto& threadState = state();
  // Only the first failure that is not retried gets a real answer on a
  // thread; from then on every failure is skipped.
  const int32_t answer = threadState.answerLatch ? int32_t{kAnswerIgnore} : vbwAfterDump();
  threadState.answerLatch = answer != kAnswerRetry;
  return answer;
}

}  // namespace kelmora
