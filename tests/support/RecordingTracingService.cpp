#include "support/RecordingTracingService.h"

#include <sstream>

#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"

namespace kelmora::testing {

void RecordingTracingService::maybeFail(const char* member) {
  auto found = failing.find(member);
  if (found != failing.end())
    throw RuntimeError(found->second);
}

void RecordingTracingService::vbwProcIn(const std::string& qualifiedName,
                                        const std::string& parameterText) {
  maybeFail("vbwProcIn");
  calls.push_back("in " + qualifiedName + " " + parameterText);
}

void RecordingTracingService::vbwProcOut() {
  maybeFail("vbwProcOut");
  calls.push_back("out");
}

std::string RecordingTracingService::vbwReportParameter(const std::string& name,
                                                        const Variant& value) {
  maybeFail("vbwReportParameter");
  return name + "=" + (value.isObject() ? value.typeName() : value.toString());
}

void RecordingTracingService::vbwReportVariable(const std::string& name, const Variant& value,
                                                int32_t) {
  maybeFail("vbwReportVariable");
  calls.push_back("var " + name + "=" + (value.isObject() ? value.typeName() : value.toString()));
}

void RecordingTracingService::vbwReportObject(const std::string& name,
                                              const std::shared_ptr<Object>&, int32_t) {
  maybeFail("vbwReportObject");
  calls.push_back("object " + name);
}

void RecordingTracingService::vbwReportToFile(const std::string& text) {
  maybeFail("vbwReportToFile");
  calls.push_back("file " + text);
}

void RecordingTracingService::vbwBeforeDump(std::string project, const std::string& module,
                                            const std::string& procedure, int16_t line,
                                            int16_t number, const std::string& description,
                                            int16_t lastDllError) {
  maybeFail("vbwBeforeDump");
  calls.push_back("before " + project + " " + module + " " + procedure + " " +
                  std::to_string(line) + " " + std::to_string(number) + " " + description + " " +
                  std::to_string(lastDllError));
}

void RecordingTracingService::vbwOpenDumpFile() {
  maybeFail("vbwOpenDumpFile");
  calls.push_back("open");
}

void RecordingTracingService::vbwCloseDumpFile() {
  maybeFail("vbwCloseDumpFile");
  calls.push_back("close");
}

Variant RecordingTracingService::vbwAfterDump() {
  maybeFail("vbwAfterDump");
  calls.push_back("after");
  if (answers.empty())
    return defaultAnswer;
  Variant answer = answers.front();
  answers.pop_front();
  return answer;
}

void RecordingTracingService::vbwExitThread(bool flag) {
  maybeFail("vbwExitThread");
  calls.push_back(std::string("exit ") + (flag ? "True" : "False"));
}

std::vector<std::string> RecordingTracingService::callsStartingWith(
    const std::string& prefix) const {
  std::vector<std::string> matching;
  for (const auto& call : calls) {
    if (call.starts_with(prefix))
      matching.push_back(call);
  }
  return matching;
}

std::vector<std::string> RecordingTracingService::failures() const {
  std::vector<std::string> found;
  for (const auto& call : callsStartingWith("before ")) {
    std::istringstream words(call.substr(7));
    std::string project, module, procedure, line, number;
    words >> project >> module >> procedure >> line >> number;
    found.push_back(module + "." + procedure + " " + number);
  }
  return found;
}

int RecordingTracingService::countOf(const std::string& prefix) const {
  return static_cast<int>(callsStartingWith(prefix).size());
}

ScopedBridge::ScopedBridge() : mService(std::make_shared<RecordingTracingService>()) {
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<RecordingBridge>(mService));
}

ScopedBridge::~ScopedBridge() {
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
}

}  // namespace kelmora::testing
