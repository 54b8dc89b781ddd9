#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// The host's tracing object: the ErrorParams of the bridge the host runs.
// Every member a host leaves out fails with 438, as a late-bound call on an
// object without that member would.
class TracingService : public Object {
 public:
  std::string TypeName() const override { return "ErrorParams"; }

  virtual void vbwProcIn(const std::string& qualifiedName, const std::string& parameterText);
  virtual void vbwProcOut();
  virtual std::string vbwReportParameter(const std::string& name, const Variant& value);
  virtual void vbwReportVariable(const std::string& name, const Variant& value, int32_t flag);
  virtual void vbwReportObject(const std::string& name, const std::shared_ptr<Object>& object,
                               int32_t flag);
  virtual void vbwReportToFile(const std::string& text);
  virtual void vbwBeforeDump(std::string project, const std::string& module,
                             const std::string& procedure, int16_t line, int16_t number,
                             const std::string& description, int16_t lastDllError);
  virtual void vbwOpenDumpFile();
  virtual void vbwCloseDumpFile();
  // The answer, read by the library as a 32-bit integer.
  virtual Variant vbwAfterDump();
  virtual void vbwExitThread(bool flag);
};

}  // namespace kelmora
