#include "diagnostics/TracingService.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void TracingService::vbwProcIn(const std::string&, const std::string&) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwProcOut() {
  throw RuntimeError(kMemberNotSupported);
}
std::string TracingService::vbwReportParameter(const std::string&, const Variant&) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwReportVariable(const std::string&, const Variant&, int32_t) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwReportObject(const std::string&, const std::shared_ptr<Object>&, int32_t) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwReportToFile(const std::string&) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwBeforeDump(std::string, const std::string&, const std::string&, int16_t,
                                   int16_t, const std::string&, int16_t) {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwOpenDumpFile() {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwCloseDumpFile() {
  throw RuntimeError(kMemberNotSupported);
}
Variant TracingService::vbwAfterDump() {
  throw RuntimeError(kMemberNotSupported);
}
void TracingService::vbwExitThread(bool) {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
