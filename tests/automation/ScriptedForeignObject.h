#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "automation/ForeignObject.h"
#include "platform/RuntimeError.h"

namespace kelmora::testing {

// A host object that answers only by name, as a host in another language
// writes one: members are a map from name to handler; any other name fails
// with 438. Every call is recorded by name.
class ScriptedForeignObject : public ForeignObject {
 public:
  using Handler = std::function<Variant(std::vector<Variant>&)>;

  std::map<std::string, Handler> members;
  std::vector<std::string> calls;

  Variant call(const std::string& name, int32_t, std::vector<Variant>& arguments) override {
    auto found = members.find(name);
    if (found == members.end())
      throw RuntimeError(kMemberNotSupported);
    calls.push_back(name);
    return found->second(arguments);
  }
};

}  // namespace kelmora::testing
