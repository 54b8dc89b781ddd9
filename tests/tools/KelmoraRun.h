#pragma once

#include <string>
#include <vector>

#include "host/Kit.h"

namespace kelmora::tools::testing {

// One run of the kelmora command line, in this process but on a thread of
// its own, since the library's tracing state lives per thread.
struct KelmoraRun {
  int status = -1;
  std::string out;
  std::string err;

  static KelmoraRun of(const std::vector<std::string>& arguments);

  std::vector<std::string> errLines() const;
  // The JSON events printed, in order; fails the test on a line that is no
  // JSON object.
  std::vector<Json> events() const;
  std::vector<Json> events(const std::string& kind) const;
};

}  // namespace kelmora::tools::testing
