#pragma once

#include "automation/ForeignAdapter.h"
#include "diagnostics/TracingService.h"

namespace kelmora {

// A host's tracing service (the bridge's ErrorParams) that answers only by
// name.
class ForeignTracingService : public TracingService, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  void vbwProcIn(const std::string& qualifiedName, const std::string& parameterText) override {
    method("vbwProcIn", {qualifiedName, parameterText});
  }
  void vbwProcOut() override { method("vbwProcOut"); }
  std::string vbwReportParameter(const std::string& name, const Variant& value) override;
  void vbwReportVariable(const std::string& name, const Variant& value, int32_t flag) override;
  void vbwReportObject(const std::string& name, const std::shared_ptr<Object>& object,
                       int32_t flag) override;
  void vbwReportToFile(const std::string& text) override { method("vbwReportToFile", {text}); }
  void vbwBeforeDump(std::string project, const std::string& module, const std::string& procedure,
                     int16_t line, int16_t number, const std::string& description,
                     int16_t lastDllError) override {
    method("vbwBeforeDump",
           {std::move(project), module, procedure, line, number, description, lastDllError});
  }
  void vbwOpenDumpFile() override { method("vbwOpenDumpFile"); }
  void vbwCloseDumpFile() override { method("vbwCloseDumpFile"); }
  Variant vbwAfterDump() override { return method("vbwAfterDump"); }
  void vbwExitThread(bool flag) override { method("vbwExitThread", {flag}); }
};

}  // namespace kelmora
