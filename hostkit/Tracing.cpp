#include "hostkit/Tracing.h"

#include "diagnostics/vbwProtector.h"

namespace kelmora::host {

namespace {

bool sameSite(const Failure& a, const Failure& b) {
  return a.procedure == b.procedure && a.line == b.line && a.number == b.number;
}

}  // namespace

void Tracing::vbwProcIn(const std::string&, const std::string&) {
  ++mProceduresEntered;
}

void Tracing::vbwProcOut() {}

std::string Tracing::vbwReportParameter(const std::string& name, const Variant& value) {
  return name + "=" + (value.isObject() ? value.typeName() : value.toString());
}

void Tracing::vbwReportVariable(const std::string& name, const Variant& value, int32_t) {
  if (mInLocals)
    mReport.locals.emplace_back(name, value);
}

void Tracing::vbwReportObject(const std::string&, const std::shared_ptr<Object>&, int32_t) {}

void Tracing::vbwReportToFile(const std::string& text) {
  mInLocals = text == vbwProtector::localHeader();
}

void Tracing::vbwBeforeDump(std::string, const std::string& module, const std::string& procedure,
                            int16_t line, int16_t number, const std::string& description, int16_t) {
  mReport = Failure{module + "." + procedure, line, number, description, {}};
  mInLocals = false;
}

void Tracing::vbwOpenDumpFile() {}

void Tracing::vbwCloseDumpFile() {
  // Told here rather than at the answer: once a thread has answered, later
  // failures are dumped but no longer asked.
  ++mFailuresReported;
  mInLocals = false;
  if (!sameSite(mReport, mLastFailure)) {
    mLastFailure = mReport;
    mLastFailure.locals.clear();
    mRetriesInARow = 0;
  }
  if (onFailure)
    onFailure(mReport);
  mReport = {};
}

Variant Tracing::vbwAfterDump() {
  if (mAnswer != kAnswerRetry)
    return Variant(mAnswer);
  if (mRetriesInARow < kMaxRetries) {
    ++mRetriesInARow;
    return Variant(mAnswer);
  }
  if (onRetriesGivenUp)
    onRetriesGivenUp(mLastFailure, mRetriesInARow);
  mRetriesInARow = 0;
  mLastFailure = {};
  return Variant(0);
}

void Tracing::vbwExitThread(bool) {}

}  // namespace kelmora::host
