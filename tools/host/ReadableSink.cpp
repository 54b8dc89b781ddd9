#include "host/ReadableSink.h"

#include <ostream>

namespace kelmora::tools {

std::string ReadableSink::describe(const Json& value) {
  if (value.is_null())
    return "Nothing";
  if (value.is_boolean())
    return value.get<bool>() ? "True" : "False";
  if (value.is_string())
    return Json(value.get<std::string>()).dump();
  if (value.is_array()) {
    std::string text = "[";
    for (size_t i = 0; i < value.size(); ++i) text += (i > 0 ? ", " : "") + describe(value[i]);
    return text + "]";
  }
  return value.dump();
}

std::string ReadableSink::describeFailure(const Json& failure) {
  return "failure " + failure["number"].dump() + " in " + failure["procedure"].get<std::string>() +
         ", statement " + failure["line"].dump() + ": " + failure["description"].get<std::string>();
}

void ReadableSink::emit(const Json& event) {
  auto argumentList = [](const Json& args) {
    std::string text;
    if (args.is_object()) {
      for (const auto& [name, value] : args.items())
        text += (text.empty() ? "" : ", ") + name + "=" + describe(value);
    } else if (args.is_array()) {
      for (const auto& value : args) text += (text.empty() ? "" : ", ") + describe(value);
    }
    return text;
  };
  if (event.contains("stage")) {
    mOut << '\n' << "== " << event["stage"].get<std::string>() << " ==\n";
  } else if (event.contains("user")) {
    mOut << "  The user " << event["user"].get<std::string>() << '\n';
  } else if (event.contains("host")) {
    mOut << "  -> " << event["host"].get<std::string>() << '(' << argumentList(event["args"])
         << ")\n";
  } else if (event.contains("callback")) {
    mOut << "  <- " << event["callback"].get<std::string>() << '(' << argumentList(event["args"])
         << ')';
    if (event.contains("returns"))
      mOut << " returns " << describe(event["returns"]);
    mOut << '\n';
  } else if (event.contains("messageBox")) {
    mOut << "  [message box] " << event["messageBox"].get<std::string>() << '\n';
  } else if (event.contains("failure")) {
    mOut << "  !! " << describeFailure(event["failure"]) << '\n';
  } else if (event.contains("result")) {
    mOut << "     " << event["result"].get<std::string>() << " gave " << describe(event["value"])
         << '\n';
  } else if (event.contains("failedCall")) {
    const auto& failed = event["failedCall"];
    mOut << "  !! " << (failed.contains("operation") ? "ending the container" : "the call")
         << " failed with " << failed["number"] << ": " << failed["description"].get<std::string>()
         << '\n';
  } else if (event.contains("retriesGivenUp")) {
    const auto& given = event["retriesGivenUp"];
    mOut << "  !! gave up retrying " << given["procedure"].get<std::string>() << " after "
         << given["retries"] << " retries; answered 0 (leave)\n";
  } else if (event.contains("unmet")) {
    mOut << "  !! expectation not met: " << event["unmet"].dump() << '\n';
  } else {
    mOut << "  " << event.dump() << '\n';
  }
  mOut.flush();
}

}  // namespace kelmora::tools
