#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/BridgeToVB.h"
#include "diagnostics/TracingService.h"
#include "platform/Variant.h"

namespace kelmora::testing {

// A tracing service that records every call as one line of text and answers
// failures from a script. Lines look like:
//   "in Kelmora.Main2.model[Get] (whichType=1) "   "out"
//   "before Kelmora Main2 model[Get] 12 9 Subscript out of range 0"
//   "file <text>"   "var name=value"   "object name"   "open"   "close"
//   "after"   "exit True"
class RecordingTracingService : public TracingService {
 public:
  std::vector<std::string> calls;
  // Answers of vbwAfterDump, in order; when used up, defaultAnswer.
  std::deque<Variant> answers;
  Variant defaultAnswer = Variant(5);
  // Members (by name, e.g. "vbwProcOut") that fail with the given number.
  std::map<std::string, int32_t> failing;

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

  // The calls that start with the given prefix.
  std::vector<std::string> callsStartingWith(const std::string& prefix) const;
  int countOf(const std::string& prefix) const;
  // Each failure reported so far, as "Module.Procedure number".
  std::vector<std::string> failures() const;

 private:
  void maybeFail(const char* member);
};

class RecordingBridge : public BridgeToVB {
 public:
  explicit RecordingBridge(std::shared_ptr<Object> params) : mParams(std::move(params)) {}
  std::shared_ptr<Object> ErrorParams() override { return mParams; }

 private:
  std::shared_ptr<Object> mParams;
};

// Registers a recording service's bridge for the life of the scope.
class ScopedBridge {
 public:
  ScopedBridge();
  ~ScopedBridge();
  ScopedBridge(const ScopedBridge&) = delete;
  ScopedBridge& operator=(const ScopedBridge&) = delete;

  RecordingTracingService& service() const { return *mService; }

 private:
  std::shared_ptr<RecordingTracingService> mService;
};

}  // namespace kelmora::testing
