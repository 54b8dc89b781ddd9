#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Json.h"

#include "diagnostics/TracingService.h"

namespace kelmora::tools {

class EventSink;

// The host's tracing service. Procedure entries and exits are only counted;
// a failure report is gathered from the dump (where, which number, and the
// local variables of the failing procedure) and told to the sink as one
// event when the dump closes. Every failure gets the same answer, 5 (go on
// with the next statement) unless the host was told otherwise.
//
// The library retries a statement for as long as the answer is 4, and a
// statement of this host fails the same way every time; so after
// kMaxRetries retries of one failure in a row (same procedure, line and
// number) the service answers 0 instead, which leaves the procedure, and
// tells the sink that it gave up.
class ToolTracingService : public TracingService {
 public:
  static constexpr int32_t kMaxRetries = 100;

  ToolTracingService(EventSink& sink, int32_t answer) : mSink(sink), mAnswer(answer) {}

  void vbwProcIn(const std::string& qualifiedName, const std::string& parameterText) override;
  void vbwProcOut() override;
  std::string vbwReportParameter(const std::string& name, const Variant& value) override;
  void vbwReportVariable(const std::string& name, const Variant& value, int32_t flag) override;
  void vbwReportObject(const std::string& name, const std::shared_ptr<Object>& object,
                       int32_t flag) override;
  void vbwReportToFile(const std::string& text) override;
  void vbwBeforeDump(std::string project, const std::string& module, const std::string& procedure,
                     int16_t line, int16_t number, const std::string& description,
                     int16_t lastDllError) override;
  void vbwOpenDumpFile() override;
  void vbwCloseDumpFile() override;
  Variant vbwAfterDump() override;
  void vbwExitThread(bool flag) override;

  int64_t proceduresEntered() const { return mProceduresEntered; }
  int32_t failuresReported() const { return mFailuresReported; }

 private:
  EventSink& mSink;
  int32_t mAnswer;
  int64_t mProceduresEntered = 0;
  int32_t mFailuresReported = 0;
  Json mReport;
  // The failure last answered, and how often in a row it was retried.
  Json mLastFailure;
  int32_t mRetriesInARow = 0;
  // Variables belong to the report's locals only until the module section
  // of the dump begins.
  bool mInLocals = false;
};

}  // namespace kelmora::tools
