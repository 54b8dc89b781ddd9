#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "diagnostics/TracingService.h"
#include "platform/Variant.h"

namespace kelmora::host {

// One failure the library reported: where, which number, and the local
// variables of the failing procedure as they stood.
struct Failure {
  std::string procedure;  // "Module.Procedure"
  int16_t line = 0;
  int16_t number = 0;
  std::string description;
  std::vector<std::pair<std::string, Variant>> locals;
};

// A tracing service with every member the library calls. Procedure entries
// are only counted; each failure report is gathered from its dump and handed
// to `onFailure` (silent when none is set) once the dump closes, and every
// failure gets the same answer, 5 (go on with the next statement) unless
// the host chose another.
//
// The library retries a statement for as long as the answer is 4, and a
// statement that fails on its own fails the same way every time; so after
// kMaxRetries retries of one failure in a row (same procedure, line and
// number) the service answers 0 instead, which leaves the procedure, and
// tells `onRetriesGivenUp`.
class Tracing : public TracingService {
 public:
  static constexpr int32_t kMaxRetries = 100;

  std::function<void(const Failure&)> onFailure;
  std::function<void(const Failure&, int32_t retries)> onRetriesGivenUp;

  explicit Tracing(int32_t answer = 5) : mAnswer(answer) {}

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
  int32_t mAnswer;
  int64_t mProceduresEntered = 0;
  int32_t mFailuresReported = 0;
  Failure mReport;
  // The failure last answered, and how often in a row it was retried.
  Failure mLastFailure;
  int32_t mRetriesInARow = 0;
  // Variables belong to the report's locals only until the module section
  // of the dump begins.
  bool mInLocals = false;
};

}  // namespace kelmora::host
