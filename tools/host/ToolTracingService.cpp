#include "host/ToolTracingService.h"

#include "diagnostics/vbwProtector.h"
#include "host/EventSink.h"

namespace kelmora::tools {

namespace {

Json toJson(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Empty:
      return nullptr;
    case Variant::Kind::Boolean:
      return value.toBoolean();
    case Variant::Kind::Integer:
    case Variant::Kind::Long:
      return value.toLong();
    case Variant::Kind::Single:
      return value.toSingle();
    case Variant::Kind::String:
      return value.toString();
    case Variant::Kind::Object:
      return value.typeName();
  }
  return nullptr;
}

}  // namespace

void ToolTracingService::vbwProcIn(const std::string&, const std::string&) {
  ++mProceduresEntered;
}

void ToolTracingService::vbwProcOut() {}

std::string ToolTracingService::vbwReportParameter(const std::string& name, const Variant& value) {
  return name + "=" + (value.isObject() ? value.typeName() : value.toString());
}

void ToolTracingService::vbwReportVariable(const std::string& name, const Variant& value, int32_t) {
  if (mInLocals)
    mReport["locals"][name] = toJson(value);
}

void ToolTracingService::vbwReportObject(const std::string&, const std::shared_ptr<Object>&,
                                         int32_t) {}

void ToolTracingService::vbwReportToFile(const std::string& text) {
  mInLocals = text == vbwProtector::localHeader();
}

void ToolTracingService::vbwBeforeDump(std::string, const std::string& module,
                                       const std::string& procedure, int16_t line, int16_t number,
                                       const std::string& description, int16_t) {
  mReport = {{"procedure", module + "." + procedure},
             {"line", line},
             {"number", number},
             {"description", description},
             {"locals", Json::object()}};
  mInLocals = false;
}

void ToolTracingService::vbwOpenDumpFile() {}

void ToolTracingService::vbwCloseDumpFile() {
  // Reported here rather than at the answer: once a thread has answered,
  // later failures are dumped but no longer asked.
  ++mFailuresReported;
  mInLocals = false;
  Json site = {mReport["procedure"], mReport["line"], mReport["number"]};
  if (site != mLastFailure) {
    mLastFailure = std::move(site);
    mRetriesInARow = 0;
  }
  mSink.emit({{"failure", std::move(mReport)}});
  mReport = nullptr;
}

Variant ToolTracingService::vbwAfterDump() {
  if (mAnswer != kAnswerRetry)
    return Variant(mAnswer);
  if (mRetriesInARow < kMaxRetries) {
    ++mRetriesInARow;
    return Variant(mAnswer);
  }
  mSink.emit({{"retriesGivenUp",
               {{"procedure", mLastFailure[0]},
                {"line", mLastFailure[1]},
                {"number", mLastFailure[2]},
                {"retries", mRetriesInARow},
                {"answer", 0}}}});
  mRetriesInARow = 0;
  mLastFailure = nullptr;
  return Variant(0);
}

void ToolTracingService::vbwExitThread(bool) {}

}  // namespace kelmora::tools
